// Loaded into a program before all else: reading a folder takes a millisecond for every entry, as it may on a
// worn card.

#include <dirent.h>
#include <dlfcn.h>
#include <unistd.h>

extern "C" __attribute__((visibility("default"))) dirent* readdir(DIR* folder) {
    using Readdir = dirent* (*)(DIR*);
    static const auto real = reinterpret_cast<Readdir>(dlsym(RTLD_NEXT, "readdir"));
    usleep(1000);
    return real(folder);
}
