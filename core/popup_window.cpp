#include "core/popup_window.h"

#include "core/host.h"
#include "gfx/image.h"

PopUpWindow::PopUpWindow(int title, TextMenuDrawer* list, const char* backgroundImage)
    : FloatWindow(title), menu(list), background(LoadKestroSurface(gThemePath, "./", backgroundImage)) {}

PopUpWindow::~PopUpWindow() {
    delete menu;
    delete background;
}

int PopUpWindow::eventHandling() {
    if (!menu)
        return 1002;
    const int code = menu->eventHandling();
    return code == 1 || code == 2 ? 1002 : code;
}

int PopUpWindow::draw() {
    FloatWindow::draw();
    if (!menu)
        return 0;
    if (background) {
        SDL_Rect place{(1280 - background->getWidth()) / 2, (720 - background->getHeight()) / 2, 0, 0};
        background->render(nullptr, &place, true, nullptr);
    }
    menu->draw();
    return 0;
}

void PopUpWindow::quit() {}
