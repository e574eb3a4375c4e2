#pragma once

#include "core/export.h"

/// Where a list's position is written in the status bar: pixels from the top of the screen, 671 at first.
/// For the host to change; main thread.
extern KESTRO_API int gListNumOfStatBarOffsetY;
