#include "navora/theme.h"

#include "hostkit/theme.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace navora {

static bool isSameFolder(const std::string& one, const std::string& other) {
    std::error_code error;
    return one == other || fs::equivalent(one, other, error);
}

/// The position in `all`, as many as there are for a folder that is not among them.
static size_t positionIn(const std::vector<Theme>& all, const std::string& folder) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Theme& theme) { return isSameFolder(theme.folder, folder); });
    return static_cast<size_t>(found - all.begin());
}

static void addFromElsewhere(std::vector<Theme>& all, const std::string& folder) {
    if (positionIn(all, folder) < all.size())
        return;
    const std::string name = fs::path(folder).parent_path().filename().string();
    all.push_back({name.empty() ? folder : name, folder});
}

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
    static std::vector<Theme> all = readThemes();
    if (const char* const chosen = hostkit::savedTheme())
        addFromElsewhere(all, chosen);
    addFromElsewhere(all, hostkit::themeFolder());
    return all;
}

int currentTheme() {
    return static_cast<int>(positionIn(themes(), hostkit::themeFolder()));
}

} // namespace navora
