#include "shell/bars.h"

#include "core/host.h"
#include "core/window.h"
#include "gfx/font_height.h"
#include "gfx/text.h"
#include "shell/skin.h"
#include "shell/status_icons.h"
#include "system/language.h"

static constexpr int statBarHeight = 70;
static constexpr int hintGap = 24;

int KestroWindow::drawNavBar(int offset) {
    if (const char* const title = getTitle())
        DrawString(gNavFont, {110, offset + 22, 0, 0}, title, gNavColorTxt, 0, false, false);
    if (gIconBack) {
        SDL_Rect place{20, offset + 12, 0, 0};
        gIconBack->render(nullptr, &place, true, nullptr);
    }
    int used = 0;
    for (const auto draw :
         {draw_battery_icon, draw_sound_icon, draw_hotplug, draw_wifi_icon, draw_bluetooth_icon})
        used += draw(true, used, offset);
    return used;
}

/// Where a thing of that height begins so that it stands in the middle of the bar, and a little lower.
static int centred(int y, int height) {
    return y + (statBarHeight - height) / 2 + 2;
}

int draw_stat_icon_item_left(KestroSurface* icon, int x, int y, const char* label) {
    if (!icon)
        return 0;
    const int labelLeft = icon->getWidth() + 10;
    SDL_Rect place{x, centred(y, icon->getHeight()), 0, 0};
    icon->render(nullptr, &place, true, nullptr);
    const SDL_Rect rect{x + labelLeft, centred(y, kestro::fontHeight(gStatFont)), 0, 0};
    return labelLeft + DrawString(gStatFont, rect, label, gStatColorTxt, 0, false, false);
}

int KestroWindow::drawStatBar(int offset) {
    const bool swapped = GetKeyShm(gShmInfo, 19) != 0;
    const struct {
        KestroSurface* icon;
        int word;
    } hints[] = {{swapped ? gIconB : gIconA, 4}, {swapped ? gIconA : gIconB, 5}, {gIconMenu, 7}};
    int x = 30;
    for (const auto& [icon, word] : hints)
        if (icon)
            x += draw_stat_icon_item_left(icon, x, offset + 650, getLangStr(word)) + hintGap;
    return x;
}
