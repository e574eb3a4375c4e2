#include "navora/games_page.h"

#include "core/log.h"
#include "core/window_stack.h"
#include "gfx/screen.h"
#include "gfx/text.h"
#include "menu/file_browser_menu.h"
#include "navora/folder_reading.h"
#include "navora/look.h"
#include "navora/message.h"
#include "navora/place.h"
#include "navora/thumbnails.h"
#include "navora/words.h"
#include "shell/skin.h"
#include "system/language.h"

#include <cerrno>
#include <dirent.h>
#include <filesystem>

namespace fs = std::filesystem;

namespace navora {

static std::unique_ptr<TextMenuDrawer> makeList(const std::string& folder, const std::string& start) {
    return std::make_unique<FileBrowserMenu>(folder.c_str(), start.empty() ? nullptr : start.c_str(),
                                             "skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
}

/// `start`, if it is a folder below `folder`; else "".
static std::string within(const std::string& folder, const std::string& start) {
    std::error_code failure;
    const bool below = start.size() > folder.size() && start.rfind(folder, 0) == 0 &&
                       (folder.back() == '/' || start[folder.size()] == '/') &&
                       fs::path(start).lexically_normal() == start;
    return below && fs::is_directory(start, failure) ? start : "";
}

GamesPage::GamesPage(Shell& shell, const std::string& folder, const std::string& start)
    : ListPage(shell, wordGames, makeList(folder, within(folder, start))), mFolder(folder) {
    stat(mFolder.c_str(), &mIdentity);
    list().setImageLoader(loadInBackground());
}

GamesPage* GamesPage::reopened(Shell& shell, const std::string& folder, const cJSON* state) {
    auto* const page = new GamesPage(shell, folder, textOf(state, "folder"));
    page->init();
    if (textOf(state, "folder") == static_cast<FileBrowserMenu&>(page->list()).getCurrentDir())
        restorePosition(page->list(), state);
    return page;
}

void GamesPage::init() {
    const FolderReading reading([this] { sayLoading(); });
    static_cast<FileBrowserMenu&>(list()).LoadDir();
}

void GamesPage::saveState(cJSON* state) {
    const char* const folder = static_cast<FileBrowserMenu&>(list()).getCurrentDir();
    cJSON_AddStringToObject(state, "page", "games");
    cJSON_AddStringToObject(state, "base", mFolder.c_str());
    cJSON_AddStringToObject(state, "folder", folder ? folder : "");
    savePosition(list(), state);
}

const char* GamesPage::getTitle() {
    const char* const folder = static_cast<FileBrowserMenu&>(list()).getCurrentDir();
    mTitle = folder ? fs::path(folder).filename().string() : "";
    return mTitle.empty() ? Page::getTitle() : mTitle.c_str();
}

/// Shown while the list is being read: nothing here may look at its rows.
void GamesPage::sayLoading() {
    mLoading = true;
    tprintf("loading %s\n", getTitle());
    draw();
    ScreenUpdateAndFlip();
    mLoading = false;
}

void GamesPage::drawContent() {
    constexpr int wordLoading = 3;
    constexpr SDL_Rect middle{0, headerHeight, screenWidth, footerTop - headerHeight};
    if (mLoading)
        DrawString(gListFontTxt, middle, getLangStr(wordLoading), gListColorTxt, 1, false, false);
    else
        ListPage::drawContent();
}

static bool canRead(const std::string& folder) {
    DIR* const opened = opendir(folder.c_str());
    if (!opened)
        return false;
    errno = 0;
    const bool readable = readdir(opened) || errno == 0;
    closedir(opened);
    return readable;
}

/// Looks at most once a second, since a card may be slow.
bool GamesPage::isGone() {
    constexpr Uint32 pause = 1000;
    const Uint32 now = SDL_GetTicks();
    if (mLastLook != 0 && now - mLastLook < pause)
        return false;
    mLastLook = now;
    struct stat found {};
    return stat(mFolder.c_str(), &found) != 0 || found.st_dev != mIdentity.st_dev ||
           found.st_ino != mIdentity.st_ino || !canRead(mFolder);
}

int GamesPage::handleInput() {
    if (isGone()) {
        add2PopupList(new Message(shell(), wordCardGone, mFolder));
        return loopClose;
    }
    const FolderReading reading([this] { sayLoading(); });
    return ListPage::handleInput();
}

int GamesPage::answer(int code) {
    return code == keyMenu ? loopClose : code;
}

} // namespace navora
