#include "navora/game_list_menu.h"

#include "hostkit/files.h"
#include "navora/look.h"
#include "navora/program.h"
#include "navora/thumbnails.h"

#include <algorithm>
#include <filesystem>

namespace navora {

static constexpr int rowsOnPage = 6;

namespace {

/// The rows' two actions. Each works on a copy, since its own row may be gone before it ends.
class GameAction : public Action {
public:
    GameAction(Shell& shell, std::string path, ListKind kind)
        : mShell(shell), mPath(std::move(path)), mKind(kind) {}

    int dowork(void*) override {
        const std::string path = mPath;
        return openGame(mShell, path);
    }

    int xdowork(void*) override {
        openGameMenu(mShell, mPath, mKind);
        return loopIgnored;
    }

private:
    Shell& mShell;
    std::string mPath;
    ListKind mKind;
};

} // namespace

static std::unique_ptr<TextMenuItem> makeRow(Shell& shell, const std::string& path, ListKind kind) {
    const std::string name = std::filesystem::path(path).filename().string();
    auto* const action = new GameAction(shell, path, kind);
    auto row = std::make_unique<TextMenuItem>(name.c_str(), nullptr, action, true);
    row->setFirstFlag(true); // for the hint about its menu
    row->setImagePath(hostkit::fileIcon(name));
    if (kind != ListKind::search) // whose list is too narrow for a picture beside the names
        row->setSecondImagePath(hostkit::thumbnailOf(path).c_str());
    return row;
}

GameListMenu::GameListMenu(Shell& shell, ListKind kind, const char* selectedBackground,
                           const char* normalBackground)
    : TextMenuDrawer(selectedBackground, normalBackground, rowsOnPage, 0), mShell(shell), mKind(kind),
      mSelectedName(selectedBackground), mNormalName(normalBackground) {
    if (kind != ListKind::search)
        setImageLoader(loadInBackground());
}

void GameListMenu::setPaths(std::vector<std::string> paths) {
    mOwnPaths = std::move(paths);
    std::vector<const std::string*> own;
    for (const std::string& path : mOwnPaths)
        own.push_back(&path);
    setPaths(std::move(own));
}

void GameListMenu::setPaths(std::vector<const std::string*> paths) {
    mPaths = std::move(paths);
    mRows.clear();
    mCursor = std::clamp(mCursor, 0, std::max(getListNum() - 1, 0));
    if (mLastVisible >= getListNum()) { // shows as many of the rows as fit, with the cursor among them
        mLastVisible = getListNum() - 1;
        mFirstVisible = mLastVisible - rowsOnPage + 1;
    }
    if (mFirstVisible <= 0)
        mFirstVisible = mLastVisible = 0;
}

TextMenuItemProvider* GameListMenu::getItemByIndex(int index) {
    if (index < 0 || index >= getListNum())
        return nullptr;
    std::unique_ptr<TextMenuItem>& row = mRows[index];
    if (!row)
        row = makeRow(mShell, *mPaths[static_cast<size_t>(index)], mKind);
    return row.get();
}

void GameListMenu::refresh() {
    TextMenuDrawer::refresh();
    replacePicture(mSelectedBackground, mSelectedName);
    replacePicture(mNormalBackground, mNormalName);
}

int GameListMenu::draw() {
    constexpr size_t enough = 64;
    if (mRows.size() > enough) // here, where no action runs
        mRows.clear();
    return TextMenuDrawer::draw();
}

} // namespace navora
