#include "support/durability_log.h"

#include "support/real_function.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

static bool sNoting = false;
static bool sFailing = false;
static std::vector<std::string> sSteps;
static std::function<void(const std::string&)> sLook;

static void note(const std::string& step) {
    if (!sNoting)
        return;
    if (sLook)
        sLook(step);
    sSteps.push_back(step);
}

static std::string nameOf(int descriptor) {
    std::error_code ignored;
    return fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored).filename();
}

extern "C" int fsync(int descriptor) {
    note("fsync " + nameOf(descriptor));
    if (!sFailing)
        return 0;
    errno = EIO;
    return -1;
}

extern "C" int unlink(const char* path) noexcept {
    static const auto real = REAL_FUNCTION(unlink);
    note("unlink " + fs::path(path).filename().string());
    return real(path);
}

extern "C" void sync() noexcept {
    note("sync");
}

DurabilityLog::DurabilityLog(std::function<void(const std::string&)> look) {
    sSteps.clear();
    sLook = std::move(look);
    sFailing = false;
    sNoting = true;
}

DurabilityLog::~DurabilityLog() {
    sNoting = sFailing = false;
    sLook = nullptr;
}

std::vector<std::string> DurabilityLog::take() {
    std::vector<std::string> steps;
    steps.swap(sSteps);
    return steps;
}

void DurabilityLog::failSync() {
    sFailing = true;
}
