#include "menu/file_browser_menu.h"

#include "core/host.h"
#include "core/input.h"
#include "core/log.h"

#include <algorithm>
#include <string_view>

static constexpr int leaveMenu = 1002;
static constexpr int dirChanged = 26;
static constexpr int rowsAtFirst = 6;
static constexpr int confirmWithB = 19; // index in the host's table

FileBrowserMenu::FileBrowserMenu(const char* baseDir, const char* startDir, const char* selectedBackground,
                                 const char* normalBackground, int rowsPerPage, int rowGap)
    : TextMenuDrawer(selectedBackground, normalBackground, rowsPerPage, rowGap),
      mBaseDir(baseDir ? baseDir : ""), mStartDir(startDir ? startDir : ""),
      mBrowser(file_filter, file_handler), mItems(nullptr) {}

FileBrowserMenu::~FileBrowserMenu() = default;

std::vector<void*>* FileBrowserMenu::LoadDir() {
    mItems = mBrowser.LoadDir(mBaseDir.c_str(), mStartDir.empty() ? nullptr : mStartDir.c_str());
    return mItems;
}

const char* FileBrowserMenu::getCurrentDir() {
    return mBrowser.getCurrentDir();
}

TextMenuItemProvider* FileBrowserMenu::getItemByIndex(int index) {
    if (index < 0 || index >= FileBrowserMenu::getListNum())
        return nullptr;
    return static_cast<TextMenuItem*>((*mItems)[static_cast<size_t>(index)]);
}

int FileBrowserMenu::getListNum() {
    return mItems ? static_cast<int>(mItems->size()) : 0;
}

int FileBrowserMenu::draw() {
    return TextMenuDrawer::draw();
}

int FileBrowserMenu::eventHandling() {
    SDL_Event event{};
    const int result = handleEvent(wait_event(&event));
    if (result == 1 || result == 2) {
        const int back = GetKeyShm(gShmInfo, confirmWithB) == 0 ? 2 : 1;
        return result == back ? goUp() : dirChanged;
    }
    return result == dirChanged ? changeDir(event) : result;
}

int FileBrowserMenu::goUp() {
    if (mBrowser.isBaseDir())
        return leaveMenu;
    show(mBrowser.ParentDir());
    return dirChanged;
}

static bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// The code may also be the result of an action: then there is no path, and nothing changes.
int FileBrowserMenu::changeDir(const SDL_Event& event) {
    if (event.type != SDL_USEREVENT || event.user.code != dirChanged || !event.user.data1)
        return dirChanged;
    const std::string path = static_cast<const char*>(event.user.data1); // it may be part of a row that goes
    tprintf("change dir %s\n", path.c_str());
    if (endsWith(path, "..") || endsWith(path, "../"))
        show(mBrowser.ParentDir());
    else
        show(mBrowser.ChildDir(path.c_str()));
    tprintf("change dir return %d\n", dirChanged);
    return dirChanged;
}

/// Shows a folder from its first row on.
void FileBrowserMenu::show(std::vector<void*>* items) {
    mItems = items;
    const int count = getListNum();
    restorePos(0, 0, items ? std::min(count, rowsAtFirst) - 1 : 0);
}
