#pragma once

#include "core/export.h"

/// Marks the key `code` (0 to 18) as held from now on. Only the directions, 5 to 8, repeat. A code out of
/// range is only logged. Main thread.
KESTRO_API void setRepeatTime(int code);

/// Marks every key as released. Main thread.
KESTRO_API void clearRepeatTime();

/// The body of the thread "repeatkey": pushes a held direction as a user event, first after 500 ms and
/// then about every 100 ms, until the run ends. `data` is not used. Returns 0. Started by runWindows;
/// without a run it returns at once.
KESTRO_API int checkRepeatThread(void* data);
