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

/// Where the launcher is installed, its files lie in "share" beside its "bin"; else where the build has put
/// them. Both are found from the program, which names no folder of the machine that it was built on.
static std::string ownFolder() {
    std::error_code failure;
    const fs::path program = fs::read_symlink("/proc/self/exe", failure).parent_path();
    const fs::path installed = program / "../share/navora";
    const fs::path built = program / NAVORA_RUN_FOLDER;
    return (fs::is_directory(installed, failure) ? installed : built).lexically_normal().string();
}

bool enterRunFolder(Options& options) {
    for (std::string* path : {&options.folder, &options.shot, &options.theme, &options.deviceRoot})
        *path = absolutePath(*path);
    const char* const home = getenv("NAVORA_HOME");
    const std::string runFolder = home && *home ? home : ownFolder();
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
