#pragma once

#include <cJSON.h>

#include <cstdio>
#include <memory>

namespace kestro {

struct DeleteJson {
    void operator()(cJSON* item) const { cJSON_Delete(item); }
};
using JsonPtr = std::unique_ptr<cJSON, DeleteJson>;

struct FreeJsonText {
    void operator()(char* text) const { cJSON_free(text); }
};
using JsonTextPtr = std::unique_ptr<char, FreeJsonText>;

/// Reads and parses an open file, which stays open. `name` stands for it in log lines. Null on failure;
/// only loadContent logs.
JsonPtr parseFile(const char* name, FILE* file);

/// The formatted text of a tree; null when there is no memory for it.
JsonTextPtr printed(const cJSON* root);

} // namespace kestro
