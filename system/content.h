#pragma once

#include "core/export.h"

#include <cstdio>

/// Reads the whole of an open file into new memory, with a terminating zero. Files of 1 to 131071 bytes
/// are read; any other size is logged and fails. `name` stands for the file in log lines. The file stays
/// the caller's.
///
/// Returns 0, or -1 on failure. Once memory was allocated, `*text` is set, also when the reading then
/// fails (and lacks its terminator): the caller starts with null and frees it either way. Any thread.
KESTRO_API int loadContent(const char* name, FILE* file, char** text);
