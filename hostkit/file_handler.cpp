#include "core/host.h"
#include "hostkit/files.h"

TextMenuItem* file_handler(const char* name, const char* path, int kind) {
    constexpr int folder = 102;
    if (!name || !path)
        return nullptr;
    if (kind == folder)
        return hostkit::makeFolderRow(name, path);
    return file_filter(name, path) ? hostkit::makeFileRow(name, path) : nullptr;
}
