#pragma once

namespace hostkit {

/// Turns the desktop's close button and the signals SIGTERM and SIGINT into requestClose. Without it the
/// library shuts SDL down on them, in the middle of a frame. Once SDL's events are running; main thread,
/// which is that of the window loop.
void watchForCloseRequests();

/// Ends the window loop from whichever window is active, before its next input: a window of the kit's own
/// comes on top of the stack and leaves the loop with 1003. A loop within a loop is ended too, and so is one
/// that starts later. From another thread it takes effect with SDL's next event, at once where the window
/// answers a user event with its code.
void requestClose();

/// Calls `leaving` each time before a close request ends a loop, while its windows are all still there. Null,
/// as at first, calls nothing. Main thread.
void setBeforeClose(void (*leaving)());

/// Whether requestClose was called. Any thread.
bool closeRequested();

/// Lets later window loops run again, and takes away a window that still waits. Not inside a loop; main
/// thread.
void forgetCloseRequest();

} // namespace hostkit
