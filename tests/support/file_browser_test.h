#pragma once

#include "menu/file_browser_menu.h"
#include "support/key_events.h"
#include "support/screen_test.h"

#include <memory>
#include <string>
#include <vector>

/// A file browser that notes what restorePos is asked.
class OpenFileBrowser : public FileBrowserMenu {
public:
    using FileBrowserMenu::FileBrowserMenu;
    std::vector<std::string> restored; ///< such as "0 0 5"

    void restorePos(int cursor, int first, int last) override;
};

/// A test of file browsers over "base", with these entries: in "base" the folders "a" (three files), "empty"
/// and "many" (forty files) and the file "file"; in "base/a" also the folder "b", which holds six files.
/// Rows have the entry's name; those of files run an action that gives `fileResult`, those of folders push
/// the event that opens them.
class FileBrowserTest : public ScreenTest {
protected:
    void SetUp() override;
    void TearDown() override;

    std::unique_ptr<OpenFileBrowser> menu;
    int fileResult = 40;

    /// A browser that has loaded its first folder. What is logged is taken.
    void open(const char* start = nullptr);

    /// Handles one key code, or a user event with a path.
    int press(int code, const char* data1 = nullptr);

    /// Moves to the row with a label and runs its action; the folder's event, if any, is handled too.
    int choose(const std::string& label);

    std::vector<std::string> labels();
    int rowOf(const std::string& label);
};
