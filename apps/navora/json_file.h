#pragma once

#include <cJSON.h>

#include <memory>
#include <string>

namespace navora {

struct DeleteJson {
    void operator()(cJSON* item) const { cJSON_Delete(item); }
};
using JsonPtr = std::unique_ptr<cJSON, DeleteJson>;

/// The file `name` of the state folder.
std::string stateFile(const std::string& name);

/// What the JSON in a file says. Null for a file that is not there; also, after a line on standard error
/// that names the file and the place in it, for one that cannot be read, is longer than 8 MB or is not JSON.
JsonPtr readJson(const std::string& path);

/// Writes a tree into a file as writeDurably does. False, after a line on standard error, if that fails.
bool writeJson(const std::string& path, const cJSON* root);

} // namespace navora
