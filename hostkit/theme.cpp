#include "hostkit/theme.h"

#include "core/host.h"
#include "gfx/surface_cache.h"
#include "shell/skin.h"

namespace hostkit {

static struct {
    std::string folder; // in force
    std::string chosen; // by the owner
    int number = 0;
    int reloads = 0;
    std::string path; // what gThemePath points to
} sTheme;

static std::string withSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/')
        folder += '/';
    return folder;
}

/// Lists load their pictures anew only where the path reads differently: every reload spells it in another
/// way. A page may lie below others while the theme is loaded anew, more than once.
static void showTheme() {
    constexpr int spellings = 16;
    sTheme.path = sTheme.folder.empty() ? "./" : sTheme.folder;
    for (int i = sTheme.reloads % spellings; i > 0; --i)
        sTheme.path += "./";
    gThemePath = sTheme.path.c_str();
}

static void loadTheme() {
    gIconCache.clear();
    init_shared_skin(); // which forgets the rendered texts too
    ++sTheme.number;
}

static void setTheme(const std::string& folder, const std::string& forThisRun) {
    const std::string chosen = withSlash(folder);
    sTheme.folder = forThisRun.empty() ? chosen : withSlash(forThisRun);
    sTheme.chosen = chosen;
    showTheme();
}

void useTheme(const std::string& folder, const std::string& forThisRun) {
    sTheme.reloads = 0; // no page has seen any
    setTheme(folder, forThisRun);
}

void changeTheme(const std::string& folder) {
    setTheme(folder, "");
    loadTheme();
}

void reloadTheme() {
    ++sTheme.reloads;
    showTheme();
    loadTheme();
}

const std::string& themeFolder() {
    return sTheme.folder;
}

const char* savedTheme() {
    return sTheme.chosen.empty() ? nullptr : sTheme.chosen.c_str();
}

int themeNumber() {
    return sTheme.number;
}

} // namespace hostkit
