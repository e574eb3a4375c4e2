#include "support/opened_paths.h"

#include "support/real_function.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>

static std::atomic<bool> sNoting{false};
static std::mutex sLock;
static std::vector<std::string> sPaths;
static std::vector<std::string> sRefused;

static void note(const char* path) {
    if (!sNoting)
        return;
    const std::lock_guard<std::mutex> lock(sLock);
    sPaths.push_back(path);
}

static bool refused(const char* path) {
    if (!sNoting)
        return false;
    const std::lock_guard<std::mutex> lock(sLock);
    if (std::find(sRefused.begin(), sRefused.end(), path) == sRefused.end())
        return false;
    errno = EACCES;
    return true;
}

extern "C" FILE* fopen(const char* path, const char* mode) {
    static const auto real = REAL_FUNCTION(fopen);
    note(path);
    return refused(path) ? nullptr : real(path, mode);
}

extern "C" FILE* fopen64(const char* path, const char* mode) {
    static const auto real = REAL_FUNCTION(fopen64);
    note(path);
    return refused(path) ? nullptr : real(path, mode);
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
    return refused(path) ? -1 : real(path, flags, mode);
}

/// A path as it is seen from an open folder.
static std::string pathIn(int folder, const char* path) {
    char name[PATH_MAX];
    const std::string link = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t length = *path == '/' ? -1 : readlink(link.c_str(), name, sizeof name);
    return length < 0 ? path : std::string(name, static_cast<size_t>(length)) + "/" + path;
}

extern "C" int openat(int folder, const char* path, int flags, ...) {
    static const auto real = REAL_FUNCTION(openat);
    va_list arguments;
    va_start(arguments, flags);
    const int mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(arguments, int) : 0;
    va_end(arguments);
    if (!sNoting || flags & O_DIRECTORY) // folders are what std::filesystem opens, for the tests themselves
        return real(folder, path, flags, mode);
    const std::string whole = pathIn(folder, path);
    note(whole.c_str());
    return refused(whole.c_str()) ? -1 : real(folder, path, flags, mode);
}

OpenedPaths::OpenedPaths() {
    sPaths.clear();
    sRefused.clear();
    sNoting = true;
}

OpenedPaths::~OpenedPaths() {
    sNoting = false;
}

void OpenedPaths::refuse(const std::string& path) {
    const std::lock_guard<std::mutex> lock(sLock);
    sRefused.push_back(path);
}

std::vector<std::string> OpenedPaths::take() {
    const std::lock_guard<std::mutex> lock(sLock);
    std::vector<std::string> paths;
    paths.swap(sPaths);
    return paths;
}
