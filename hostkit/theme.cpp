#include "hostkit/theme.h"

#include "core/host.h"
#include "gfx/surface_cache.h"
#include "shell/skin.h"

namespace hostkit {

static struct {
    std::string folder; // in force
    std::string chosen; // by the owner
    int number = 0;
} sTheme;

static std::string withSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/')
        folder += '/';
    return folder;
}

void useTheme(const std::string& folder, const std::string& forThisRun) {
    const std::string chosen = withSlash(folder);
    sTheme.folder = forThisRun.empty() ? chosen : withSlash(forThisRun);
    sTheme.chosen = chosen;
    gThemePath = sTheme.folder.empty() ? "./" : sTheme.folder.c_str();
}

void changeTheme(const std::string& folder) {
    useTheme(folder);
    gIconCache.clear();
    init_shared_skin(); // which forgets the rendered texts too
    ++sTheme.number;
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
