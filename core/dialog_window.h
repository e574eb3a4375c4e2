#pragma once

#include "core/export.h"
#include "core/float_window.h"
#include "menu/action.h"

#include <SDL.h>

#include <string>

/// A question with two buttons, over the darkened page: cancel at the left, confirm at the right. The panel
/// and the buttons are the pictures "skin/pop-bg.png", "skin/btn-bg-f.png" (focused) and
/// "skin/btn-bg-n.png"; what is missing of them is left out. For a screen of 1280 x 720 pixels. Main thread.
class KESTRO_API DialogWindow : public FloatWindow {
public:
    /// `multiLine` breaks the message at each "\n" and draws it in gPopupColorTxt; otherwise it is one line
    /// in the title's colour. No text is cut or wrapped to the panel's width.
    ///
    /// `action`, which the window takes over, is run with null when the user confirms, and its result is the
    /// loop code: 1002 closes the dialog. A null `action` just closes it. `onCancel`, which may be null, is
    /// called when the user cancels; then the dialog closes. Both may queue other windows.
    DialogWindow(std::string title, std::string message, bool multiLine, Action* action, void (*onCancel)());

    /// The same with the words `titleId` and `messageId` of the language that is in force now.
    DialogWindow(int titleId, int messageId, bool multiLine, Action* action, void (*onCancel)());

    ~DialogWindow() override;

    /// Handles one key: left and right move the focus, the confirming key and the fourth face button press
    /// the focused button, the back key and the third face button cancel. Returns what that gives; the codes
    /// 25, 43 and 44 as they are; else -1.
    int eventHandling() override;

    /// Draws the page, the panel in the middle of the screen, the texts and the buttons. Returns 0.
    int draw() override;

    /// Does nothing.
    void quit() override;

    /// Presses the focused button. Returns the action's result, or 1002.
    int handleOK();

    /// Cancels, whatever has the focus. Returns 1002.
    int handleCancel();

    /// The focused button: 0 for cancel, 1 for confirm, as at first.
    int getFocus() const { return focus; }

protected:
    std::string title;              ///< as given, or the word in the language of that moment
    std::string message;            ///< the same
    int focus;                      ///< the focused button, as getFocus gives it
    KestroSurface* panel;           ///< owned; null without that picture
    KestroSurface* reservedSurface; ///< not used; null
    unsigned char reservedFlag;     ///< not used; 0
    KestroSurface* buttonFocused;   ///< owned; null without that picture
    KestroSurface* buttonNormal;    ///< owned; null without that picture
    Action* action;                 ///< owned
    void (*onCancel)();             ///< null for nothing
    bool multiLine;                 ///< the message breaks at each "\n"

private:
    KESTRO_HIDDEN SDL_Rect panelRect() const;
    KESTRO_HIDDEN void drawTexts(const SDL_Rect& place) const;
    KESTRO_HIDDEN SDL_Rect firstButtonRect(const SDL_Rect& place) const;
    KESTRO_HIDDEN void drawButton(SDL_Rect place, int button) const;
};
