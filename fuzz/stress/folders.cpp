// Folders as a card may bring them. Usage: kestro-folders tree | fat FOLDER. "tree" makes them where
// temporary files are kept: many files, folders in each other, links in circles, names that are no text; it
// reads them as the lists, the counter and the launcher's search do, and shows them. "fat" does with names
// that differ only in case what can be done in FOLDER, on a file system for which they are the same. Prints a
// table; fails if something is not as it should be, or takes longer than a minute.
#include "core/host.h"
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"
#include "gfx/text.h"
#include "menu/dir_browser.h"
#include "menu/file_browser_menu.h"
#include "navora/game_index.h"
#include "shell/skin.h"
#include "system/settings_journal.h"
#include "system/system_state.h"

#include <SDL.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

FILE* sReport = stdout;
int sWrong = 0;

void expectEqual(const char* what, int got, int wanted) {
    if (got == wanted)
        return;
    ++sWrong;
    fprintf(stderr, "%s: %d instead of %d\n", what, got, wanted);
}

TextMenuItem* makeRow(const char* name, const char*, int) {
    return new TextMenuItem(name, nullptr, nullptr, false);
}

/// Ends the program if `act` takes longer than a minute; prints how long it took.
void timed(const char* what, const std::function<int()>& act) {
    alarm(60);
    const Uint64 begin = SDL_GetTicks64();
    const int rows = act();
    fprintf(sReport, "| %s | %d | %d |\n", what, rows, static_cast<int>(SDL_GetTicks64() - begin));
    fflush(sReport);
    alarm(0);
}

int rowsOf(const std::string& folder) {
    DirBrowser browser(nullptr, makeRow);
    return static_cast<int>(browser.LoadDir(folder.c_str(), nullptr)->size());
}

int found(const std::string& folder) {
    navora::GameIndex index(folder);
    while (!index.isComplete())
        index.gather();
    return static_cast<int>(index.search("").size());
}

/// Draws every row as a list does, on two pages.
int shown(const std::string& folder) {
    FileBrowserMenu menu(folder.c_str(), nullptr, "", "", 10, 2);
    const int rows = static_cast<int>(menu.LoadDir()->size());
    init_shared_skin();
    menu.draw();
    for (int i = 0; i < rows; ++i)
        DrawString(gListFontTxt, {0, 0, 60, 30}, menu.getItemByIndex(i)->getLabel().c_str(), {9, 9, 9, 255},
                   3, true, false);
    uninit_shared_skin();
    return rows;
}

void makeFile(int folder, const char* name) {
    const int file = openat(folder, name, O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    if (file < 0)
        abort();
    close(file);
}

void tryManyFiles(const std::string& folder) {
    constexpr int files = 100'000;
    constexpr int mostRows = 20'000;
    fs::create_directory(folder);
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int i = 0; i < files; ++i)
        makeFile(descriptor, ("Game " + std::to_string(i * 7919 % files) + ".rom").c_str());
    close(descriptor);
    timed("100,000 files: list", [&] { return rowsOf(folder); });
    timed("100,000 files: counter", [&] { return CountNumber(folder, nullptr); });
    timed("100,000 files: search", [&] { return found(folder); });
    expectEqual("rows", rowsOf(folder), mostRows);
    expectEqual("files", CountNumber(folder, nullptr), files);
    expectEqual("found", found(folder), files);
}

/// Makes 500 folders in each other and a file in the last, by steps: the whole path may be too long to be
/// named.
void makeDeep(const std::string& folder, const std::string& name) {
    fs::create_directory(folder);
    const int before = open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (chdir(folder.c_str()) != 0)
        abort();
    for (int i = 0; i < 500; ++i)
        if (mkdir(name.c_str(), 0700) != 0 || chdir(name.c_str()) != 0)
            abort();
    makeFile(AT_FDCWD, "last.rom");
    if (fchdir(before) != 0)
        abort();
    close(before);
}

/// How many levels a browser gets down, and back up.
int levels(const std::string& folder, const std::string& name) {
    DirBrowser browser(nullptr, makeRow);
    browser.LoadDir(folder.c_str(), nullptr);
    int down = 0;
    std::string path = folder;
    while (down < 600) {
        path += "/" + name;
        const std::vector<void*>* const rows = browser.ChildDir(path.c_str());
        if (rows->empty())
            break;
        ++down;
    }
    browser.ParentDir(); // from the empty one
    for (int up = 0; up < down; ++up)
        browser.ParentDir();
    expectEqual("way up", browser.isBaseDir(), 1);
    return down;
}

void tryDeepFolders(const std::string& folder) {
    makeDeep(folder, "d");
    timed("500 levels: down and up", [&] { return levels(folder, "d"); });
    timed("500 levels: counter", [&] { return CountNumber(folder, nullptr); });
    timed("500 levels: search", [&] { return found(folder); });
    expectEqual("levels", levels(folder, "d"), 500);
    expectEqual("files", CountNumber(folder, nullptr), 501); // with one for each folder that holds any
    expectEqual("found", found(folder), 0);                  // beyond what a search goes down

    const std::string beyond = folder + "-beyond";
    const std::string name(40, 'n');
    makeDeep(beyond, name); // 20,500 bytes, of which a path may have 4,095
    timed("paths too long: down and up", [&] { return levels(beyond, name); });
    timed("paths too long: counter", [&] { return CountNumber(beyond, nullptr); });
    timed("paths too long: search", [&] { return found(beyond); });
    expectEqual("files", CountNumber(beyond, nullptr), 0);
}

