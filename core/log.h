#pragma once

#include "core/export.h"

/// Chooses where the log lines go: standard output for 0, which is the state at load, else the system
/// log under this process's name. Call it once, before any other thread starts.
KESTRO_API void initLogger(int useSyslog);

/// Writes one log message, formatted as by printf. Nothing is added: a message carries its own newline.
/// Never null. Any thread; one call's text stays together.
/// Returns the number of bytes written to standard output, negative on error; 0 in system log mode.
KESTRO_API int tprintf(const char* format, ...) KESTRO_PRINTF(1, 2);
