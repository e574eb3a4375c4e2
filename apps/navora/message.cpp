#include "navora/message.h"

#include "navora/look.h"
#include "shell/skin.h"
#include "system/language.h"

namespace navora {

static std::string text(Word word, const std::string& about) {
    constexpr int width = 600; // pixels, within the panel
    return wrapped(gPopupFontTxt, getLangStr(word), width, 2) + "\n" +
           wrapped(gPopupFontTxt, about, width, 2);
}

Message::Message(Shell& shell, Word word, const std::string& about)
    : Dialog(shell, getLangStr(wordGames), text(word, about), true, nullptr, nullptr) {}

} // namespace navora
