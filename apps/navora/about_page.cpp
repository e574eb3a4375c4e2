#include "navora/about_page.h"

#include "core/host.h"
#include "core/input.h"
#include "gfx/image.h"
#include "gfx/text.h"
#include "navora/folder.h"
#include "navora/look.h"
#include "services/power_status.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"
#include "system/language.h"

#include <SDL.h>

#include <cstdlib>
#include <sys/statvfs.h>

namespace navora {

static constexpr SDL_Rect sLogo{margin, headerHeight, 480, footerTop - headerHeight};
static constexpr int sFactsX = 560;

AboutPage::AboutPage(Shell& shell) : Page(shell, wordAbout) {
    AboutPage::themeChanged();
}

void AboutPage::themeChanged() {
    mLogo.reset(LoadKestroSurface(gThemePath, "./", "skin/logo.png"));
}

void AboutPage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "about");
}

static constexpr const char* sVersion = "navora " NAVORA_VERSION ", kestro " NAVORA_VERSION;

/// A device without a battery reports none.
static std::string batteryText() {
    const int percent = readBatteryADC();
    return percent > 0 ? std::to_string(percent) + " %" : "-";
}

/// Of the disk with the settings, or, where there is none, of the one that the launcher runs on.
static std::string freeSpaceText() {
    const char* const root = secure_getenv("KESTRO_DEVICE_ROOT");
    struct statvfs disk {};
    if (statvfs((std::string(root ? root : "") + "/mnt/UDISK").c_str(), &disk) != 0 &&
        statvfs(".", &disk) != 0)
        return "-";
    const auto bytes = [&disk](fsblkcnt_t blocks) {
        return sizeText(static_cast<long long>(blocks) * static_cast<long long>(disk.f_frsize));
    };
    return bytes(disk.f_bavail) + " / " + bytes(disk.f_blocks);
}

int AboutPage::drawFact(int y, const char* caption, const std::string& text) const {
    constexpr int captionHeight = 36;
    constexpr int textHeight = 48;
    constexpr int gap = 22;
    constexpr int width = screenWidth - margin - sFactsX;
    DrawString(gListFontSubtxt, {sFactsX, y, width, captionHeight}, caption, gHighlightColor, 3, false,
               false);
    drawCut(gListFontTxt, {sFactsX, y + captionHeight, width, textHeight}, text, gListColorTxt, 3);
    return y + captionHeight + textHeight + gap;
}

void AboutPage::drawContent() {
    drawCentred(mLogo.get(), sLogo);
    int y = headerHeight + 60;
    y = drawFact(y, getLangStr(wordVersion), sVersion);
    if (ischarging())
        drawAt(getIconFromCache("skin/ic-charging.png"), sFactsX + 120, y + 44);
    y = drawFact(y, getLangStr(wordBattery), batteryText());
    y = drawFact(y, getLangStr(wordFreeSpace), freeSpaceText());
    drawFact(y, "© 2026 The kestro authors", "MIT License");
}

int AboutPage::handleInput() {
    const int code = wait_event(nullptr);
    const int back = GetKeyShm(gShmInfo, 19) == 0 ? keyB : keyA;
    return code == back || code == keyMenu ? loopClose : code;
}

} // namespace navora
