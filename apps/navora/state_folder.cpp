#include "navora/state_folder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

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
    std::error_code ignored;
    return root.empty() && !fs::is_directory(disk, ignored) ? "" : disk + "/navora";
}

std::string userDataFolder() {
    return userFolder("XDG_DATA_HOME", "/.local/share/navora");
}

std::string configFolder() {
    return userFolder("XDG_CONFIG_HOME", "/.config/navora");
}

/// Makes a renamed file's new name durable too.
static void syncFolder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

static bool writeAndSync(const std::string& path, const std::string& content) {
    std::unique_ptr<FILE, int (*)(FILE*)> file(fopen(path.c_str(), "we"), fclose);
    return file && fwrite(content.data(), 1, content.size(), file.get()) == content.size() &&
           fflush(file.get()) == 0 && fsync(fileno(file.get())) == 0 && fclose(file.release()) == 0;
}

bool writeDurably(const std::string& path, const std::string& content) {
    const std::string beside = path + ".new";
    const fs::path folder = fs::path(path).parent_path();
    std::error_code ignored; // what follows fails too
    fs::create_directories(folder, ignored);
    if (writeAndSync(beside, content) && rename(beside.c_str(), path.c_str()) == 0) {
        syncFolder(folder);
        return true;
    }
    const int reason = errno;
    unlink(beside.c_str()); // half a file, which may fill what is left of the disk
    errno = reason;
    return false;
}

bool writeStateFile(const std::string& name, const std::string& content) {
    const std::string folder = stateFolder();
    return !folder.empty() && writeDurably(folder + "/" + name, content);
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
