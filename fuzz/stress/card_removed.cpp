// A card that is pulled out while it is being read. Usage: kestro-card-removed TIMES [SEED]. It needs root,
// and has mounts of its own that nobody else sees. The card is a disk image with an ext4 file system. In turn
// its place becomes empty at once while files stay open, every further read of it fails as of a card that is
// gone, and another card takes its place; at any moment while its folders are read, or while thumbnails are
// made of its pictures. Prints a table; fails if afterwards something is still shown of it, a thumbnail stays
// asked for, a file stays open, or anything takes longer than a minute.
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"
#include "menu/dir_browser.h"
#include "navora/game_index.h"
#include "navora/thumbnails.h"

#include <SDL_image.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

namespace {

constexpr int folders = 20;
constexpr int filesInFolder = 100;
constexpr int pictures = 6;

std::mt19937 sRandom;
int sWrong = 0;

void expect(bool holds, const char* what) {
    if (holds)
        return;
    ++sWrong;
    fprintf(stderr, "%s\n", what);
}

[[noreturn]] void giveUp(const char* what) {
    perror(what);
    exit(2);
}

void run(const std::string& command) {
    if (system(command.c_str()) != 0)
        giveUp(command.c_str());
}

enum class Removal { detached, failing, replaced };

class Card {
public:
    Card() : mPlace(fuzz::device() + "/mnt/SDCARD"), mImage(fuzz::device() + "/card") {
        const std::string content = fuzz::device() + "/content";
        for (int i = 0; i < folders; ++i) {
            const std::string folder = content + "/Folder " + std::to_string(i);
            fs::create_directories(folder);
            for (int file = 0; file < filesInFolder; ++file)
                std::ofstream(folder + "/Game " + std::to_string(file) + ".rom") << file;
        }
        for (int i = 0; i < pictures; ++i)
            savePicture(content + "/" + std::to_string(i) + ".png");
        run("truncate -s 32M " + mImage + " && mkfs.ext4 -q -d " + content + " " + mImage);
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            giveUp("mounts of its own");
    }

    const std::string& place() const { return mPlace; }

    void plugIn() {
        run("mount -o loop,ro " + mImage + " " + mPlace);
        mPluggedIn = true;
    }

    void pullOut(Removal removal) {
        constexpr unsigned long shutDown = _IOR('X', 125, uint32_t); // every further read fails
        uint32_t atOnce = 2;
        const int descriptor = open(mPlace.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor < 0 || (removal != Removal::detached && ioctl(descriptor, shutDown, &atOnce) != 0))
            giveUp("pull out");
        close(descriptor);
        if (umount2(mPlace.c_str(), MNT_DETACH) != 0)
            giveUp("unmount");
        if (removal == Removal::replaced && mount("none", mPlace.c_str(), "tmpfs", 0, nullptr) != 0)
            giveUp("another card");
        mPluggedIn = false;
    }

    void clear(Removal removal) {
        if (removal == Removal::replaced)
            umount2(mPlace.c_str(), MNT_DETACH);
    }

private:
    std::string mPlace;
    std::string mImage;
    bool mPluggedIn = false;

