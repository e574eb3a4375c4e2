#include "hostkit/files.h"

#include <algorithm>
#include <filesystem>
#include <strings.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace hostkit {

static struct { std::vector<std::string> extensions; } sFiles;

static std::string extensionOf(const std::string& name) {
    const size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? "" : name.substr(dot + 1);
}

static bool isSame(const std::string& extension, const std::string& other) {
    return strcasecmp(extension.c_str(), other.c_str()) == 0;
}

void setFileExtensions(std::vector<std::string> extensions) {
    sFiles.extensions = std::move(extensions);
}

bool isListedFile(const char* name) {
    if (!name || !*name || *name == '.')
        return false;
    const std::vector<std::string>& listed = sFiles.extensions;
    const std::string extension = extensionOf(name);
    return listed.empty() || std::any_of(listed.begin(), listed.end(),
                                         [&](const std::string& other) { return isSame(extension, other); });
}

static constexpr const char* sPictureIcon = "skin/ic-image.png";

const char* fileIcon(const std::string& name) {
    static constexpr struct {
        const char* extension;
        const char* icon;
    } icons[] = {
        {"png", sPictureIcon},        {"jpg", sPictureIcon},        {"jpeg", sPictureIcon},
        {"bmp", sPictureIcon},        {"gif", sPictureIcon},        {"webp", sPictureIcon},
        {"txt", "skin/ic-text.png"},  {"md", "skin/ic-text.png"},   {"ogg", "skin/ic-music.png"},
        {"mp3", "skin/ic-music.png"}, {"wav", "skin/ic-music.png"}, {"mp4", "skin/ic-video.png"},
        {"mkv", "skin/ic-video.png"},
    };
    const std::string extension = extensionOf(name);
    for (const auto& known : icons)
        if (isSame(extension, known.extension))
            return known.icon;
    return "skin/ic-file.png";
}

std::string thumbnailOf(const std::string& path) {
    if (fileIcon(path) == sPictureIcon)
        return path;
    const std::string beside = fs::path(path).replace_extension(".png").string();
    struct stat status {};
    return stat(beside.c_str(), &status) == 0 && S_ISREG(status.st_mode) ? beside : "";
}

} // namespace hostkit
