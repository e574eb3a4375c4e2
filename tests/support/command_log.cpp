#include "support/command_log.h"

#include "support/real_function.h"

#include <atomic>
#include <cstdlib>
#include <mutex>

static std::atomic<bool> sNoting{false};
static std::mutex sLock;
static std::vector<std::string> sCommands;

extern "C" int system(const char* command) {
    static const auto real = REAL_FUNCTION(system);
    if (!sNoting)
        return real(command);
    const std::lock_guard<std::mutex> lock(sLock);
    sCommands.emplace_back(command);
    return 0;
}

CommandLog::CommandLog() {
    sCommands.clear();
    sNoting = true;
}

CommandLog::~CommandLog() {
    sNoting = false;
}

std::vector<std::string> CommandLog::take() {
    const std::lock_guard<std::mutex> lock(sLock);
    std::vector<std::string> commands;
    commands.swap(sCommands);
    return commands;
}
