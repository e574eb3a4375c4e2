#include "support/file_browser_test.h"

#include <algorithm>
#include <filesystem>

void OpenFileBrowser::restorePos(int cursor, int first, int last) {
    restored.push_back(std::to_string(cursor) + " " + std::to_string(first) + " " + std::to_string(last));
    FileBrowserMenu::restorePos(cursor, first, last);
}

namespace {

/// Pushes the event that opens a folder; the path lives as long as the row.
class OpenDirAction : public Action {
public:
    explicit OpenDirAction(const char* path) : mPath(path) {}
    int dowork(void*) override {
        pressCode(26, mPath.c_str());
        return 0;
    }

private:
    std::string mPath;
};

class FileAction : public Action {
public:
    explicit FileAction(const int& result) : mResult(result) {}
    int dowork(void*) override { return mResult; }

private:
    const int& mResult;
};

} // namespace

void FileBrowserTest::SetUp() {
    ScreenTest::SetUp();
    for (const char* const path : {"base/file", "base/a/1", "base/a/2", "base/a/3"})
        writeFile(path, "");
    for (int i = 0; i < 6; ++i)
        writeFile("base/a/b/" + std::to_string(i), "");
    for (int i = 10; i < 50; ++i)
        writeFile("base/many/" + std::to_string(i), "");
    std::filesystem::create_directories("base/empty");
    gTestHost.fileHandler = [this](const char* name, const char* path, int kind) {
        Action* const action =
            kind == 102 ? static_cast<Action*>(new OpenDirAction(path)) : new FileAction(fileResult);
        return new TextMenuItem(name, nullptr, action, true);
    };
}

void FileBrowserTest::TearDown() {
    menu.reset();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    ScreenTest::TearDown();
}

void FileBrowserTest::open(const char* start) {
    menu = std::make_unique<OpenFileBrowser>("base", start, nullptr, nullptr, 6, 0);
    menu->LoadDir();
    takeLog();
}

int FileBrowserTest::press(int code, const char* data1) {
    pressCode(code, data1);
    return menu->eventHandling();
}

int FileBrowserTest::choose(const std::string& label) {
    menu->setCursor(rowOf(label));
    pressCode(gTestHost.table[19] == 0 ? 1 : 2);
    const int result = menu->eventHandling();
    takeLog();
    return SDL_HasEvent(SDL_USEREVENT) ? menu->eventHandling() : result;
}

std::vector<std::string> FileBrowserTest::labels() {
    std::vector<std::string> all;
    for (int i = 0; i < menu->getListNum(); ++i)
        all.push_back(menu->getItemByIndex(i)->getLabel());
    return all;
}

int FileBrowserTest::rowOf(const std::string& label) {
    const std::vector<std::string> all = labels();
    return static_cast<int>(std::find(all.begin(), all.end(), label) - all.begin());
}
