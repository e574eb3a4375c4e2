#include "navora/program_run.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
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

namespace {

/// Keeps the signals that end a program, or tell of its end, for sigtimedwait.
class HeldSignals {
public:
    HeldSignals() {
        sigemptyset(&mSet);
        for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGCHLD})
            sigaddset(&mSet, number);
        pthread_sigmask(SIG_BLOCK, &mSet, &mBefore);
    }
    ~HeldSignals() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    /// Waits for one of them, for a tenth of a second. Returns whether it asks for the end.
    bool endRequested() const {
        const timespec patience{0, 100'000'000};
        const int number = sigtimedwait(&mSet, nullptr, &patience);
        return number > 0 && number != SIGCHLD;
    }

    const sigset_t& before() const { return mBefore; }

private:
    sigset_t mSet{};
    sigset_t mBefore{};
};

} // namespace

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
[[noreturn]] static void become(char* const* arguments, const char* folder, const sigset_t& mask,
                                int report) {
    setpgid(0, 0);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO); // a terminal would stop it
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGCHLD, SIGPIPE})
        signal(number, SIG_DFL);
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
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
static ProgramEnd awaitEnd(pid_t process, const HeldSignals& signals) {
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
    }
    if (end.endRequested)
        kill(-process, SIGKILL); // what it has left behind
    end.code = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return end;
}

ProgramEnd runProgram(const std::vector<std::string>& command, const std::string& folder) {
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
    const HeldSignals signals;
    const pid_t process = fork();
    if (process == 0)
        become(arguments.data(), folder.c_str(), signals.before(), report[1]);
    close(report[1]);
    if (process > 0)
        setpgid(process, process); // here and there, since either may be first
    const bool started = process > 0 && !failedToStart(report[0]);
    close(report[0]);
    const ProgramEnd end = process > 0 ? awaitEnd(process, signals) : failed;
    return started ? end : failed;
}

} // namespace navora
