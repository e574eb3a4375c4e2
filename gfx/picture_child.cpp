#include "gfx/picture_child.h"

#include <SDL_image.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr rlim_t mostMemory = rlim_t{512} << 20;

/// What goes before a picture's colours and rows.
struct PictureHeader {
    uint32_t format;
    int32_t width;
    int32_t height;
    int32_t colours; // of its palette
    uint32_t colourKey;
    int32_t hasColourKey;
};

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, FreeSurface>;

size_t rowBytes(const SDL_Surface* surface) {
    return static_cast<size_t>(surface->w) * surface->format->BytesPerPixel;
}

// In the child.

void limitResources() {
    unsigned long pages = 0;
    if (FILE* const file = fopen("/proc/self/statm", "re")) {
        if (fscanf(file, "%lu", &pages) != 1)
            pages = 0;
        fclose(file);
    }
    const rlim_t memory = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + mostMemory;
    const rlimit addressSpace{memory, memory};
    const rlimit none{0, 0};
    setrlimit(RLIMIT_AS, &addressSpace);
    setrlimit(RLIMIT_CORE, &none);
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGABRT, SIGILL})
        signal(fault, SIG_DFL); // a handler of the host's would take it for a crash of the host
}

bool writeAll(int pipe, const void* data, size_t size) {
    const auto* next = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = write(pipe, next, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        next += written;
        size -= static_cast<size_t>(written);
    }
    return true;
}

bool writePicture(int pipe, SDL_Surface* picture) {
    const SDL_Palette* const palette = picture->format->palette;
    PictureHeader header{picture->format->format,        picture->w, picture->h,
                         palette ? palette->ncolors : 0, 0,          0};
    header.hasColourKey = SDL_GetColorKey(picture, &header.colourKey) == 0;
    if (!writeAll(pipe, &header, sizeof header) ||
        (palette &&
         !writeAll(pipe, palette->colors, static_cast<size_t>(palette->ncolors) * sizeof(SDL_Color))))
        return false;
    const auto* const pixels = static_cast<const char*>(picture->pixels);
    for (int y = 0; y < picture->h; ++y)
        if (!writeAll(pipe, pixels + static_cast<ptrdiff_t>(y) * picture->pitch, rowBytes(picture)))
            return false;
    return true;
}

// SDL's own locks stay locked here if another thread of the process held one when it was copied: then this
// waits for ever, and says nothing.
bool greet(int pipe) {
    SDL_FreeFormat(SDL_AllocFormat(SDL_PIXELFORMAT_RGB24));
    SDL_ClearError();
    return writeAll(pipe, "", 1);
}

[[noreturn]] void runChild(SDL_RWops* file, const char* type, int pipe) {
    limitResources();
    if (!greet(pipe))
        _exit(1);
    SDL_Surface* const picture = IMG_LoadTyped_RW(file, 0, type);
    _exit(picture && writePicture(pipe, picture) ? 0 : 1);
}

// In the parent, which believes nothing that comes out of the pipe.

class Child {
public:
    /// Waits until the child can decode; ends one that cannot, and takes another.
    Child(SDL_RWops* file, const char* type, int patience) {
        constexpr int attempts = 4;
        for (int i = 0; i < attempts; ++i) {
            mPatience = patience / attempts;
            start(file, type);
            char greeting = 0;
            if (read(&greeting, 1))
                break;
            end();
        }
        mPatience = patience;
    }
    ~Child() { end(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// False at the end, at an error and when the time is up.
    bool read(void* data, size_t size) {
        auto* next = static_cast<char*>(data);
        while (size > 0 && hasMore()) {
            const ssize_t count = ::read(mPipe, next, size);
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return false;
            next += count;
            size -= static_cast<size_t>(count);
        }
        return size == 0;
    }

private:
    pid_t mPid = -1;
    int mPipe = -1;
    int mPatience = 0; // milliseconds left to wait

    void start(SDL_RWops* file, const char* type) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return;
        mPid = fork();
        if (mPid == 0)
            runChild(file, type, ends[1]);
        close(ends[1]);
        mPipe = ends[0];
    }

    void end() {
        if (mPipe >= 0)
            close(mPipe);
        mPipe = -1;
        if (mPid <= 0)
            return;
        kill(mPid, SIGKILL);
        while (waitpid(mPid, nullptr, 0) < 0 && errno == EINTR) {
        }
        mPid = -1;
    }

    /// Waits for more. Poll's own time counts, not a clock's, which somebody may set.
    bool hasMore() {
        constexpr int step = 50;
        pollfd waiting{mPipe, POLLIN, 0};
        while (mPipe >= 0 && mPatience > 0) {
            const int ready = poll(&waiting, 1, step);
            if (ready > 0)
                return true;
            if (ready < 0 && errno != EINTR)
                return false;
            mPatience -= step;
        }
        return false;
    }
};

bool readPalette(Child& child, const PictureHeader& header, SDL_Surface* picture) {
    SDL_Color colours[256];
    if (header.colours == 0)
        return true;
    return header.colours > 0 && header.colours <= 256 && picture->format->palette &&
           child.read(colours, static_cast<size_t>(header.colours) * sizeof *colours) &&
           SDL_SetPaletteColors(picture->format->palette, colours, 0, header.colours) == 0;
}

bool readRows(Child& child, SDL_Surface* picture) {
    auto* const pixels = static_cast<char*>(picture->pixels);
    for (int y = 0; y < picture->h; ++y)
        if (!child.read(pixels + static_cast<ptrdiff_t>(y) * picture->pitch, rowBytes(picture)))
            return false;
    return true;
}

} // namespace

namespace kestro {

SDL_Surface* decodeInChild(SDL_RWops* file, const char* type, const std::function<bool(PictureSize)>& refuses,
                           int patience) {
    Child child(file, type, patience);
    PictureHeader header;
    if (!child.read(&header, sizeof header) || header.width < 0 || header.height < 0 ||
        refuses({static_cast<uint32_t>(header.width), static_cast<uint32_t>(header.height)}))
        return nullptr;
    const int depth = static_cast<int>(SDL_BITSPERPIXEL(header.format));
    SurfacePtr picture(SDL_CreateRGBSurfaceWithFormat(0, header.width, header.height, depth, header.format));
    if (!picture || !readPalette(child, header, picture.get()) || !readRows(child, picture.get()))
        return nullptr;
    if (header.hasColourKey)
        SDL_SetColorKey(picture.get(), SDL_TRUE, header.colourKey);
    return picture.release();
}

} // namespace kestro
