#pragma once

#include "core/export.h"

#include <cJSON.h>

/// `key` and the current language's file name joined by a point, such as "title.en.lang". Both together
/// stay below 64 characters; more is cut. Null counts as "". The result is one static buffer, valid until
/// the next call. Main thread.
KESTRO_API char* getLocalKey(const char* key);

/// Finds a member of a JSON object by name, whatever its case: the variant for the current language
/// ("KEY.en.lang") if the object has one, else `string` itself; the first match in the object's order.
/// Null if there is none, and for a null object or key. The item stays the object's.
///
/// It takes the place of cJSON's function of the same name, also for cJSON's own detach, delete and has-item
/// by name, wherever libkestro comes before libcjson in the link order.
extern "C" KESTRO_API cJSON* cJSON_GetObjectItem(const cJSON* const object, const char* const string);
