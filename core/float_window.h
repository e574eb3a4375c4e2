#pragma once

#include "core/export.h"
#include "core/window.h"
#include "gfx/surface.h"

/// A window over a darkened, frozen picture of the page beneath it, which it draws and nothing more: the
/// base of pop-ups and dialogs. Queue it with add2PopupList, which takes it over; it is closed before all
/// others when the loop is left (its type is -1). Main thread.
class KESTRO_API FloatWindow : public KestroWindow {
public:
    /// `titleId` as for KestroWindow.
    explicit FloatWindow(int titleId);
    ~FloatWindow() override;

    /// Takes no input. Returns -1.
    int eventHandling() override;

    /// Draws the frozen page and the skin's mask over it, as far as they are there. Returns 0.
    int draw() override;

    /// Does nothing.
    void quit() override;

    /// Freezes the page that was shown last; once. On a screen mounted on its side the picture is turned
    /// upright, since it is drawn on the page and turned with it.
    void init() override;

    /// Adds nothing.
    void saveState(cJSON* obj) override;

    /// Returns 0.
    int queryInt() override;

    /// Does nothing.
    void update() override;

protected:
    KestroSurface* snapshot; ///< the frozen page, owned; null until init, and where there was no screen
};
