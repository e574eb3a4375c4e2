#include "hostkit/files.h"

#include <SDL.h>

#include <cstring>
#include <iterator>
#include <memory>

namespace hostkit {

static constexpr int changeFolder = 26;
static constexpr int nothingDone = 0;

enum RowGroup : uint32_t { files, folders, wayUp };

using Choose = std::function<int(const std::string&)>;
static std::shared_ptr<const Choose> sChoose; // both are shared by all rows
static std::shared_ptr<const Choose> sMenu;

/// A copy that stays valid until the event with it was handled, while the row may be gone by then.
static char* kept(const std::string& path) {
    static std::string copies[64]; // there is one event per key
    static size_t next = 0;
    std::string& copy = copies[next++ % std::size(copies)];
    copy = path;
    return copy.data();
}

namespace {

/// Asks the browser to go to a folder.
class ChangeFolder : public Action {
public:
    explicit ChangeFolder(const char* path) : mPath(path) {}

    int dowork(void*) override {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = changeFolder;
        event.user.data1 = kept(mPath);
        SDL_PushEvent(&event);
        return nothingDone;
    }

private:
    std::string mPath;
};

class ChooseFile : public Action {
public:
    explicit ChooseFile(const char* path) : mPath(path), mChoose(sChoose), mMenu(sMenu) {}

    int dowork(void*) override { return run(mChoose, mPath); }
    int xdowork(void*) override { return run(mMenu, mPath); }

private:
    std::string mPath;
    std::shared_ptr<const Choose> mChoose;
    std::shared_ptr<const Choose> mMenu;

    /// By value: the function may delete the row.
    static int run(std::shared_ptr<const Choose> choose, std::string path) {
        return choose ? (*choose)(path) : nothingDone;
    }
};

} // namespace

static std::shared_ptr<const Choose> shared(Choose choose) {
    return choose ? std::make_shared<const Choose>(std::move(choose)) : nullptr;
}

void setFileChosen(Choose choose) {
    sChoose = shared(std::move(choose));
}

void setFileMenu(Choose open) {
    sMenu = shared(std::move(open));
}

TextMenuItem* makeFolderRow(const char* name, const char* path) {
    auto* const action = new ChangeFolder(path);
    action->sortGroup = strcmp(name, "..") == 0 ? wayUp : folders;
    auto* const row = new TextMenuItem(name, nullptr, action, true);
    row->setImagePath("skin/ic-folder.png");
    return row;
}

TextMenuItem* makeFileRow(const char* name, const char* path) {
    // Always with an action: rows without one would stand among the folders.
    auto* const row = new TextMenuItem(name, nullptr, new ChooseFile(path), true);
    row->setImagePath(fileIcon(name));
    row->setSecondImagePath(thumbnailOf(path).c_str());
    return row;
}

} // namespace hostkit
