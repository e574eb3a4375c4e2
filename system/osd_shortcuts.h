#pragma once

#include "core/export.h"

/// The number of shortcuts that can bring up the on-screen display: 22.
KESTRO_API int getOSDShortcutNumber();

/// The keys of the shortcut `index`, such as "MENU+SELECT"; null if there is none. Lives for ever. Any
/// thread.
KESTRO_API const char* getOSDShorcut(int index);
