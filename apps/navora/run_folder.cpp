#include "navora/run_folder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace navora {

static bool canReadFolder(const std::string& folder) {
    if (DIR* const opened = opendir(folder.c_str())) {
        closedir(opened);
        return true;
    }
    fprintf(stderr, "navora: cannot read the folder '%s': %s\n", folder.c_str(), strerror(errno));
    return false;
}

/// An absolute path without "/" at its end; "" for "".
static std::string absolutePath(const std::string& path) {
    if (path.empty())
        return path;
    const fs::path whole = fs::absolute(path).lexically_normal();
    return whole.has_filename() || !whole.has_relative_path() ? whole.string() : whole.parent_path().string();
}

bool enterRunFolder(Options& options) {
    for (std::string* path : {&options.folder, &options.shot, &options.theme, &options.deviceRoot})
        *path = absolutePath(*path);
    const char* const home = getenv("NAVORA_HOME");
    const std::string runFolder = home && *home ? home : NAVORA_RUN_FOLDER;
    if (!canReadFolder(runFolder) || chdir(runFolder.c_str()) != 0)
        return false;
    if (options.folder.empty())
        options.folder = absolutePath("sample");
    for (const std::string& path : {options.folder, options.theme, options.deviceRoot})
        if (!path.empty() && !canReadFolder(path))
            return false;
    return true;
}

} // namespace navora
