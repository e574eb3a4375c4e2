#include "hostkit/menu_window.h"

#include "gfx/fill.h"
#include "gfx/text.h"
#include "hostkit/theme.h"
#include "shell/skin.h"

namespace hostkit {

MenuWindow::MenuWindow(std::string title, std::unique_ptr<ListMenu> list)
    : KestroWindow(-1, 0), mTitle(std::move(title)), mList(std::move(list)), mThemeNumber(themeNumber()) {}

int MenuWindow::eventHandling() {
    constexpr int close = 1005;
    const int result = mList->eventHandling();
    return result == 1 || result == 2 ? close : result;
}

int MenuWindow::draw() {
    FillRect(nullptr, nullptr, 14, 19, 30, 255);
    if (gBackground)
        gBackground->render(nullptr, nullptr, true, nullptr);
    DrawString(gPopupFontTitle, {40, 0, 1200, 80}, mTitle.c_str(), gNavColorTxt, 3, false, false);
    return mList->draw();
}

void MenuWindow::update() {
    if (mThemeNumber == themeNumber())
        return;
    mThemeNumber = themeNumber();
    mList->refresh();
}

} // namespace hostkit
