#include "navora/theme.h"

#include "core/host.h"
#include "gfx/surface_cache.h"
#include "shell/skin.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

const char* gThemePath = "./";

namespace navora {

static struct {
    std::string folder; // in force
    std::string chosen; // by the owner
    int number = 0;
} sTheme;

static std::vector<Theme> readThemes() {
    std::vector<Theme> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator("./themes", error))
        if (entry.is_directory(error))
            found.push_back({entry.path().filename().string(),
                             fs::absolute(entry.path()).lexically_normal().string() + "/"});
    std::sort(found.begin(), found.end(), [](const Theme& a, const Theme& b) { return a.name < b.name; });
    found.insert(found.begin(), {"", ""});
    return found;
}

static std::vector<Theme>& knownThemes() {
    static std::vector<Theme> all = readThemes();
    return all;
}

const std::vector<Theme>& themes() {
    return knownThemes();
}

static bool isSameFolder(const std::string& one, const std::string& other) {
    std::error_code error;
    return one == other || fs::equivalent(one, other, error);
}

/// The position in themes(), as many as there are for a folder that is not among them.
static size_t positionOf(const std::string& folder) {
    const auto found = std::find_if(themes().begin(), themes().end(),
                                    [&](const Theme& theme) { return isSameFolder(theme.folder, folder); });
    return static_cast<size_t>(found - themes().begin());
}

/// The folder as the library wants it, with "/" at its end; from now on it is among themes().
static std::string known(std::string folder) {
    if (!folder.empty() && folder.back() != '/')
        folder += '/';
    if (positionOf(folder) == themes().size()) {
        const std::string name = fs::path(folder).parent_path().filename().string();
        knownThemes().push_back({name.empty() ? folder : name, folder});
    }
    return folder;
}

int currentTheme() {
    return static_cast<int>(positionOf(sTheme.folder));
}

static void useFolder(const std::string& folder) {
    sTheme.folder = folder;
    gThemePath = folder.empty() ? "./" : sTheme.folder.c_str(); // the default skin lies beside the launcher
}

void startTheme(const std::string& chosen, const std::string& forThisRun) {
    sTheme.chosen = known(chosen);
    useFolder(forThisRun.empty() ? sTheme.chosen : known(forThisRun));
}

const char* savedTheme() {
    return sTheme.chosen.empty() ? nullptr : sTheme.chosen.c_str();
}

void changeTheme(const std::string& folder) {
    sTheme.chosen = folder;
    useFolder(folder);
    gIconCache.clear();
    init_shared_skin(); // which forgets the rendered texts too
    ++sTheme.number;
}

int themeNumber() {
    return sTheme.number;
}

} // namespace navora
