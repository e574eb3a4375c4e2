#pragma once

#include "core/export.h"

#include <cJSON.h>

/// One full-screen page on the window stack, or something floating above it.
///
/// A window is created with `new` and belongs to whoever holds it: the stack, or the pop-up queue until
/// the stack takes it over. The owner calls `quit` and then deletes it. Everything runs on the main
/// thread.
class KESTRO_API KestroWindow {
public:
    /// `titleId` is the index of the title in the language strings, negative for a window without title.
    /// `type` is the host's own kind; a negative type asks for the window to be closed before all others
    /// when the loop is left.
    KestroWindow(int titleId, int type);
    virtual ~KestroWindow();
    KestroWindow(const KestroWindow&) = delete;
    KestroWindow& operator=(const KestroWindow&) = delete;

    /// Handles pending input once. Returns a loop code: 1002 closes the active window if another lies
    /// beneath it, 1005 closes it in any case, 1003 and 1004 leave the loop, 25 ends the input of this
    /// frame, and anything else is ordinary.
    virtual int eventHandling() = 0;

    /// Draws the whole window into the current render target. The result is not used; 0 by custom.
    virtual int draw() = 0;

    /// Releases what `init` acquired. Called once, just before the window is deleted; also for a window
    /// that was displaced from the pop-up queue and never saw `init`.
    virtual void quit() = 0;

    /// Acquires what the window needs. Called when the stack takes it from the pop-up queue; windows that
    /// are on the stack from the start are initialised by the host.
    virtual void init() = 0;

    /// Adds the window's own members to `obj`, its entry in the saved state. `obj` is never null and stays
    /// the caller's.
    virtual void saveState(cJSON* obj) = 0;

    /// A query of the host's own; the library never calls it.
    virtual int queryInt() = 0;

    /// Called every frame, before `draw`.
    virtual void update() = 0;

    /// Called every frame between `update` and `draw`. Does nothing by default.
    virtual void postUpdate();

    /// Called before `quit` when the window is closed by the codes 1002 or 1005. Does nothing by default.
    virtual void onClose();

    /// The title in the current language, "" for a negative `titleId`. Never null; valid until the
    /// language table changes.
    virtual const char* getTitle();

    /// Logs the title and the type.
    void dump();

    /// Draws the bar at the top of a page, 80 pixels high: the back arrow, the title, and at the right the
    /// state of the device. For the window's own draw; the library does not call it. `offset` is added to
    /// every y. Returns the width in pixels that the state takes from the right.
    int drawNavBar(int offset);

    /// Draws the hints at the bottom of a page: which buttons open, go back and show the menu. The bar is
    /// 70 pixels high and begins at y 650, to which `offset` is added. For the window's own draw. Returns
    /// the x where a further hint would begin.
    int drawStatBar(int offset);

    int titleId; ///< index of the title in the language strings; negative for none
    int type;    ///< the host's own kind; negative: closed before all others when the loop is left
};
