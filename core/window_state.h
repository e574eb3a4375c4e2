#pragma once

#include "core/export.h"
#include "core/window.h"

#include <vector>

/// Writes the stack to the JSON file `path`, which it replaces: an object whose member "list" holds, from
/// the bottom of the stack to the top, one object a window with its "title", its "type" and what its
/// saveState adds. An empty stack leaves the file untouched; a file that cannot be opened is passed over
/// without a word, and so is a null path. While the settings' journal is on (setSettingsJournal), it stands
/// behind this file too. Main thread.
KESTRO_API void saveWindowsState(std::vector<KestroWindow*>& windows, const char* path);

/// What saveWindowsState has written to `path`: the whole tree, which the caller owns and gives to
/// cJSON_Delete. Null, and no window, if the file is missing, or is no JSON object with an array "list"; a
/// null path gives null. With the journal on, the side copy that a power cut may have left stands in for an
/// unusable file. Any content is safe to load; what it means is for the host to check. Main thread.
KESTRO_API cJSON* loadWindowsState(const char* path);
