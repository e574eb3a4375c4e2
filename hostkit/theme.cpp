#include "hostkit/theme.h"

#include "core/host.h"
#include "gfx/surface_cache.h"
#include "shell/skin.h"

namespace hostkit {

static struct {
    std::string folder;
    int number = 0;
} sTheme;

void useTheme(const std::string& folder) {
    gThemePath = "./";
    sTheme.folder = folder;
    if (folder.empty())
        return;
    if (folder.back() != '/')
        sTheme.folder += '/';
    gThemePath = sTheme.folder.c_str();
}

void changeTheme(const std::string& folder) {
    useTheme(std::string(folder)); // it may be the present one's text
    gIconCache.clear();
    init_shared_skin(); // which forgets the rendered texts too
    ++sTheme.number;
}

const std::string& themeFolder() {
    return sTheme.folder;
}

const char* savedTheme() {
    return sTheme.folder.empty() ? nullptr : sTheme.folder.c_str();
}

int themeNumber() {
    return sTheme.number;
}

} // namespace hostkit
