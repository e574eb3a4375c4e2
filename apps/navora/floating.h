#pragma once

#include "core/dialog_window.h"
#include "core/popup_window.h"
#include "hostkit/theme.h"
#include "menu/text_menu.h"
#include "navora/device_panel.h"
#include "navora/page.h"

#include <utility>

namespace navora {

/// Draws the window below `window` on the stack as it is now, without the simulator's panel.
void drawBelow(const KestroWindow* window);

/// What the launcher's windows over a page have in common: the page shows through as it is, so that it
/// follows the device, and a screen that is opened anew takes nothing away. `Window` is one of the library's
/// floating windows.
template <typename Window>
class Floating : public Window {
public:
    template <typename... Arguments>
    explicit Floating(Shell& shell, Arguments&&... arguments)
        : Window(std::forward<Arguments>(arguments)...), mShell(shell), mThemeNumber(hostkit::themeNumber()) {
    }

    /// Freezes nothing.
    void init() override {}

    void update() override {
        mShell.script.frameBegins();
        if (mThemeNumber == hostkit::themeNumber())
            return;
        mThemeNumber = hostkit::themeNumber();
        reload();
    }

    int draw() final {
        drawBelow(this);
        Window::draw();
        drawMarks();
        drawDevicePanel();
        return 0;
    }

protected:
    /// Loads the window's own pictures anew.
    virtual void reload() = 0;

    /// Draws what comes over the library's drawing.
    virtual void drawMarks() {}

private:
    Shell& mShell;
    int mThemeNumber; // of the theme that the window shows
};

/// A list of the right size and look for a PopUpMenu, still without rows. The caller owns it.
TextMenu* makePopUpList();

/// A menu over the page. Back and menu close it. Queue it with add2PopupList.
class PopUpMenu : public Floating<PopUpWindow> {
public:
    /// Takes `menu` over, which is one of makePopUpList.
    PopUpMenu(Shell& shell, TextMenu* menu);

    int eventHandling() override;

protected:
    void reload() override;
    void drawMarks() override;
};

/// A dialog over the page. Queue it with add2PopupList.
class Dialog : public Floating<DialogWindow> {
public:
    using Floating::Floating;

protected:
    void reload() override;
};

/// A dialog with the cancel button selected at first.
class Question : public Dialog {
public:
    /// `confirmed`, which is taken over, runs when the owner confirms.
    Question(Shell& shell, int titleWord, int messageWord, Action* confirmed)
        : Dialog(shell, titleWord, messageWord, false, confirmed, nullptr) {
        focus = 0;
    }
};

} // namespace navora
