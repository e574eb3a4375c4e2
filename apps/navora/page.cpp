#include "navora/page.h"

#include "gfx/fill.h"
#include "gfx/text.h"
#include "hostkit/theme.h"
#include "navora/clock.h"
#include "navora/device_panel.h"
#include "navora/look.h"
#include "navora/place.h"
#include "navora/words.h"
#include "shell/bars.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"
#include "system/language.h"

#include <SDL.h>

namespace navora {

namespace {

/// The bar at the top with another title than its window's.
class TopBar : public KestroWindow {
public:
    explicit TopBar(std::string title) : KestroWindow(-1, 0), mTitle(std::move(title)) {}

    const char* getTitle() override { return mTitle.c_str(); }
    int eventHandling() override { return loopIgnored; }
    int draw() override { return drawNavBar(0); }
    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override {}

private:
    std::string mTitle;
};

} // namespace

/// Draws the bar with a title that keeps clear of the clock when everything shows its state at the right.
/// Returns where that begins.
static int drawTopBar(const char* title) {
    constexpr int titleWidth = 680;
    constexpr int stateRight = 1265;
    return stateRight - TopBar(cutToWidth(gNavFont, title, titleWidth)).draw();
}

static void drawClock(int right) {
    constexpr int gap = 20;
    const SDL_Rect place{right - gap - 200, 0, 200, 70};
    DrawString(gNavFont, place, clockText().c_str(), gNavColorTxt, 4, false, false);
}

Page::Page(Shell& shell, int title)
    : KestroWindow(title, 0), mShell(shell), mThemeNumber(hostkit::themeNumber()) {}

void Page::update() {
    mShell.script.frameBegins();
    followTheme();
}

void Page::followTheme() {
    if (mThemeNumber == hostkit::themeNumber())
        return;
    mThemeNumber = hostkit::themeNumber();
    themeChanged();
}

int Page::eventHandling() {
    const int code = handleInput();
    if (code == loopQuit)
        keepPlace();
    return code;
}

int Page::draw() {
    drawPage();
    drawDevicePanel();
    return 0;
}

void Page::drawPage() {
    FillRect(nullptr, nullptr, 14, 19, 30, 255);
    drawAt(gBackground, 0, 0);
    drawClock(drawTopBar(getTitle()));
    drawContent();
    drawHints(drawStatBar(0));
}

/// What the library's bar at the bottom does not know: a hint where the third face button opens something.
void Page::drawHints(int x) const {
    if (hasOptions())
        draw_stat_icon_item_left(getIconFromCache("skin/tips-X.png"), x, footerTop, getLangStr(wordOptions));
}

ListPage::ListPage(Shell& shell, int title, std::unique_ptr<TextMenuDrawer> list)
    : Page(shell, title), mList(std::move(list)) {}

void ListPage::drawContent() {
    if (mList->getListNum() > 0) {
        mList->draw();
        return;
    }
    const SDL_Rect middle{0, headerHeight, screenWidth, footerTop - headerHeight};
    DrawString(gListFontTxt, middle, getLangStr(wordNothingHere), gListColorTxt, 1, false, false);
}

bool ListPage::hasOptions() const {
    return rowHasOptions(*mList);
}

bool rowHasOptions(TextMenuDrawer& list) {
    auto* const row = dynamic_cast<TextMenuItemProvider*>(list.getItemByIndex(list.getCursor()));
    return row && row->getFirstFlag();
}

int ListPage::handleInput() {
    return answer(mList->eventHandling());
}

int ListPage::answer(int code) {
    return code == keyA || code == keyB ? loopClose : code;
}

} // namespace navora
