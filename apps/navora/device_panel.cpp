#include "navora/device_panel.h"

#include "gfx/fill.h"
#include "gfx/text.h"
#include "navora/device_keys.h"
#include "navora/look.h"
#include "shell/skin.h"
#include "system/language.h"

namespace navora {

static DevicePanel* sPanel = nullptr;

static constexpr SDL_Rect sPlace{656, headerHeight + 10, 584, 552};
static constexpr int sPadding = 26;
static constexpr int sTitleHeight = 66;
static constexpr int sRowHeight = 38;
static constexpr SDL_Color sGround{16, 22, 36, 255};
static constexpr SDL_Color sLine{72, 90, 124, 255};
static constexpr SDL_Color sKeyTop{38, 50, 76, 255};
static constexpr SDL_Color sQuiet{150, 164, 190, 255};

DevicePanel::DevicePanel(const std::string& root, bool shown) : mShown(shown) {
    if (root.empty())
        return;
    mDevice = std::make_unique<SimulatedDevice>(root);
    mWatch = std::make_unique<DeviceWatch>(*mDevice);
    sPanel = this;
    SDL_AddEventWatch(keyPressed, this);
}

DevicePanel::~DevicePanel() {
    SDL_DelEventWatch(keyPressed, this);
    sPanel = nullptr;
}

/// The windows own the queue; this sees what goes into it. Other threads put no keys there.
int DevicePanel::keyPressed(void* panel, SDL_Event* event) {
    if (event->type == SDL_KEYDOWN)
        static_cast<DevicePanel*>(panel)->press(event->key.keysym.scancode, event->key.repeat != 0);
    return 0; // not looked at
}

void DevicePanel::press(SDL_Scancode code, bool repeated) {
    if (code == SDL_SCANCODE_F1 && !repeated)
        mShown = !mShown;
    for (const DeviceKey& key : deviceKeys())
        if (key.code == code && (key.repeats || !repeated)) {
            key.press(*mDevice);
            mWatch->lookNow();
        }
}

static void fill(SDL_Rect rect, SDL_Color color) {
    FillRect(nullptr, &rect, color.r, color.g, color.b, color.a);
}

static void drawFramed(const SDL_Rect& rect, SDL_Color inside) {
    fill(rect, sLine);
    fill({rect.x + 1, rect.y + 1, rect.w - 2, rect.h - 2}, inside);
}

static void drawText(const SDL_Rect& rect, const std::string& text, SDL_Color color, int align) {
    DrawString(gListFontSubtxt, rect, text.c_str(), color, align, false, false);
}

static void drawKey(int y, const char* key, Word what, const std::string& value) {
    constexpr int keyWidth = 54;
    const SDL_Rect top{sPlace.x + sPadding, y + 3, keyWidth, sRowHeight - 6};
    const SDL_Rect words{top.x + keyWidth + 18, y, sPlace.w - 2 * sPadding - keyWidth - 18, sRowHeight};
    drawFramed(top, sKeyTop);
    drawText(top, key, gListColorTxt, 1);
    drawText(words, getLangStr(what), gListColorTxt, 3);
    drawText(words, value, gHighlightColor, 4);
}

void DevicePanel::draw() const {
    constexpr int left = 3;
    const SDL_Rect inner{sPlace.x + sPadding, sPlace.y, sPlace.w - 2 * sPadding, sTitleHeight};
    drawFramed(sPlace, sGround);
    DrawString(gNavFont, inner, getLangStr(wordSimulatedDevice), gListColorTxt, left, false, false);
    fill({inner.x, inner.y + sTitleHeight - 4, inner.w, 1}, sLine);
    int y = sPlace.y + sTitleHeight + 2;
    drawKey(y, "F1", wordThisPanel, getLangStr(wordShown));
    for (const DeviceKey& key : deviceKeys())
        drawKey(y += sRowHeight, key.name, key.what, key.value ? key.value(*mDevice) : "");
    y += sRowHeight + 6;
    fill({inner.x, y, inner.w, 1}, sLine);
    drawText({inner.x, y, inner.w, sPlace.y + sPlace.h - y},
             std::string(getLangStr(wordFromShell)) + " tools/device battery 7", sQuiet, left);
}

void drawDevicePanel() {
    if (!sPanel)
        return;
    if (sPanel->mShown)
        sPanel->draw();
    sPanel->mWatch->follow();
}

} // namespace navora
