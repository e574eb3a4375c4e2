#include "fuzz/faults/memory_areas.h"
#include "fuzz/faults/skin_files.h"
#include "kestro.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace fs = std::filesystem;

namespace {

constexpr size_t rowsOfFolder = 60;
std::unique_ptr<FileBrowserMenu> sFileMenu;
std::unique_ptr<DirBrowser> sBrowser;

void prepareFolder() {
    fuzz::prepareSkinFiles();
    init_shared_skin();
    if (!fs::exists("games/folder")) {
        fs::create_directories("games/folder");
        for (size_t i = 1; i < rowsOfFolder; ++i)
            std::ofstream("games/game " + std::to_string(i));
        std::ofstream("games/folder/one");
    }
    sFileMenu =
        std::make_unique<FileBrowserMenu>("games", nullptr, "skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    sBrowser = std::make_unique<DirBrowser>(file_filter, file_handler);
}

void press(SDL_Keycode key) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void useFolder() {
    sFileMenu->LoadDir();
    sFileMenu->draw();
    press(SDLK_DOWN);
    sFileMenu->eventHandling();
    sFileMenu->draw();
    sFileMenu->setKeyword("ga");
    sFileMenu->draw();
    sBrowser->LoadDir("games", nullptr);
    sBrowser->ChildDir("games/folder");
    sBrowser->ParentDir();
    sBrowser->LoadDir("games", "games/folder");
    sBrowser->getMenu("games");
    sBrowser->clearSpace();
    sBrowser->getItemNum();
}

bool folderIsThere() {
    const std::vector<void*>* const rows = sFileMenu->LoadDir();
    const bool complete = rows && rows->size() == rowsOfFolder && sFileMenu->getListNum() == rowsOfFolder;
    const std::vector<void*>* const above = sBrowser->LoadDir("games", nullptr);
    const bool hasAbove = above && above->size() == rowsOfFolder;
    const std::vector<void*>* const below = sBrowser->ChildDir("games/folder");
    return complete && hasAbove && below && below->size() == 2; // with the way up
}

} // namespace

fuzz::MemoryArea fuzz::folderArea() {
    return {"folder", prepareFolder, useFolder, folderIsThere, false};
}
