#pragma once

#include "core/export.h"
#include "core/window.h"

#include <vector>

/// The stack that runWindows is running; its last element is the active window. Null before the first run;
/// left as it is when a run ends, except that the end of an inner run brings back the outer one's. For the
/// host: the library does not read it.
extern KESTRO_API std::vector<KestroWindow*>* gWinList;

/// The windows queued by add2PopupList. The queue owns them until the loop takes the newest onto the
/// stack. What is still queued when a run ends waits for the next run, and is not freed at exit.
extern KESTRO_API std::vector<KestroWindow*> gPopupList;

/// Runs the windows until the stack is empty or a window asks to leave. Takes over every window in
/// `windows`; on return the vector is empty and all of them are deleted. A null element is dropped. A
/// window may call it again from within a handler: the inner run ends first, and the key repeat goes on.
/// Main thread.
KESTRO_API void runWindows(std::vector<KestroWindow*>& windows);

/// Queues `w`, which becomes the active window after the current frame, and takes it over. At most one
/// window waits: one that was queued before is quit and deleted without ever being shown, and so is one
/// that is queued by its end. A window of the stack comes to its top. Null only empties the queue. Main
/// thread.
KESTRO_API void add2PopupList(KestroWindow* w);

/// Quits and deletes every window from the top of the stack down, and empties the vector. Main thread.
KESTRO_API void freeWindows(std::vector<KestroWindow*>& windows);
