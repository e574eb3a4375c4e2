#include "navora/program_run.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace navora {

using Clock = std::chrono::steady_clock;

static bool canRun(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(path.c_str(), X_OK) == 0;
}

bool hasProgram(const std::string& program) {
    if (program.find('/') != std::string::npos)
        return canRun(program);
    const char* const path = getenv("PATH");
    std::istringstream folders(path ? path : "/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (canRun((folder.empty() ? "." : folder) + "/" + program))
            return true;
    return false;
}

static std::atomic<bool> sEndRequested;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

/// In whichever thread the signal finds. A process that has ended only wakes the one that waits for it.
static void noteSignal(int number) {
    if (number != SIGCHLD)
        sEndRequested = true;
}

SignalWatch::SignalWatch() {
    sEndRequested = false;
    struct sigaction note {};
    note.sa_handler = noteSignal;
    note.sa_flags = SA_RESTART;
    for (size_t i = 0; i < mBefore.size(); ++i)
        sigaction(sSignals[i], &note, &mBefore[i]);
}

SignalWatch::~SignalWatch() {
    for (size_t i = 0; i < mBefore.size(); ++i)
        sigaction(sSignals[i], &mBefore[i], nullptr);
}

bool SignalWatch::endRequested() const {
    return sEndRequested;
}

/// Nothing but the standard streams goes on to a program.
static void closeFilesOnExec() {
    DIR* const files = opendir("/proc/self/fd");
    while (const dirent* const entry = files ? readdir(files) : nullptr) {
        const int file = atoi(entry->d_name);
        if (file > STDERR_FILENO)
            fcntl(file, F_SETFD, FD_CLOEXEC);
    }
    if (files)
        closedir(files);
}

/// In the new process, where only what is safe after a fork may be called.
[[noreturn]] static void become(char* const* arguments, const char* folder, int report) {
    setpgid(0, 0);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO); // a terminal would stop it
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGCHLD, SIGPIPE})
        signal(number, SIG_DFL);
    if (chdir(folder) == 0 || chdir("/") == 0)
        execvp(arguments[0], arguments);
    const int reason = errno;
    const ssize_t told = write(report, &reason, sizeof reason);
    _exit(told == sizeof reason ? 127 : 126);
}

/// Whether the new process could not become the program.
static bool failedToStart(int report) {
    int reason = 0;
    ssize_t count = 0;
    do
        count = read(report, &reason, sizeof reason);
    while (count < 0 && errno == EINTR);
    return count > 0;
}

/// Waits until `process` has ended, and passes on a wish to end.
static ProgramEnd awaitEnd(pid_t process, const SignalWatch& signals) {
    constexpr std::chrono::seconds grace(3);
    ProgramEnd end;
    Clock::time_point deadline{};
    int status = 0;
    pid_t ended = 0;
    while ((ended = waitpid(process, &status, WNOHANG)) == 0 || (ended < 0 && errno == EINTR)) {
        if (signals.endRequested() && !end.endRequested) {
            end.endRequested = true;
            deadline = Clock::now() + grace;
            kill(-process, SIGTERM);
            kill(-process, SIGCONT); // one that is stopped would not hear of it
        } else if (end.endRequested && Clock::now() > deadline) {
            kill(-process, SIGKILL);
        }
        poll(nullptr, 0, 50); // or until a signal comes
    }
    if (end.endRequested)
        kill(-process, SIGKILL); // what it has left behind
    end.code = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return end;
}

ProgramEnd runProgram(const std::vector<std::string>& command, const std::string& folder,
                      const SignalWatch& signals) {
    ProgramEnd failed;
    failed.missing = true;
    int report[2];
    closeFilesOnExec();
    if (command.empty() || pipe2(report, O_CLOEXEC) != 0)
        return failed;
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const pid_t process = fork();
    if (process == 0)
        become(arguments.data(), folder.c_str(), report[1]);
    close(report[1]);
    if (process > 0)
        setpgid(process, process); // here and there, since either may be first
    const bool started = process > 0 && !failedToStart(report[0]);
    close(report[0]);
    const ProgramEnd end = process > 0 ? awaitEnd(process, signals) : failed;
    return started ? end : failed;
}

} // namespace navora
