#pragma once

#include "core/export.h"
#include "core/window.h"

#include <vector>

/// Writes the stack to the JSON file `path`, which it replaces: an object whose member "list" holds, from
/// the bottom of the stack to the top, one object a window with its "title", its "type" and what its
/// saveState adds. An empty stack leaves the file untouched; a file that cannot be opened is passed over
/// without a word, and so is a null path. Main thread.
KESTRO_API void saveWindowsState(std::vector<KestroWindow*>& windows, const char* path);
