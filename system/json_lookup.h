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
/// The library itself always uses this lookup. To a host's own calls, and to cJSON's detach, delete and
/// has-item by name, it takes the place of cJSON's function of the same name
/// - in a host that is linked with libkestro before libcjson (as by pkg-config and the CMake package) or
///   without libcjson;
/// - in a host that loads libkestro at run time and is not linked with libcjson itself. After a dlopen with
///   RTLD_LOCAL the host finds it by dlsym.
/// In a host that is linked with libcjson before libkestro, or that is linked with libcjson and loads
/// libkestro at run time, those calls get cJSON's lookup, which knows no languages.
extern "C" KESTRO_API cJSON* cJSON_GetObjectItem(const cJSON* const object, const char* const string);
