#include "navora/page.h"

#include "core/host.h"
#include "gfx/fill.h"
#include "gfx/text.h"
#include "hostkit/theme.h"
#include "navora/device_panel.h"
#include "navora/look.h"
#include "navora/words.h"
#include "shell/skin.h"
#include "system/language.h"

#include <SDL.h>

namespace navora {

Page::Page(Shell& shell, int title)
    : KestroWindow(title, 0), mShell(shell), mThemeNumber(hostkit::themeNumber()) {}

void Page::update() {
    mShell.script.frameBegins();
    if (mThemeNumber == hostkit::themeNumber())
        return;
    mThemeNumber = hostkit::themeNumber();
    themeChanged();
}

int Page::eventHandling() {
    return handleInput();
}

int Page::draw() {
    FillRect(nullptr, nullptr, 14, 19, 30, 255);
    drawAt(gBackground, 0, 0);
    drawCut(gPopupFontTitle, {margin, 0, screenWidth - 2 * margin, headerHeight}, getTitle(), gNavColorTxt,
            3);
    drawContent();
    drawHints();
    drawDevicePanel();
    return 0;
}

void Page::drawHints() const {
    constexpr int wordBack = 5;
    constexpr int gap = 10;
    constexpr int hintGap = 24;
    const bool swapped = GetKeyShm(gShmInfo, 19) != 0;
    const struct {
        KestroSurface* button;
        int word;
    } hints[] = {{swapped ? gIconB : gIconA, confirmHint()}, {swapped ? gIconA : gIconB, wordBack}};
    int x = 30;
    for (const auto& [button, word] : hints) {
        if (!button || word < 0)
            continue;
        const SDL_Rect place{x, footerTop, button->getWidth(), screenHeight - footerTop};
        drawCentred(button, place);
        x += place.w + gap;
        const SDL_Rect label{x, footerTop, 0, place.h};
        x += DrawString(gStatFont, label, getLangStr(word), gStatColorTxt, 3, false, false) + hintGap;
    }
}

ListPage::ListPage(Shell& shell, int title, std::unique_ptr<TextMenuDrawer> list)
    : Page(shell, title), mList(std::move(list)) {}

void ListPage::drawContent() {
    if (mList->getListNum() > 0) {
        mList->draw();
        return;
    }
    const SDL_Rect middle{0, headerHeight, screenWidth, footerTop - headerHeight};
    DrawString(gListFontTxt, middle, getLangStr(wordNothingHere), gListColorTxt, 1, false, false);
}

int ListPage::handleInput() {
    return answer(mList->eventHandling());
}

int ListPage::answer(int code) {
    return code == keyA || code == keyB ? loopClose : code;
}

} // namespace navora
