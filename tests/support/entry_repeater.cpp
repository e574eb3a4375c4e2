#include "support/entry_repeater.h"

#include "support/real_function.h"

#include <dirent.h>

static int sTimes = 1;
static bool sUntyped = false;

static struct {
    DIR* dir = nullptr;
    dirent* entry = nullptr;
    int left = 0;
} sRepeated;

static dirent* nextEntry(DIR* dir) {
    static const auto real = REAL_FUNCTION(readdir);
    dirent* const entry = real(dir);
    if (entry && sUntyped)
        entry->d_type = DT_UNKNOWN;
    return entry;
}

extern "C" dirent* readdir(DIR* dir) {
    if (sTimes == 1)
        return nextEntry(dir);
    if (sRepeated.left > 0 && sRepeated.dir == dir) {
        --sRepeated.left;
        return sRepeated.entry;
    }
    dirent* const entry = nextEntry(dir);
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

UntypedEntries::UntypedEntries() {
    sUntyped = true;
}

UntypedEntries::~UntypedEntries() {
    sUntyped = false;
}
