// Looking for the Wi-Fi processes among 300 others.

#include "bench/support/comparison.h"
#include "platform/device_path.h"
#include "services/wifi_monitor.h"

#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Processes that sleep, ended with this object, or with this program.
class Sleepers {
public:
    explicit Sleepers(int count) {
        for (int i = 0; i < count; ++i)
            if (const pid_t id = start())
                mIds.push_back(id);
        usleep(500'000); // until they have become what they are
    }
    ~Sleepers() {
        for (const pid_t id : mIds) {
            kill(id, SIGKILL);
            waitpid(id, nullptr, 0);
        }
    }
    Sleepers(const Sleepers&) = delete;
    Sleepers& operator=(const Sleepers&) = delete;

private:
    std::vector<pid_t> mIds;

    static pid_t start() {
        const pid_t id = fork();
        if (id < 0) {
            perror("fork");
            exit(1);
        }
        if (id == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            execlp("sleep", "sleep", "3600", nullptr);
            _exit(1);
        }
        return id;
    }
};

/// Whether a process of this name runs, by one look through all with stdio.
bool isRunning(const char* name) {
    DIR* const list = opendir("/proc");
    bool found = false;
    while (const dirent* const entry = found ? nullptr : readdir(list)) {
        if (!isdigit(static_cast<unsigned char>(entry->d_name[0])))
            continue;
        char path[300], command[512] = "";
        snprintf(path, sizeof path, "/proc/%s/cmdline", entry->d_name);
        if (FILE* const file = fopen(path, "r")) {
            command[fread(command, 1, sizeof command - 1, file)] = 0;
            fclose(file);
        }
        const char* const match = strstr(command, name);
        found = match && (match[strlen(name)] == 0 || match[strlen(name)] == ' ');
    }
    closedir(list);
    return found;
}

void runPidof() {
    char program[] = "pidof", first[] = "wpa_supplicant", second[] = "hostapd";
    char* const arguments[] = {program, first, second, nullptr};
    pid_t id = 0;
    int status = 0;
    if (posix_spawnp(&id, program, nullptr, nullptr, arguments, environ) != 0) {
        perror("pidof");
        exit(1);
    }
    waitpid(id, &status, 0);
}

} // namespace

int main() {
    unsetenv("KESTRO_DEVICE_ROOT");
    const Sleepers sleepers(300);
    const auto look = [] { bench::keep(getWifiMode()); };
    bench::compare(
        "getWifiMode, 300 processes", {"kestro", look},
        {"two passes over stdio", [] { bench::keep(isRunning("wpa_supplicant") || isRunning("hostapd")); }},
        0.42);
    bench::compare("getWifiMode, 300 processes", {"kestro", look, {}, true}, {"pidof", runPidof, {}, true},
                   0.25);
}
