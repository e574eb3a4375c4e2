// Lets one allocation after the other fail, each in a process of its own, until everything succeeds.
// Usage: kestro-memory-faults [--most N] [--all-from-there] [AREA]...
// Prints a table; fails if a process crashed, hung, or was not well afterwards. See tools/memory-faults.
#include "fuzz/faults/failing_memory.h"
#include "fuzz/faults/memory_areas.h"
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

enum ExitCode { survived = 0, nothingFailed = 10, notWell = 11, crashedInFreeType = 12 };

struct Result {
    long tried = 0;
    long trapped = 0;
    long crashedInFreeType = 0;
    long failed = 0;
    bool cameToItsEnd = false;
};

/// Ends the process as a crash does, but for one of FreeType's, which loads a glyph anew with what it has
/// freed when it had no memory for the glyph before. Nobody outside of it can see that.
void noteCrash(int signal) {
    void* frames[16];
    const int count = backtrace(frames, 16);
    for (int i = 0; i < count; ++i) {
        Dl_info info{};
        const bool known = dladdr(frames[i], &info) && info.dli_fname;
        if (known && strstr(info.dli_fname, "libfreetype"))
            _exit(crashedInFreeType);
        if (known && strstr(info.dli_fname, "libkestro.so"))
            break;
    }
    std::signal(signal, SIG_DFL);
    raise(signal);
}

[[noreturn]] void runInArea(const fuzz::MemoryArea& area, long nth, fuzz::Failing which) {
    alarm(60); // whoever waits for ever is ended
    std::signal(SIGSEGV, noteCrash);
    fuzz::failAllocation(nth, which);
    area.run();
    const bool failed = fuzz::endFailing();
    const bool isWell = area.isWell();
    exit(!isWell ? notWell : failed ? survived : nothingFailed);
}

int statusOf(const fuzz::MemoryArea& area, long nth, fuzz::Failing which) {
    area.prepare();
    fflush(nullptr);
    const pid_t child = fork();
    if (child == 0)
        runInArea(area, nth, which);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        perror("no process");
        exit(2);
    }
    return status;
}

std::string wordsFor(int status) {
    if (WIFSIGNALED(status))
        return std::string("ended by ") + strsignal(WTERMSIG(status));
    return WEXITSTATUS(status) == notWell ? "not well afterwards"
                                          : "ended with " + std::to_string(WEXITSTATUS(status));
}

bool isTrap(int status) {
    return WIFSIGNALED(status) && (WTERMSIG(status) == SIGILL || WTERMSIG(status) == SIGTRAP);
}

Result tryArea(const fuzz::MemoryArea& area, long most, fuzz::Failing which) {
    Result result;
    for (long nth = 1; nth <= most; ++nth) {
        const int status = statusOf(area, nth, which);
        if (WIFEXITED(status) && WEXITSTATUS(status) == nothingFailed) {
            result.cameToItsEnd = true;
            break;
        }
        ++result.tried;
        if (area.mayTrap && isTrap(status)) {
            ++result.trapped;
        } else if (WIFEXITED(status) && WEXITSTATUS(status) == crashedInFreeType) {
            ++result.crashedInFreeType;
        } else if (!WIFEXITED(status) || WEXITSTATUS(status) != survived) {
            ++result.failed;
            fprintf(stderr, "%s: allocation %ld: %s\n", area.name, nth, wordsFor(status).c_str());
        }
    }
    return result;
}

/// All of them, in the order of the table.
std::vector<fuzz::MemoryArea> memoryAreas() {
    std::vector<fuzz::MemoryArea> areas = fuzz::settingsAreas();
    areas.push_back(fuzz::languagesArea());
    areas.push_back(fuzz::skinArea());
    areas.push_back(fuzz::folderArea());
    for (const fuzz::MemoryArea& area : fuzz::textAreas())
        areas.push_back(area);
    areas.push_back(fuzz::picturesArea());
    return areas;
}

struct Options {
    long most = 1'000'000;
    fuzz::Failing which = fuzz::Failing::one;
    std::vector<std::string> areas;
};

Options optionsOf(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (argument == "--most" && i + 1 < count)
            options.most = atol(arguments[++i]);
        else if (argument == "--all-from-there")
            options.which = fuzz::Failing::allFromThere;
        else
            options.areas.push_back(argument);
    }
    return options;
}

} // namespace

int main(int count, char** arguments) {
    const Options options = optionsOf(count, arguments);
    const int said = dup(STDOUT_FILENO); // which the device takes for the log
    fuzz::openScreen();
    void* frame = nullptr;
    backtrace(&frame, 1); // which loads what it needs
    FILE* const table = fdopen(said, "w");
    fprintf(table, "| area | allocations that failed | crashed or lost | trap kept | crashed in FreeType |\n"
                   "|---|---:|---:|---:|---:|\n");
    long failures = 0;
    size_t areas = 0;
    for (const fuzz::MemoryArea& area : memoryAreas()) {
        if (!options.areas.empty() &&
            std::find(options.areas.begin(), options.areas.end(), area.name) == options.areas.end())
            continue;
        const Result result = tryArea(area, options.most, options.which);
        fprintf(table, "| %s | %ld%s | %ld | %ld | %ld |\n", area.name, result.tried,
                result.cameToItsEnd ? "" : ", and more", result.failed, result.trapped,
                result.crashedInFreeType);
        failures += result.failed + (result.tried == 0);
        ++areas;
    }
    fclose(table);
    return failures > 0 || areas == 0;
}
