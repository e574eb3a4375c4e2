#include "navora/state_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace navora {

static std::string variable(const char* name) {
    const char* const value = secure_getenv(name);
    return value ? value : "";
}

/// "navora" in the user's folder that `name` gives, else in `fallback` of the home folder.
static std::string userFolder(const char* name, const char* fallback) {
    const std::string given = variable(name);
    if (!given.empty() && given.front() == '/') // which the rules for these variables ask for
        return given + "/navora";
    const std::string home = variable("HOME");
    return home.empty() ? "" : home + fallback;
}

std::string stateFolder() {
    const std::string root = variable("KESTRO_DEVICE_ROOT");
    const std::string disk = root + "/mnt/UDISK";
    struct stat status {};
    if (!root.empty())
        return disk + "/navora";
    if (stat(disk.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return disk + "/navora";
    return userFolder("XDG_DATA_HOME", "/.local/share/navora");
}

std::string configFolder() {
    return userFolder("XDG_CONFIG_HOME", "/.config/navora");
}

bool writeStateFile(const std::string& name, const std::string& content) {
    const std::string folder = stateFolder();
    if (folder.empty())
        return false;
    std::error_code failure;
    fs::create_directories(folder, failure);
    const std::string path = folder + "/" + name;
    std::ofstream file(path + ".new", std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    if (file)
        fs::rename(path + ".new", path, failure);
    return file && !failure;
}

bool readSmallFile(const std::string& path, std::string& content) {
    constexpr off_t largest = 1 << 20;
    struct stat status {};
    content.clear();
    if (stat(path.c_str(), &status) != 0)
        return false;
    if (!S_ISREG(status.st_mode) || status.st_size > largest)
        return true;
    std::ostringstream read;
    read << std::ifstream(path, std::ios::binary).rdbuf();
    content = read.str();
    return true;
}

} // namespace navora
