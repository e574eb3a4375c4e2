#pragma once

#include <cJSON.h>

#include <memory>
#include <string>

namespace navora {

struct DeleteJson {
    void operator()(cJSON* item) const { cJSON_Delete(item); }
};
using JsonPtr = std::unique_ptr<cJSON, DeleteJson>;

/// The path of the file `name` of the state folder; "" without such a folder.
std::string stateFile(const std::string& name);

enum class JsonReading {
    done,
    missing,   ///< there is no such file
    broken,    ///< it is longer than 8 MB or is not JSON
    unreadable ///< its card or its rights do not let it be read, perhaps only now
};

/// What the JSON in a file says. Null if `reading` is then anything but done; except for a missing file,
/// after a line on standard error that names the file and the place in it.
JsonPtr readJson(const std::string& path, JsonReading& reading);

/// Writes a tree into a file as writeDurably does. False, after a line on standard error, if that fails.
bool writeJson(const std::string& path, const cJSON* root);

} // namespace navora
