#include "system/json_lookup.h"

#include "system/current_language.h"
#include "system/json_lookup_internal.h"

#include <cstdio>
#include <strings.h>

static constexpr size_t localKeySize = 64;

static bool formatLocalKey(char (&buffer)[localKeySize], const char* key) {
    const int length = snprintf(buffer, sizeof buffer, "%s.%s", key, getSystemLanguage());
    return length >= 0 && static_cast<size_t>(length) < sizeof buffer;
}

char* getLocalKey(const char* key) {
    static char buffer[localKeySize];
    formatLocalKey(buffer, key ? key : "");
    return buffer;
}

static cJSON* findPlain(const cJSON* object, const char* key) {
    for (cJSON* item = object->child; item; item = item->next)
        if (item->string && strcasecmp(item->string, key) == 0)
            return item;
    return nullptr;
}

cJSON* cJSON_GetObjectItem(const cJSON* const object, const char* const string) {
    return kestro::findItem(object, string);
}

namespace kestro {

cJSON* findItem(const cJSON* object, const char* key) {
    if (!object || !key)
        return nullptr;
    char localKey[localKeySize];
    if (formatLocalKey(localKey, key)) // one that was cut would find another key's variant
        if (cJSON* const item = findPlain(object, localKey))
            return item;
    return findPlain(object, key);
}

const cJSON* findNumber(const cJSON* object, const char* key) {
    const cJSON* const item = findItem(object, key);
    return cJSON_IsNumber(item) ? item : nullptr;
}

const char* findText(const cJSON* object, const char* key) {
    return cJSON_GetStringValue(findItem(object, key));
}

} // namespace kestro
