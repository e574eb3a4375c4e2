#pragma once

#include "core/export.h"

#include <SDL_mixer.h>

/// @file
/// The symbols that the host application defines and the library calls. A host that links the library
/// defines all of them with default visibility; only `gKeyChunk` may be left out.

class TextMenuItem;

/// The handle of the shared table of integer settings, passed as it is to GetKeyShm and SetKeyShm.
/// Owned by the host; the library never looks inside.
extern KESTRO_API void* gShmInfo;

/// The integer at `index` of the table that the host shares with other processes. Index 19 is the A/B
/// swap that every list and dialog reads. Called on the main thread.
KESTRO_API int GetKeyShm(void* handle, int index);

/// Stores `value` at `index` of that table. Called on the main thread.
KESTRO_API void SetKeyShm(void* handle, int index, int value);

/// Opens all joysticks again. Called by wait_event, on the main thread, after one was added or removed;
/// it deals with its own errors.
KESTRO_API void initJoyStick();

/// Whether the file browser shows the entry `name` of the folder `path`. Never called with null.
KESTRO_API bool file_filter(const char* name, const char* path);

/// A new row for the entry `name` of the folder `path`, owned by the caller from then on, or null to leave
/// it out. `kind` is 101 for a file and 102 for a folder.
KESTRO_API TextMenuItem* file_handler(const char* name, const char* path, int kind);

/// The folder of the current theme, ending in "/"; null for none. Owned by the host; the library reads it
/// on the main thread, whenever a skin picture is loaded.
extern KESTRO_API const char* gThemePath;

/// The key tone, or null for silence. The library has a weak null definition, so that a host without sound
/// need not define it; a host's own definition wins. Owned by the host, which changes it only while
/// runWindows is not running: the key-repeat thread plays it too.
extern KESTRO_API Mix_Chunk* gKeyChunk;
