// What it costs to refuse a picture. Usage: kestro-picture-bombs ORDINARY FILE..., where ORDINARY is a file
// that is refused as any broken one is. Each file is loaded by a process of its own; memory is the highest it
// and its own children had, time the processor's. Prints a table with the differences to the ordinary one,
// and fails if one is above 20 MB or 50 ms, unless it is named "allowed", for a picture that is none to
// refuse.
#include "fuzz/support/screen.h"
#include "gfx/image.h"
#include "gfx/surface.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

struct Cost {
    long memory = 0; // KB
    double time = 0; // ms
    bool refused = false;
};

double milliseconds(const rusage& usage) {
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

/// The highest there has been of this process, in KB. What a process reports of itself to its parent counts
/// from before it was split off.
long peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long peak = 0;
    while (status >> word)
        if (word == "VmHWM:")
            status >> peak;
    return peak;
}

Cost measured(const std::string& path) {
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    std::ofstream("/proc/self/clear_refs") << 5; // forgets the highest
    const long start = peakMemory();
    const std::unique_ptr<KestroSurface> picture(LoadKestroSurface(nullptr, "", path.c_str()));
    rusage after{};
    rusage children{};
    getrusage(RUSAGE_SELF, &after);
    getrusage(RUSAGE_CHILDREN, &children);
    Cost cost;
    cost.refused = !picture;
    cost.memory = peakMemory() - start + std::max(0L, children.ru_maxrss - start);
    cost.time = milliseconds(after) - milliseconds(before) + milliseconds(children);
    return cost;
}

/// In a process of its own. False if that has crashed or hung.
bool tryFile(const std::string& path, Cost& cost) {
    int ends[2];
    if (pipe(ends) != 0)
        return false;
    const pid_t process = fork();
    if (process == 0) {
        alarm(60);
        cost = measured(path);
        _exit(write(ends[1], &cost, sizeof cost) != sizeof cost);
    }
    close(ends[1]);
    const bool answered = read(ends[0], &cost, sizeof cost) == sizeof cost;
    close(ends[0]);
    int status = 0;
    waitpid(process, &status, 0);
    return answered && status == 0;
}

/// The cheapest of three: other programs take memory and time from this one.
bool tryOften(const std::string& path, Cost& least) {
    for (int i = 0; i < 3; ++i) {
        Cost cost;
        if (!tryFile(path, cost))
            return false;
        if (i == 0)
            least = cost;
        least.memory = std::min(least.memory, cost.memory);
        least.time = std::min(least.time, cost.time);
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    constexpr double mostMemory = 20; // MB
    constexpr double mostTime = 50;   // ms
    FILE* const report = fdopen(dup(STDOUT_FILENO), "w");
    for (int i = 1; i < count; ++i)
        arguments[i] = realpath(arguments[i], nullptr);
    if (count < 3 || !report ||
        std::any_of(arguments + 1, arguments + count, [](char* path) { return !path; }))
        return 2;
    fuzz::openScreen();
    Cost ordinary;
    bool good = tryOften(arguments[1], ordinary) && ordinary.refused;
    fprintf(report, "| picture | outcome | MB above | ms above |\n|---|---|---:|---:|\n");
    for (int i = 2; i < count; ++i) {
        Cost cost;
        const bool answered = tryOften(arguments[i], cost);
        const double memory = static_cast<double>(cost.memory - ordinary.memory) / 1024;
        const double time = cost.time - ordinary.time;
        const std::string name = fs::path(arguments[i]).filename();
        const bool allowed = name.rfind("allowed", 0) == 0;
        const bool cheap = answered && (allowed || (memory < mostMemory && time < mostTime));
        fprintf(report, "| %s | %s%s | %.1f | %.1f |\n", name.c_str(),
                !answered      ? "crashed or hung"
                : cost.refused ? "refused"
                               : "shown",
                cheap ? "" : ", too dear", memory, time);
        good &= cheap;
        free(arguments[i]);
    }
    free(arguments[1]);
    fclose(report);
    return !good;
}
