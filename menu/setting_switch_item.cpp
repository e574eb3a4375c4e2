#include "menu/setting_switch_item.h"

#include "core/host.h"
#include "menu/setting_row_internal.h"
#include "system/language.h"

static constexpr int imageX = 1150;     // measured for the skin's pictures, on a row as wide as the screen
static constexpr int confirmWithB = 19; // index in the host's table

SwitchHandler::~SwitchHandler() = default;

SettingSwitchItem::SettingSwitchItem(KestroSurface* selectedBackground, KestroSurface* background,
                                     KestroSurface* onImage, KestroSurface* offImage, int languageIndex,
                                     SwitchHandler* handler)
    : ItemDrawable(nullptr), mSelectedBackground(selectedBackground), mBackground(background),
      mOnImage(onImage), mOffImage(offImage), mLanguageIndex(languageIndex), mHandler(handler) {}

int SettingSwitchItem::draw(SDL_Rect& rect, bool selected) {
    kestro::drawSettingRow(*this, rect, selected, mSelectedBackground, mBackground,
                           getLangStr(mLanguageIndex));
    if (mHandler && mOnImage && mOffImage)
        kestro::drawInMiddle(mHandler->getValue() ? mOnImage : mOffImage, rect.x + imageX, rect);
    return 1;
}

int SettingSwitchItem::handleEvent(int code) {
    const int confirm = GetKeyShm(gShmInfo, confirmWithB) == 0 ? 1 : 2;
    if (code == confirm || code == 4 || code == 7 || code == 8)
        switchValue();
    return 0;
}

void SettingSwitchItem::switchValue() {
    if (mHandler)
        mHandler->setValue(!mHandler->getValue());
}
