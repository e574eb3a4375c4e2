#include "system/json_file.h"

#include "system/content.h"

#include <cstdio>
#include <cstdlib>

namespace kestro {

static JsonPtr parseFile(const char* name, FILE* file) {
    char* text = nullptr;
    const bool loaded = loadContent(name, file, &text) == 0;
    JsonPtr root(loaded ? cJSON_Parse(text) : nullptr);
    free(text);
    return root;
}

JsonPtr parsePath(const char* name, const char* path, bool* opened) {
    FILE* const file = fopen(path, "r");
    if (opened)
        *opened = file;
    if (!file)
        return nullptr;
    JsonPtr root = parseFile(name, file);
    fclose(file);
    return root;
}

JsonTextPtr printed(const cJSON* root) {
    return JsonTextPtr(cJSON_Print(root));
}

} // namespace kestro
