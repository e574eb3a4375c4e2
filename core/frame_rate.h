#pragma once

#include "core/export.h"

/// Sets the frame rates, in frames per second: the normal one and the one during a boost. A rate of 5 or
/// less stands for the default, 10 and 30. Returns the normal rate now in force. Main thread.
KESTRO_API int setKestroWindowFps(int fps, int boostFps);

/// Asks for the boost rate for `ms` milliseconds from now on. Never shortens a running boost, except that
/// a value below 1 ends it. Every frame is charged at its nominal length, however long it took; at a boost
/// rate above 1000 that length is 0, and the boost lasts until it is ended. Main thread.
KESTRO_API void touchBoostFps(int ms);
