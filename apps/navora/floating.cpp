#include "navora/floating.h"

#include "gfx/fill.h"
#include "navora/look.h"

namespace navora {

static constexpr int rowsOnPage = 4;
static constexpr SDL_Rect sPlace{380, 200, 520, 320};

TextMenu* makePopUpList() {
    auto* const list = new TextMenu("skin/pop-menu-f.png", "skin/pop-menu-n.png", rowsOnPage, 0);
    SDL_Rect place = sPlace;
    list->updateRectAndNum(place, rowsOnPage);
    list->setShowNumber(false);
    list->setShowListNumber(false);
    return list;
}

PopUpMenu::PopUpMenu(Shell& shell, TextMenu* list)
    : PopUpWindow(-1, list, "skin/pop-menu.png"), mShell(shell) {}

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
int PopUpMenu::draw() {
    PopUpWindow::draw();
    constexpr int middle = sPlace.x + sPlace.w / 2;
    if (menu->getFirstVisible() > 0)
        drawTriangle(middle, sPlace.y - 12, 1);
    if (menu->getLastVisible() < menu->getListNum() - 1)
        drawTriangle(middle, sPlace.y + sPlace.h + 11, -1);
    return 0;
}

} // namespace navora
