#pragma once

#include "core/dialog_window.h"
#include "navora/page.h"
#include "navora/words.h"

namespace navora {

/// A dialog that tells something: a word of the language, and below it what it is about, each in as many
/// lines as it needs. Any answer closes it.
class Message : public DialogWindow {
public:
    Message(Shell& shell, Word word, const std::string& about);

    void update() override;

private:
    Shell& mShell;
};

} // namespace navora
