#include "navora/game_menu.h"

#include "core/window_stack.h"
#include "menu/text_menu.h"
#include "navora/floating.h"
#include "navora/game_lists.h"
#include "navora/program.h"
#include "navora/words.h"

#include <functional>

namespace navora {

namespace {

/// Does something, and closes the window that asked for it, unless that leaves the loop.
class CloseAfter : public Action {
public:
    explicit CloseAfter(std::function<int()> work) : mWork(std::move(work)) {}

    int dowork(void*) override { return mWork() == loopQuit ? loopQuit : loopClose; }

private:
    std::function<int()> mWork;
};

} // namespace

static void addRow(TextMenu& menu, int word, std::function<int()> work) {
    auto* const row = new TextMenuItem(nullptr, nullptr, new CloseAfter(std::move(work)), true);
    row->setLabelId(word);
    menu.insertItem(static_cast<TextMenuItemProvider*>(row));
}

static void askToClear(Shell& shell) {
    auto* const clear = new CloseAfter([] {
        gameLists().clearRecents();
        return loopClose;
    });
    add2PopupList(new Question(shell, wordClearRecents, wordClearQuestion, clear));
}

static void addRowsOfList(TextMenu& menu, Shell& shell, const std::string& path, ListKind kind) {
    if (kind != ListKind::recents)
        return;
    addRow(menu, wordRemoveRecent, [path] {
        gameLists().removeRecent(path);
        return loopClose;
    });
    addRow(menu, wordClearRecents, [&shell] {
        askToClear(shell);
        return loopClose;
    });
}

void openGameMenu(Shell& shell, const std::string& path, ListKind kind) {
    TextMenu* const menu = makePopUpList();
    const bool favourite = gameLists().isFavourite(path);
    addRow(*menu, wordPlay, [&shell, path] { return openGame(shell, path); });
    addRow(*menu, favourite ? wordRemoveFavourite : wordAddFavourite, [path, favourite] {
        gameLists().setFavourite(path, !favourite);
        return loopClose;
    });
    addRow(*menu, wordDetails, [&shell, path] {
        showDetails(shell, path);
        return loopClose;
    });
    addRowsOfList(*menu, shell, path, kind);
    add2PopupList(new PopUpMenu(shell, menu));
}

} // namespace navora
