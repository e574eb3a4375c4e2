#include "menu/setting_value_item.h"

#include "core/log.h"
#include "gfx/text.h"
#include "menu/setting_row_internal.h"
#include "shell/skin.h"
#include "system/language.h"

#include <cstdio>

// Measured for the skin's pictures, on a row as wide as the screen.
static constexpr int frameX = 745;
static constexpr int rightMarkerX = 1173;
static constexpr int frameWidth = 500;

ValueHandler::~ValueHandler() = default;

int ValueHandler::getValue() {
    return 0;
}

SettingValueItem::SettingValueItem(KestroSurface* selectedBackground, KestroSurface* background,
                                   KestroSurface* leftSelected, KestroSurface* leftNormal,
                                   KestroSurface* rightSelected, KestroSurface* rightNormal,
                                   KestroSurface* valueFrame, int languageIndex, Action* action,
                                   ValueHandler* handler)
    : ItemDrawable(action), mSelectedBackground(selectedBackground), mBackground(background),
      mLeftSelected(leftSelected), mLeftNormal(leftNormal), mRightSelected(rightSelected),
      mRightNormal(rightNormal), mValueFrame(valueFrame), mLanguageIndex(languageIndex),
      mValueChanger(handler), mValueText{} {}

int SettingValueItem::draw(SDL_Rect& rect, bool selected) {
    kestro::drawSettingRow(*this, rect, selected, mSelectedBackground, mBackground,
                           getLangStr(mLanguageIndex));
    if (mValueChanger)
        drawValue(rect, selected);
    return 1;
}

void SettingValueItem::drawValue(const SDL_Rect& rect, bool selected) {
    if (selected)
        kestro::drawInMiddle(mValueFrame, rect.x + frameX, rect);
    kestro::drawInMiddle(selected ? mLeftSelected : mLeftNormal, rect.x + frameX, rect);
    kestro::drawInMiddle(selected ? mRightSelected : mRightNormal, rect.x + rightMarkerX, rect);
    const char* const text = mValueChanger->getValueText();
    snprintf(mValueText, sizeof mValueText, "%s", text ? text : "");
    const SDL_Rect framed{rect.x + frameX, rect.y, frameWidth, rect.h};
    const SDL_Rect atRight{rect.x, rect.y, rect.w - 40, rect.h};
    DrawString(gListFontTxt, mValueFrame ? framed : atRight, mValueText, gListColorTxt, mValueFrame ? 1 : 4,
               false, false);
}

int SettingValueItem::handleEvent(int code) {
    if (!mValueChanger || (code != 7 && code != 8))
        return -1;
    tprintf("mValueChanger %p changeValue %d\n", static_cast<void*>(mValueChanger), code);
    mValueChanger->changeValue(code);
    return 0;
}
