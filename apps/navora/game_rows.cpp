#include "navora/game_rows.h"
#include "core/host.h"
#include "core/window_stack.h"
#include "menu/menu_item.h"
#include "navora/details_page.h"
#include "navora/folder.h"

#include <SDL.h>

#include <cstring>
#include <string>

namespace navora {

static Shell* sShell = nullptr;

void startGameRows(Shell& shell) {
    sShell = &shell;
}

enum RowGroup : uint32_t { files, folders, wayUp };

/// Asks the browser to go to a folder.
class ChangeFolder : public Action {
public:
    explicit ChangeFolder(std::string path) : mPath(std::move(path)) {}

    int dowork(void*) override {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = 26;
        event.user.data1 = mPath.data(); // lives as long as the row, which stays until the event was handled
        SDL_PushEvent(&event);
        return loopIgnored;
    }

private:
    std::string mPath;
};

class ShowDetails : public Action {
public:
    explicit ShowDetails(Entry entry) : mEntry(std::move(entry)) {}

    int dowork(void*) override {
        if (sShell)
            add2PopupList(new DetailsPage(*sShell, mEntry));
        return loopIgnored;
    }

private:
    Entry mEntry;
};

static TextMenuItem* folderRow(const char* name, const char* path) {
    auto* const action = new ChangeFolder(path);
    action->sortGroup = strcmp(name, "..") == 0 ? wayUp : folders;
    auto* const row = new TextMenuItem(name, nullptr, action, true);
    row->setImagePath("skin/ic-folder.png");
    return row;
}

static TextMenuItem* fileRow(const Entry& entry) {
    auto* const row = new TextMenuItem(entry.name.c_str(), nullptr, new ShowDetails(entry), true);
    row->setImagePath(iconOf(entry));
    row->setSecondImagePath(pictureOf(entry).c_str());
    return row;
}

} // namespace navora

bool file_filter(const char* name, const char*) {
    return name[0] != '.';
}

TextMenuItem* file_handler(const char* name, const char* path, int kind) {
    if (kind == 102)
        return navora::folderRow(name, path);
    navora::Entry entry;
    if (!file_filter(name, path) || !navora::readEntry(path, entry))
        return nullptr;
    return navora::fileRow(entry);
}
