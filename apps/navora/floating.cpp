#include "navora/floating.h"

#include "core/window_stack.h"
#include "gfx/fill.h"
#include "navora/look.h"

#include <algorithm>

namespace navora {

static constexpr int rowsOnPage = 4;
static constexpr SDL_Rect sPlace{380, 200, 520, 320};

void drawBelow(const KestroWindow* window) {
    const auto found = std::find(gWinList->begin(), gWinList->end(), window);
    KestroWindow* const below = found == gWinList->begin() || found == gWinList->end() ? nullptr : found[-1];
    if (auto* const page = dynamic_cast<Page*>(below)) {
        page->followTheme();
        page->drawPage();
    } else if (below) {
        below->draw();
    }
}

static constexpr const char* sSelectedRow = "skin/pop-menu-f.png";
static constexpr const char* sNormalRow = "skin/pop-menu-n.png";

namespace {

class PopUpList : public TextMenu {
public:
    PopUpList() : TextMenu(sSelectedRow, sNormalRow, rowsOnPage, 0) {}

    void refresh() override {
        TextMenu::refresh();
        replacePicture(mSelectedBackground, sSelectedRow);
        replacePicture(mNormalBackground, sNormalRow);
    }
};

} // namespace

TextMenu* makePopUpList() {
    auto* const list = new PopUpList;
    SDL_Rect place = sPlace;
    list->updateRectAndNum(place, rowsOnPage);
    list->setShowNumber(false);
    list->setShowListNumber(false);
    return list;
}

static constexpr const char* sPanel = "skin/pop-menu.png";

PopUpMenu::PopUpMenu(Shell& shell, TextMenu* list) : Floating(shell, -1, list, sPanel) {}

void PopUpMenu::reload() {
    replacePicture(background, sPanel);
    menu->refresh();
}

int PopUpMenu::eventHandling() {
    const int code = PopUpWindow::eventHandling();
    return code == keyMenu ? loopClose : code;
}

/// A small triangle that points up for a `step` of 1 and down for -1, from its point on.
static void drawTriangle(int x, int y, int step) {
    for (int line = 0; line < 8; ++line, y += step) {
        SDL_Rect row{x - line, y, 2 * line + 1, 1};
        FillRect(nullptr, &row, 54, 255, 160, 255);
    }
}

/// More rows than fit show by a mark where the list goes on.
void PopUpMenu::drawMarks() {
    constexpr int middle = sPlace.x + sPlace.w / 2;
    if (menu->getFirstVisible() > 0)
        drawTriangle(middle, sPlace.y - 12, 1);
    if (menu->getLastVisible() < menu->getListNum() - 1)
        drawTriangle(middle, sPlace.y + sPlace.h + 11, -1);
}

void Dialog::reload() {
    replacePicture(panel, "skin/pop-bg.png");
    replacePicture(buttonFocused, "skin/btn-bg-f.png");
    replacePicture(buttonNormal, "skin/btn-bg-n.png");
}

} // namespace navora
