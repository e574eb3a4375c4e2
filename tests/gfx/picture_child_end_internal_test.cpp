#include "gfx/picture_child.h"

#include "support/kestro_test.h"
#include "support/surfaces.h"

#include <SDL.h>

#include <csignal>
#include <cstring>
#include <functional>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

using kestro::PictureSize;

// How a process that decodes a picture ends when it or the one that waits for it is disturbed.

namespace {

/// While it lives, whoever is to be killed comes to its own end first.
class WaitingKill {
public:
    WaitingKill() { sWaits = true; }
    ~WaitingKill() { sWaits = false; }
    WaitingKill(const WaitingKill&) = delete;
    WaitingKill& operator=(const WaitingKill&) = delete;

    /// The exit code of the last one, -1 for one that a signal has ended.
    static int code() { return sCode; }

    static void beforeKill(pid_t process) {
        siginfo_t end{};
        if (sWaits && waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOWAIT) == 0)
            sCode = end.si_code == CLD_EXITED ? end.si_status : -1;
    }

private:
    static inline bool sWaits = false;
    static inline int sCode = -1;
};

void closePipes() {
    for (int handle = 3; handle < 100; ++handle)
        if (struct stat status{}; fstat(handle, &status) == 0 && S_ISFIFO(status.st_mode))
            close(handle);
}

/// The decoding process, in memory that it shares.
pid_t* const sDecoder = static_cast<pid_t*>(
    mmap(nullptr, sizeof(pid_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

int sendSignal(pid_t process, int signal) {
    return static_cast<int>(syscall(SYS_kill, process, signal));
}

/// A BMP file with more than a pipe holds, so that its decoder waits for its reader.
std::string largePicture() {
    constexpr int side = 300;
    const MemorySurface noise(SDL_CreateRGBSurfaceWithFormat(0, side, side, 32, SDL_PIXELFORMAT_ARGB8888));
    for (int i = 0; i < side * side; ++i)
        static_cast<Uint32*>(noise->pixels)[i] = static_cast<Uint32>(i) * 2654435761u;
    std::string content(side * side * 4 + 200, '\0'); // with room for the header
    SDL_SaveBMP_RW(noise.get(), SDL_RWFromMem(content.data(), static_cast<int>(content.size())), 1);
    return content;
}

bool refusesNothing(PictureSize) {
    return false;
}

constexpr const char* smallPicture =
    "/* XPM */\nstatic char *a[] = {\n\"2 1 1 1\",\n\"x c #102030\",\n\"xx\"};\n";

/// The picture with this content, whose decoder does something before it reads.
MemorySurface decodedAfter(void (*action)(), const std::string& content,
                           const std::function<bool(PictureSize)>& refuses) {
    static void (*before)() = nullptr;
    static decltype(SDL_RWops::read) read = nullptr;
    before = action;
    SDL_RWops* const file = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
    read = file->read;
    file->read = [](SDL_RWops* self, void* data, size_t size, size_t count) {
        if (before)
            before();
        before = nullptr;
        return read(self, data, size, count);
    };
    MemorySurface picture(kestro::decodeInChild(file, nullptr, refuses));
    SDL_RWclose(file);
    return picture;
}

class PictureChildEndTest : public KestroTest {};

} // namespace

/// Takes the system call's place in this program.
extern "C" int kill(pid_t process, int signal) noexcept {
    WaitingKill::beforeKill(process);
    return sendSignal(process, signal);
}

TEST_F(PictureChildEndTest, ADecoderThatCannotAnswerGivesNoPicture) {
    const WaitingKill end;
    EXPECT_FALSE(decodedAfter(closePipes, smallPicture, refusesNothing));
    EXPECT_EQ(end.code(), 1);
    EXPECT_TRUE(decodedAfter(nullptr, smallPicture, refusesNothing));
    EXPECT_EQ(end.code(), 0);
}

TEST_F(PictureChildEndTest, ADecoderThatCannotGoOnAnsweringGivesNoPicture) {
    const WaitingKill end;
    const auto remember = [] {
        *sDecoder = getpid();
        signal(SIGUSR1, [](int) { closePipes(); });
    };
    EXPECT_FALSE(decodedAfter(remember, largePicture(), [](PictureSize) {
        sendSignal(*sDecoder, SIGUSR1);
        return false;
    }));
    EXPECT_EQ(end.code(), 1);
}

TEST_F(PictureChildEndTest, WithoutAFileHandleLeftThereIsNoPicture) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{3, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const MemorySurface picture = decodedAfter(nullptr, smallPicture, refusesNothing);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(picture);
}

TEST_F(PictureChildEndTest, SignalsThatInterruptTheDecoderChangeNothing) {
    const WaitingKill end;
    const std::string large = largePicture();
    const auto ring = [] {
        struct sigaction interruption {};
        interruption.sa_handler = [](int) {}; // without SA_RESTART
        sigaction(SIGALRM, &interruption, nullptr);
        const itimerval often{{0, 1000}, {0, 1000}};
        setitimer(ITIMER_REAL, &often, nullptr);
    };
    const MemorySurface picture = decodedAfter(ring, large, [](PictureSize) {
        usleep(20'000); // meanwhile the decoder cannot write on
        return false;
    });
    const MemorySurface wanted(
        SDL_LoadBMP_RW(SDL_RWFromConstMem(large.data(), static_cast<int>(large.size())), 1));
    ASSERT_TRUE(picture && wanted);
    ASSERT_EQ(picture->pitch, wanted->pitch);
    EXPECT_EQ(memcmp(picture->pixels, wanted->pixels, static_cast<size_t>(wanted->h * wanted->pitch)), 0);
    EXPECT_EQ(end.code(), 0);
}
