#pragma once

#include "core/export.h"
#include "core/float_window.h"
#include "menu/text_menu_drawer.h"

/// A list in a frame, over the darkened page. Main thread.
class KESTRO_API PopUpWindow : public FloatWindow {
public:
    /// `menu`, which the window takes over, may be null: then nothing but the darkened page is drawn, and
    /// the window closes at its first input. `backgroundImage` is the picture behind the list, such as
    /// "skin/pop-bg.png", from the theme's folder, else from "./"; null, or one that cannot be loaded, for
    /// none.
    PopUpWindow(int titleId, TextMenuDrawer* menu, const char* backgroundImage);
    ~PopUpWindow() override;

    /// Hands the input to the list and returns the list's code, but 1002, which closes the window, for 1
    /// and 2 (the key that chose nothing, or an action's result) and without a list.
    int eventHandling() override;

    /// Draws the page, the background in the middle of a screen of 1280 x 720 pixels, and the list where it
    /// has its rectangle. Returns 0.
    int draw() override;

    /// Does nothing.
    void quit() override;

protected:
    TextMenuDrawer* menu;      ///< owned
    KestroSurface* background; ///< owned
};
