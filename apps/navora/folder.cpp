#include "navora/folder.h"

#include <SDL.h>

#include <cstdio>
#include <filesystem>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace navora {

bool readEntry(const std::string& path, Entry& entry) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return false;
    const bool isFolder = S_ISDIR(status.st_mode);
    entry = {fs::path(path).filename().string(), path, isFolder,
             isFolder ? 0 : static_cast<long long>(status.st_size), status.st_mtime};
    return isFolder || S_ISREG(status.st_mode);
}

static std::string upperExtension(const Entry& entry) {
    std::string extension = fs::path(entry.name).extension().string();
    for (char& c : extension)
        c = static_cast<char>(SDL_toupper(static_cast<unsigned char>(c)));
    return extension.empty() ? extension : extension.substr(1);
}

std::string sizeText(long long bytes) {
    if (bytes < 1000)
        return std::to_string(bytes) + " B";
    static const char* const units[] = {"kB", "MB", "GB", "TB"};
    double size = static_cast<double>(bytes) / 1000.0;
    int unit = 0;
    for (; size >= 999.5 && unit < 3; ++unit)
        size /= 1000.0;
    char text[32];
    snprintf(text, sizeof text, size < 9.95 ? "%.1f %s" : "%.0f %s", size, units[unit]);
    return text;
}

std::string describeFile(const Entry& file) {
    const std::string extension = upperExtension(file);
    return (extension.empty() ? "" : extension + ", ") + sizeText(file.size);
}

} // namespace navora
