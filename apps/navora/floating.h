#pragma once

#include "core/dialog_window.h"
#include "core/popup_window.h"
#include "menu/text_menu.h"
#include "navora/page.h"

namespace navora {

/// A list of the right size and look for a PopUpMenu, still without rows. The caller owns it.
TextMenu* makePopUpList();

/// A menu over the page. Back and menu close it. Queue it with add2PopupList.
class PopUpMenu : public PopUpWindow {
public:
    /// Takes `menu` over, which is one of makePopUpList.
    PopUpMenu(Shell& shell, TextMenu* menu);

    int eventHandling() override;
    int draw() override;
    void update() override { mShell.script.frameBegins(); }

private:
    Shell& mShell;
};

/// A dialog over the page, with the cancel button selected at first. Queue it with add2PopupList.
class Question : public DialogWindow {
public:
    /// `confirmed`, which is taken over, runs when the owner confirms.
    Question(Shell& shell, int titleWord, int messageWord, Action* confirmed)
        : DialogWindow(titleWord, messageWord, false, confirmed, nullptr), mShell(shell) {
        focus = 0;
    }

    void update() override { mShell.script.frameBegins(); }

private:
    Shell& mShell;
};

} // namespace navora
