#pragma once

#include <cJSON.h>

namespace kestro {

/// What cJSON_GetObjectItem does, under a name that no other library can take the place of.
cJSON* findItem(const cJSON* object, const char* key);

/// The item if it is there and is a number, else null.
const cJSON* findNumber(const cJSON* object, const char* key);

/// The text of the item if it is there and is a string, else null. Stays the item's.
const char* findText(const cJSON* object, const char* key);

} // namespace kestro
