#pragma once

#include "system/json_file.h"

namespace kestro {

/// Spreads the settings of `root` over the host's table, the display, the clock, the language and the flags;
/// see loadSystemState.
void loadKeys(void* shm, char** theme, const cJSON* root);

/// The same for settings that cannot be read: everything but language and theme becomes its default.
void loadDefaults(void* shm);

/// A new tree of all settings as they stand now, in the order of the file; null without memory for it.
JsonPtr saveKeys(void* shm, const char* theme);

/// A new copy of the theme's folder that the file names, which the caller frees; null if it names none or one
/// that does not exist.
char* existingTheme(const cJSON* root);

} // namespace kestro
