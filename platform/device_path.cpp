#include "platform/device_path.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace kestro {

static const char* deviceRoot() {
    const char* root = secure_getenv("KESTRO_DEVICE_ROOT");
    return root && *root ? root : nullptr;
}

DevicePath::DevicePath(const char* path) : mPath(path) {
    const char* const root = deviceRoot();
    if (!root)
        return;
    const int length = snprintf(mRooted, sizeof mRooted, "%s%s", root, path);
    mPath = length >= 0 && static_cast<size_t>(length) < sizeof mRooted ? mRooted : "";
}

static bool isHarmless(char c) {
    return isalnum(static_cast<unsigned char>(c)) || (c && strchr("/._-", c));
}

std::string shellQuoted(const std::string& text) {
    if (!text.empty() && std::all_of(text.begin(), text.end(), isHarmless))
        return text; // so that the device's own commands stay as they are
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'')
            quoted += "'\\''";
        else
            quoted += c;
    }
    return quoted + "'";
}

int runCommand(const char* command) {
    const DevicePath programs("/bin");
    if (!deviceRoot() || access(programs, X_OK) != 0)
        return system(command);
    return system(("PATH=" + shellQuoted(std::string(programs)) + ":$PATH; " + command).c_str());
}

} // namespace kestro
