#include "support/opened_paths.h"

#include "support/real_function.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>

static std::atomic<bool> sNoting{false};
static std::mutex sLock;
static std::vector<std::string> sPaths;

static void note(const char* path) {
    if (!sNoting)
        return;
    const std::lock_guard<std::mutex> lock(sLock);
    sPaths.push_back(path);
}

extern "C" FILE* fopen(const char* path, const char* mode) {
    static const auto real = REAL_FUNCTION(fopen);
    note(path);
    return real(path, mode);
}

extern "C" int access(const char* path, int mode) noexcept {
    static const auto real = REAL_FUNCTION(access);
    note(path);
    return real(path, mode);
}

extern "C" int open(const char* path, int flags, ...) {
    static const auto real = REAL_FUNCTION(open);
    va_list arguments;
    va_start(arguments, flags);
    const int mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, int) : 0;
    va_end(arguments);
    note(path);
    return real(path, flags, mode);
}

OpenedPaths::OpenedPaths() {
    sPaths.clear();
    sNoting = true;
}

OpenedPaths::~OpenedPaths() {
    sNoting = false;
}

std::vector<std::string> OpenedPaths::take() {
    const std::lock_guard<std::mutex> lock(sLock);
    std::vector<std::string> paths;
    paths.swap(sPaths);
    return paths;
}
