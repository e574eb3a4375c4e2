// The cursor held down through 20,000 files with thumbnails, in the launcher's list of files and with its
// loader.
#include "bench/support/comparison.h"
#include "bench/support/stage.h"
#include "gfx/screen.h"
#include "hostkit/files.h"
#include "hostkit/menu_window.h"
#include "menu/file_browser_menu.h"
#include "navora/thumbnails.h"
#include "shell/skin.h"

#include <SDL_image.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

static constexpr int fileCount = 20'000;
static constexpr int keyDown = 6;

static const std::thread::id sMainThread = std::this_thread::get_id();
static std::atomic<int> sDecodedOnMainThread{0};
static std::atomic<int> sDecodedElsewhere{0};

/// In the place of SDL_image's own, as this program comes before it.
extern "C" SDL_Surface* IMG_LoadTyped_RW(SDL_RWops* file, int freeFile, const char* type) {
    static const auto real =
        reinterpret_cast<decltype(&IMG_LoadTyped_RW)>(dlsym(RTLD_NEXT, "IMG_LoadTyped_RW"));
    ++(std::this_thread::get_id() == sMainThread ? sDecodedOnMainThread : sDecodedElsewhere);
    return real(file, freeFile, type);
}

/// Pictures of 640 x 480 pixels that are neither plain nor noise.
static std::vector<fs::path> makePictures(const fs::path& folder, int count) {
    std::vector<fs::path> made;
    for (int number = 0; number < count; ++number) {
        SDL_Surface* const picture =
            SDL_CreateRGBSurfaceWithFormat(0, 640, 480, 32, SDL_PIXELFORMAT_ARGB8888);
        for (int y = 0; y < picture->h; ++y) {
            auto* const row =
                reinterpret_cast<Uint32*>(static_cast<char*>(picture->pixels) + y * picture->pitch);
            for (int x = 0; x < picture->w; ++x)
                row[x] = 0xFF000000U | static_cast<Uint32>((x * y / (number + 7) & 0xFF) << 16 |
                                                           (x & 0xFF) << 8 | ((y + number * 16) & 0xFF));
        }
        made.push_back(folder / ("picture" + std::to_string(number) + ".png"));
        if (IMG_SavePNG(picture, made.back().c_str()) != 0)
            bench::giveUp("cannot write " + made.back().string());
        SDL_FreeSurface(picture);
    }
    return made;
}

/// 20,000 files with names of two scripts, each with a picture beside it.
static fs::path makeFiles() {
    const fs::path top = bench::temporaryFolder();
    const fs::path games = top / "games";
    fs::create_directory(games);
    const std::vector<fs::path> pictures = makePictures(top, 16);
    for (int number = 0; number < fileCount; ++number) {
        char name[64];
        snprintf(name, sizeof name, number % 2 ? "Game %05d of the Long Road" : "%05d 超级小球大冒险",
                 number);
        std::ofstream(games / (std::string(name) + ".game"));
        fs::create_hard_link(pictures[static_cast<size_t>(number) % pictures.size()],
                             games / (std::string(name) + ".png"));
    }
    return games;
}

static std::unique_ptr<FileBrowserMenu> openList(const fs::path& folder) {
    auto list = std::make_unique<FileBrowserMenu>(folder.c_str(), nullptr, "skin/bg-list-f.png",
                                                  "skin/bg-list-n.png", 6, 0);
    list->setImageLoader(navora::loadInBackground());
    list->LoadDir();
    if (list->getListNum() < fileCount)
        bench::giveUp("the list has only " + std::to_string(list->getListNum()) + " rows");
    return list;
}

/// The processor time of this thread, which leaves out what else the machine does.
static double milliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// How often this thread has waited for something so far: for the other one, or for a file.
static long waits() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

/// A way down through the list, page after page.
struct Descent {
    int presses;
    int framesPerPress;
};

/// What the frames of a descent took.
struct Frames {
    std::vector<double> milliseconds;
    long waits = 0;
};

static Frames descend(hostkit::MenuWindow& window, const Descent& descent) {
    ListMenu& list = window.list();
    const auto frame = [&] {
        window.draw();
        ScreenUpdateAndFlip();
    };
    list.setCursor(0);
    for (int i = 0; i < 12; ++i) // until it goes by pages
        list.handleEvent(keyDown);
    frame();
    const int decodes = sDecodedOnMainThread;
    Frames frames;
    const long waitsBefore = waits();
    for (int i = 0; i < descent.presses * descent.framesPerPress; ++i) {
        const double begin = milliseconds();
        if (i % descent.framesPerPress == 0)
            list.handleEvent(keyDown);
        frame();
        frames.milliseconds.push_back(milliseconds() - begin);
    }
    frames.waits = waits() - waitsBefore;
    if (sDecodedOnMainThread != decodes)
        bench::giveUp("a picture was decoded on the main thread");
    return frames;
}

static double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Frame by frame the median of all passes: what the machine did to a single frame of one pass does not
/// count, what belongs to the frame does.
static std::vector<double> mediansOf(const std::vector<Frames>& passes) {
    std::vector<double> medians;
    for (size_t frame = 0; frame < passes.front().milliseconds.size(); ++frame) {
        std::vector<double> times;
        for (const Frames& pass : passes)
            times.push_back(pass.milliseconds[frame]);
        medians.push_back(median(times));
    }
    return medians;
}

static int passCount() {
    const char* const rounds = getenv("KESTRO_BENCH_ROUNDS");
    return rounds ? std::max(atoi(rounds), 1) : 15;
}

static void reportDescent(const std::string& operation, hostkit::MenuWindow& window, const Descent& descent) {
    std::vector<Frames> passes;
    for (int pass = 0; pass < passCount(); ++pass)
        passes.push_back(descend(window, descent));
    const std::vector<double> frames = mediansOf(passes);
    const double worst = *std::max_element(frames.begin(), frames.end());
    bench::report(operation + ", the worst frame", "the median frame", worst / median(frames), 1.5,
                  worst * 1e6);
    long waited = 0;
    for (const Frames& pass : passes)
        waited += pass.waits;
    bench::report(operation + ", waits for pictures", "frames",
                  static_cast<double>(waited) / static_cast<double>(frames.size() * passes.size()), 0.01);
}

int main() {
    const bench::Stage stage(bench::runFolder());
    hostkit::setFileExtensions({"game"});
    hostkit::MenuWindow window("Games", openList(makeFiles()));
    const int presses = passCount() > 1 ? (fileCount - 12) / 6 : 100; // one pass is only to see that it works
    reportDescent("cursor held down through 20,000 rows", window, {presses, 1});
    // Frames go on between the presses of a key that repeats, and pictures arrive in them.
    reportDescent("cursor held down, six frames a press", window, {std::min(presses, 300), 6});
    if (sDecodedElsewhere == 0)
        bench::giveUp("no thumbnail was decoded at all");
}
