#include "navora/theme.h"

#include "hostkit/theme.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace navora {

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
    const auto found = std::find_if(themes().begin(), themes().end(), [](const Theme& theme) {
        return theme.folder == hostkit::themeFolder();
    });
    return found == themes().end() ? 0 : static_cast<int>(found - themes().begin());
}

} // namespace navora