void tryCircles(const std::string& folder) {
    fs::create_directories(folder + "/a/b");
    makeFile(AT_FDCWD, (folder + "/a/b/game.rom").c_str());
    fs::create_directory_symlink("..", folder + "/a/b/up");
    fs::create_directory_symlink(folder, folder + "/a/top");
    fs::create_symlink("itself", folder + "/itself");
    fs::create_symlink("two", folder + "/one");
    fs::create_symlink("one", folder + "/two");
    timed("circles: list", [&] { return rowsOf(folder); });
    timed("circles: counter", [&] { return CountNumber(folder, nullptr); });
    timed("circles: search", [&] { return found(folder); });
    timed("circles: down", [&] { return levels(folder, "a/top"); });
    expectEqual("rows", rowsOf(folder), 1);
    expectEqual("files", CountNumber(folder, nullptr), 3);
    expectEqual("found", found(folder), 1);
}

void tryBadNames(const std::string& folder) {
    constexpr int files = 300;
    fs::create_directory(folder);
    std::set<std::string> names;
    for (int i = 0; i < files; ++i) {
        std::string name(255, '\0');
        for (size_t at = 0; at < name.size(); ++at)
            name[at] = static_cast<char>(0x80 + (at * static_cast<size_t>(i + 1) + at / 7) % 128);
        names.insert(name);
        makeFile(AT_FDCWD, (folder + "/" + name).c_str());
    }
    const int count = static_cast<int>(names.size());
    for (const char* name : {"%s%n%s%n", "$(reboot)", "a\nb\tc\033[31m", "'; reboot; '", "-rf"})
        makeFile(AT_FDCWD, (folder + "/" + name).c_str());
    timed("bad names: list, drawn", [&] { return shown(folder); });
    timed("bad names: counter", [&] { return CountNumber(folder, nullptr); });
    timed("bad names: search", [&] { return found(folder); });
    expectEqual("rows", shown(folder), count + 5);
    expectEqual("files", CountNumber(folder, nullptr), count + 5);
    expectEqual("found", found(folder), count + 5);
}

void tryTrees() {
    const std::string root = fuzz::device() + "/trees";
    fs::create_directory(root);
    tryManyFiles(root + "/many");
    tryDeepFolders(root + "/deep");
    tryCircles(root + "/circles");
    tryBadNames(root + "/names");
}

/// Small and capital letters are the same here.
void tryFat(const std::string& folder) {
    fs::create_directories(folder + "/mnt/UDISK");
    fs::create_directories(folder + "/Games/Sub Folder");
    makeFile(AT_FDCWD, (folder + "/Games/Game.rom").c_str());
    makeFile(AT_FDCWD, (folder + "/games/GAME.ROM").c_str()); // the same
    makeFile(AT_FDCWD, (folder + "/GAMES/sub folder/\xC3\x89t\xC3\xA9.rom").c_str());
    timed("FAT: list", [&] { return rowsOf(folder + "/gAMES"); });
    timed("FAT: counter", [&] { return CountNumber(folder + "/GAMES", nullptr); });
    timed("FAT: search", [&] { return found(folder + "/games"); });
    expectEqual("rows", rowsOf(folder + "/gAMES"), 2);
    expectEqual("files", CountNumber(folder + "/GAMES", nullptr), 3);
    expectEqual("found", found(folder + "/games"), 2);

    DirBrowser browser(nullptr, makeRow);
    const std::string base = folder + "/Games";
    expectEqual(
        "start in other letters: the base's rows",
        static_cast<int>(browser.LoadDir(base.c_str(), (folder + "/GAMES/SUB FOLDER").c_str())->size()), 2);
    expectEqual("child in other letters",
                static_cast<int>(browser.ChildDir((base + "/SUB FOLDER").c_str())->size()),
                2); // with the way up

    // The settings are found, saved and mended under a name in other letters.
    setenv("KESTRO_DEVICE_ROOT", folder.c_str(), 1);
    setSettingsJournal(true);
    SetKeyShm(gShmInfo, 0, 5);
    saveSystemState(gShmInfo, nullptr);
    fs::rename(folder + "/mnt/UDISK/system.json", folder + "/mnt/UDISK/SYSTEM.JSON.NEW");
    SetKeyShm(gShmInfo, 0, -1);
    loadSystemState(gShmInfo, nullptr);
    expectEqual("settings from the copy", GetKeyShm(gShmInfo, 0), 5);
    saveSystemState(gShmInfo, nullptr);
    expectEqual("one file of settings", rowsOf(folder + "/mnt/udisk"), 1);
    // So that all this was tried where it means something.
    expectEqual("no such name", open((folder + "/a:b?.rom").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600),
                -1);
}

} // namespace

int main(int count, char** arguments) {
    const std::string what = count > 1 ? arguments[1] : "";
    if (what != "tree" && (what != "fat" || count < 3))
        return 2;
    sReport = fdopen(dup(STDOUT_FILENO), "w");
    fuzz::openScreen();
    if (symlink(FUZZ_FONT, "regular.ttf") != 0)
        return 2;
    if (what == "tree")
        tryTrees();
    else
        tryFat(arguments[2]);
    fclose(sReport);
    return sWrong > 0;
}
