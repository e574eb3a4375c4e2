#pragma once

#include "core/export.h"
#include "menu/dir_browser.h"
#include "menu/text_menu_drawer.h"

#include <string>
#include <vector>

/// A list that shows one folder of a tree and lets the user walk through the tree. Its rows are made by the
/// host's file_handler. Main thread.
///
/// A row of a folder is opened by a user event (SDL_USEREVENT) with code 26 and the folder's full path as
/// `data1`, which the row's action pushes; a path that ends in ".." goes up. The path must stay valid until
/// the event was handled; the library does not free it.
class KESTRO_API FileBrowserMenu : public TextMenuDrawer {
public:
    /// The user cannot leave `baseDir`, of which null counts as "". `startDir` is the folder to open first;
    /// null for the base. The other four are TextMenuDrawer's. Nothing is read yet.
    FileBrowserMenu(const char* baseDir, const char* startDir, const char* selectedBackground,
                    const char* normalBackground, int rowsPerPage, int rowGap);
    ~FileBrowserMenu() override;

    /// Handles one key. The back key goes up, and gives 1002 in the base folder. Every change of folder gives
    /// 26 and shows the first row. Other results are ListMenu's.
    int eventHandling() override;

    TextMenuItemProvider* getItemByIndex(int index) override;
    int draw() override;
    int getListNum() override;

    /// Reads the folder to open first. Call it once before the list is shown, and again to start over.
    /// Returns the rows, which stay the list's; never null, and empty for a folder that cannot be read.
    std::vector<void*>* LoadDir();

    /// The folder that is shown, null before LoadDir. Valid until the folder changes.
    const char* getCurrentDir();

private:
    std::string mBaseDir;
    std::string mStartDir;
    DirBrowser mBrowser;
    std::vector<void*>* mItems;

    KESTRO_HIDDEN int goUp();
    KESTRO_HIDDEN int changeDir(const SDL_Event& event);
    KESTRO_HIDDEN void show(std::vector<void*>* items);
};