    static void savePicture(const std::string& path) {
        SDL_Surface* const picture =
            SDL_CreateRGBSurfaceWithFormat(0, 300, 200, 32, SDL_PIXELFORMAT_ARGB8888);
        auto* const pixels = static_cast<Uint32*>(picture->pixels);
        for (int i = 0; i < picture->w * picture->h; ++i)
            pixels[i] = static_cast<Uint32>(sRandom());
        if (IMG_SavePNG(picture, path.c_str()) != 0)
            giveUp(path.c_str());
        SDL_FreeSurface(picture);
    }
};

TextMenuItem* makeRow(const char* name, const char*, int) {
    return new TextMenuItem(name, nullptr, nullptr, false);
}

/// Reads the card in all the ways there are. Returns what was found, of all ways together.
int scan(const std::string& card) {
    DirBrowser browser(nullptr, makeRow);
    int found = static_cast<int>(browser.LoadDir(card.c_str(), nullptr)->size());
    for (int i = 0; i < folders; ++i) {
        found += static_cast<int>(browser.ChildDir((card + "/Folder " + std::to_string(i)).c_str())->size());
        browser.ParentDir();
    }
    found += CountNumber(card, nullptr);
    navora::GameIndex index(card);
    while (!index.isComplete())
        index.gather();
    return found + static_cast<int>(index.search("").size());
}

/// Waits for all thumbnails. Returns how many there are.
int makeThumbnails(const std::string& card) {
    const ImageLoader load = navora::loadInBackground();
    int made = 0;
    for (int i = 0; i < pictures; ++i) {
        const std::string path = card + "/" + std::to_string(i) + ".png";
        KestroSurface* surface = nullptr;
        while (!(surface = load(path, 60, 40)))
            SDL_Delay(1);
        made += surface->getWidth() > 0;
        delete surface;
    }
    return made;
}

long openFiles() {
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

/// What a round sees that nobody disturbs, and how long it takes.
struct Whole {
    int found;
    microseconds duration;
};

Whole undisturbed(Card& card, const std::function<int(const std::string&)>& read) {
    card.plugIn();
    const auto begin = Clock::now();
    const int found = read(card.place());
    const auto duration = std::chrono::duration_cast<microseconds>(Clock::now() - begin);
    card.pullOut(Removal::detached);
    return {found, duration};
}

/// Returns whether the card went before all of it was read.
bool disturbed(Card& card, const std::function<int(const std::string&)>& read, const Whole& whole,
               Removal removal) {
    alarm(60);
    card.plugIn();
    const microseconds moment(sRandom() % static_cast<unsigned>(whole.duration.count() + 1));
    std::thread hand([&] {
        std::this_thread::sleep_for(moment);
        card.pullOut(removal);
    });
    const int found = read(card.place());
    hand.join();
    expect(found <= whole.found, "more than there is");
    DirBrowser browser(nullptr, makeRow);
    expect(browser.LoadDir(card.place().c_str(), nullptr)->empty(), "rows of a card that is gone");
    expect(CountNumber(card.place(), nullptr) == 0, "files of a card that is gone");
    expect(makeThumbnails(card.place()) == 0, "thumbnails of a card that is gone");
    card.clear(removal);
    alarm(0);
    return found < whole.found;
}

} // namespace

int main(int count, char** arguments) {
    const int times = count > 1 ? atoi(arguments[1]) : 0;
    if (times < 1)
        return 2;
    sRandom.seed(count > 2 ? static_cast<unsigned>(atoi(arguments[2])) : 1);
    FILE* const report = fdopen(dup(STDOUT_FILENO), "w");
    fuzz::openScreen();
    Card card;
    const std::pair<const char*, int (*)(const std::string&)> ways[] = {{"a scan", scan},
                                                                        {"thumbnails", makeThumbnails}};
    Whole wholes[] = {undisturbed(card, scan), undisturbed(card, makeThumbnails)};
    expect(wholes[0].found > folders * filesInFolder * 2 && wholes[1].found == pictures,
           "the card is not read");
    const long filesBefore = openFiles();
    int tried[2][3] = {};
    int amid[2][3] = {};
    for (int i = 0; i < times; ++i) {
        const int way = i % 2;
        const int removal = i / 2 % 3;
        ++tried[way][removal];
        amid[way][removal] += disturbed(card, ways[way].second, wholes[way], static_cast<Removal>(removal));
    }
    expect(openFiles() == filesBefore, "files stay open");
    const char* const removals[] = {"its place is empty", "reads of it fail", "another is there"};
    for (int way = 0; way < 2; ++way)
        for (int removal = 0; removal < 3; ++removal)
            fprintf(report, "| %s | %s | %d | %d |\n", ways[way].first, removals[removal],
                    tried[way][removal], amid[way][removal]);
    fclose(report);
    return sWrong > 0;
}
