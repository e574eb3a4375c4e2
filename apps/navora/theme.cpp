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
    std::string folder;
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

const std::vector<Theme>& themes() {
    static const std::vector<Theme> all = readThemes();
    return all;
}

int currentTheme() {
    const auto found = std::find_if(themes().begin(), themes().end(),
                                    [](const Theme& theme) { return theme.folder == sTheme.folder; });
    return found == themes().end() ? 0 : static_cast<int>(found - themes().begin());
}

void startTheme(const std::string& folder) {
    sTheme.folder = folder;
    gThemePath = folder.empty() ? "./" : sTheme.folder.c_str(); // the default skin lies beside the launcher
}

const char* savedTheme() {
    return sTheme.folder.empty() ? nullptr : sTheme.folder.c_str();
}

void changeTheme(const std::string& folder) {
    startTheme(folder);
    gIconCache.clear();
    init_shared_skin(); // which forgets the rendered texts too
    ++sTheme.number;
}

int themeNumber() {
    return sTheme.number;
}

} // namespace navora
