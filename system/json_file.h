#pragma once

#include <cJSON.h>

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

/// Reads and parses the file `path`; `name` stands for it in log lines. Null if it cannot be opened, which
/// `*opened`, if given, tells apart, or on another failure; only loadContent logs.
JsonPtr parsePath(const char* name, const char* path, bool* opened = nullptr);

/// The formatted text of a tree; null when there is no memory for it.
JsonTextPtr printed(const cJSON* root);

} // namespace kestro
