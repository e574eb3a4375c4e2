#include "system/json_file.h"

#include "system/content.h"

#include <cstdlib>

namespace kestro {

JsonPtr parseFile(const char* name, FILE* file) {
    char* text = nullptr;
    const bool loaded = loadContent(name, file, &text) == 0;
    JsonPtr root(loaded ? cJSON_Parse(text) : nullptr);
    free(text);
    return root;
}

JsonTextPtr printed(const cJSON* root) {
    return JsonTextPtr(cJSON_Print(root));
}

} // namespace kestro
