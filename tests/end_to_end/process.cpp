#include "end_to_end/process.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using Clock = std::chrono::steady_clock;

#ifdef __x86_64__
static constexpr std::chrono::seconds patience(60);
#else
static constexpr std::chrono::seconds patience(600); // where the processor may be emulated
#endif
static constexpr std::chrono::milliseconds lookEvery(10);

bool eventually(const std::function<bool()>& holds) {
    const auto end = Clock::now() + patience;
    while (!holds()) {
        if (Clock::now() > end)
            return false;
        std::this_thread::sleep_for(lookEvery);
    }
    return true;
}

static std::string newFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "navora-test-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot make a folder in the place of temporary files");
    return name;
}

static void redirect(int handle, const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, handle);
    close(file);
}

static void setEnvironment(const std::vector<std::string>& environment) {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "SDL_VIDEODRIVER", "NAVORA_HOME"})
        unsetenv(name);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    for (const std::string& entry : environment) {
        const size_t equals = entry.find('=');
        if (equals == std::string::npos)
            unsetenv(entry.c_str());
        else
            setenv(entry.substr(0, equals).c_str(), entry.c_str() + equals + 1, 1);
    }
}

[[noreturn]] static void become(const std::vector<std::string>& command) {
    signal(SIGINT, SIG_DFL); // which a shell's job in the background ignores
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    perror(arguments[0]);
    _exit(127);
}

Process::Process(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                 const std::string& folder)
    : mFiles(newFolder()) {
    mId = fork();
    if (mId != 0)
        return;
    redirect(STDOUT_FILENO, mFiles + "/out");
    redirect(STDERR_FILENO, mFiles + "/err");
    setEnvironment(environment);
    if (!folder.empty() && chdir(folder.c_str()) != 0)
        _exit(126);
    become(command);
}

Process::~Process() {
    if (!mEnded) {
        kill(mId, SIGKILL);
        waitpid(mId, nullptr, 0);
    }
    std::filesystem::remove_all(mFiles);
}

bool Process::isRunning() {
    int status = 0;
    if (!mEnded && waitpid(mId, &status, WNOHANG) == mId) {
        mEnded = true;
        mExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return !mEnded;
}

int Process::wait() {
    return eventually([this] { return !isRunning(); }) ? mExitCode : -SIGKILL;
}

void Process::signal(int number) const {
    kill(mId, number);
}

static std::string contentOf(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

std::string Process::output() const {
    return contentOf(mFiles + "/out");
}

std::string Process::errors() const {
    return contentOf(mFiles + "/err");
}
