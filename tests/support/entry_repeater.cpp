#include "support/entry_repeater.h"

#include "support/real_function.h"

#include <dirent.h>

static int sTimes = 1;

static struct {
    DIR* dir = nullptr;
    dirent* entry = nullptr;
    int left = 0;
} sRepeated;

extern "C" dirent* readdir(DIR* dir) {
    static const auto real = REAL_FUNCTION(readdir);
    if (sTimes == 1)
        return real(dir);
    if (sRepeated.left > 0 && sRepeated.dir == dir) {
        --sRepeated.left;
        return sRepeated.entry;
    }
    dirent* const entry = real(dir);
    if (entry && entry->d_name[0] != '.')
        sRepeated = {dir, entry, sTimes - 1};
    return entry;
}

EntryRepeater::EntryRepeater(int times) {
    sTimes = times;
    sRepeated = {};
}

EntryRepeater::~EntryRepeater() {
    sTimes = 1;
}
