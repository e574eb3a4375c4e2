// From SDL_Init to the first frame, and from the start of a process to there. Both sides open the launcher's
// font nine times and the same eight pictures.
#include "bench/start_bare.h"
#include "bench/start_kestro.h"
#include "bench/support/comparison.h"
#include "bench/support/stage.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// Ends what the last start has left open, whichever it was.
static void endStarted() {
    bench::endBare();
    bench::endKestro();
}

static void require(bool started) {
    if (!started)
        bench::giveUp("no first frame");
}

static void compareInProcess() {
    bench::compare("SDL_Init to first frame", {"kestro", [] { require(bench::startKestro()); }, endStarted},
                   {"bare SDL calls", [] { require(bench::startBare()); }, endStarted}, 1.05);
    endStarted();
}

/// A program that is started again and again.
class Started {
public:
    explicit Started(std::string program) : mProgram(std::move(program)) {}
    ~Started() { end(); }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    /// Starts it, and waits for the byte that tells of its first frame.
    void run() {
        int ends[2];
        require(pipe2(ends, O_CLOEXEC) == 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
        posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
        char* const arguments[] = {mProgram.data(), nullptr};
        const int failure = posix_spawn(&mProcess, mProgram.c_str(), &actions, nullptr, arguments, environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        char byte = 0;
        require(failure == 0 && read(ends[0], &byte, 1) == 1);
        close(ends[0]);
    }

    void end() {
        if (mProcess > 0)
            waitpid(mProcess, nullptr, 0);
        mProcess = 0;
    }

private:
    std::string mProgram;
    pid_t mProcess = 0;
};

static void compareProcesses(const std::filesystem::path& folder) {
    Started ours(folder / "kestro-start-kestro"), bare(folder / "kestro-start-bare");
    bench::compare("process start to first frame", {"kestro", [&] { ours.run(); }, [&] { ours.end(); }, true},
                   {"bare SDL program", [&] { bare.run(); }, [&] { bare.end(); }, true}, 1.05);
}

int main(int, char** arguments) {
    const std::filesystem::path here = std::filesystem::canonical(arguments[0]).parent_path();
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    std::filesystem::current_path(bench::runFolder());
    compareInProcess();
    compareProcesses(here);
}
