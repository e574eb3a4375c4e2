#include "services/process_list.h"

#include "core/log.h"
#include "platform/device_path.h"
#include "services/process_list_internal.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <unistd.h>

using kestro::devicePath;

namespace {

/// The running processes, one after the other.
class ProcessList {
public:
    ProcessList() : mFolder(opendir(devicePath("/proc"))) {
        if (!mFolder)
            tprintf("can not open /proc\n");
    }
    ~ProcessList() {
        if (mFolder)
            closedir(mFolder);
    }
    ProcessList(const ProcessList&) = delete;
    ProcessList& operator=(const ProcessList&) = delete;

    bool opened() const { return mFolder; }

    /// Goes to the next process; false after the last.
    bool next() {
        while (const dirent* const entry = mFolder ? readdir(mFolder) : nullptr) {
            if (!isdigit(static_cast<unsigned char>(entry->d_name[0])))
                continue;
            mId = static_cast<int>(strtol(entry->d_name, nullptr, 10));
            readCommand(entry->d_name);
            return true;
        }
        return false;
    }

    int id() const { return mId; }

    /// The first argument of the process: a zero byte stands after each.
    const char* command() const { return mCommand; }

private:
    DIR* mFolder;
    int mId = -1;
    char mCommand[512] = "";

    /// In as few system calls as can be, since they are what this takes: a path from the open folder, and no
    /// reading on once the end of the first argument is there.
    void readCommand(const char* process) {
        char path[sizeof dirent::d_name + sizeof "/cmdline"];
        strcpy(stpcpy(path, process), "/cmdline");
        size_t length = 0;
        const int file = openat(dirfd(mFolder), path, O_RDONLY | O_CLOEXEC);
        if (file >= 0) {
            length = readFirstArgument(file);
            close(file);
        }
        mCommand[length] = 0;
    }

    size_t readFirstArgument(int file) {
        size_t length = 0;
        while (length < sizeof mCommand - 1) {
            const ssize_t got = read(file, mCommand + length, sizeof mCommand - 1 - length);
            if (got <= 0)
                break;
            const void* const end = memchr(mCommand + length, 0, static_cast<size_t>(got));
            length += static_cast<size_t>(got);
            if (end)
                break;
        }
        return length;
    }
};

} // namespace

static void logMatch(const char* name, const char* match, const char* command) {
    const size_t length = strlen(name);
    tprintf("[check: %s] p=%s in %s, pnlen=%d, cmp %d, p[%d]=%d\n", name, match, command,
            static_cast<int>(length), strncmp(match, name, length), static_cast<int>(length),
            static_cast<unsigned char>(match[length]));
}

/// Only the first occurrence is looked at, on purpose.
static bool isCommandOf(const char* name, const char* command, bool verbose) {
    const char* const match = strstr(command, name);
    if (!match)
        return false;
    if (verbose)
        logMatch(name, match, command);
    const char after = match[strlen(name)];
    return after == 0 || after == ' ';
}

static int findProcess(ProcessList& processes, const char* name, bool verbose) {
    while (processes.next()) {
        if (!isCommandOf(name, processes.command(), verbose))
            continue;
        if (verbose)
            tprintf("[check: %s] pid %d\n", name, processes.id());
        return processes.id();
    }
    if (verbose)
        tprintf("[check: %s] fail\n", name);
    return -1;
}

int check_process_exist(const char* name, bool verbose) {
    ProcessList processes;
    return processes.opened() ? findProcess(processes, name ? name : "", verbose) : -1;
}

int kestro::firstRunning(const char* first, const char* second) {
    ProcessList processes;
    if (!processes.opened())
        tprintf("can not open /proc\n"); // as if each name had a look of its own
    int found = -1;
    while (processes.next()) {
        if (isCommandOf(first, processes.command(), false))
            return 0;
        if (isCommandOf(second, processes.command(), false))
            found = 1;
    }
    return found;
}
