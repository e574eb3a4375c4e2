#include "menu/setting_item.h"

#include "gfx/text.h"
#include "menu/setting_row_internal.h"
#include "shell/skin.h"
#include "system/language.h"

ItemDrawable::ItemDrawable(Action* action) : mAction(action) {}

ItemDrawable::~ItemDrawable() {
    delete mAction;
}

bool ItemDrawable::isFocusable() {
    return true;
}

int ItemDrawable::handleEvent(int) {
    return -1;
}

namespace kestro {

void drawInMiddle(KestroSurface* picture, int x, const SDL_Rect& rect) {
    if (!picture)
        return;
    SDL_Rect place{x, rect.y + (rect.h - picture->getHeight()) / 2, 0, 0};
    picture->render(nullptr, &place, true, nullptr);
}

void drawSettingRow(ItemDrawable& row, const SDL_Rect& rect, bool selected, KestroSurface* selectedBackground,
                    KestroSurface* background, const char* label) {
    const bool showsSelection = selected && selectedBackground && row.isFocusable();
    drawInMiddle(showsSelection ? selectedBackground : background, rect.x, rect);
    const SDL_Rect place{rect.x + 40, rect.y, rect.w - 40, rect.h};
    DrawString(gListFontTxt, place, label, gListColorTxt, 3, false, false);
}

} // namespace kestro

SettingItem::SettingItem(KestroSurface* selectedBackground, KestroSurface* background, const char* label,
                         const char* valueText, Action* action)
    : ItemDrawable(action), mSelectedBackground(selectedBackground), mBackground(background),
      mRightIcon(nullptr), mLanguageIndex(-1), mLabel(label ? label : ""),
      mValueText(valueText ? valueText : "") {}

SettingItem::SettingItem(KestroSurface* selectedBackground, KestroSurface* background, int languageIndex,
                         const char* valueText, Action* action)
    : ItemDrawable(action), mSelectedBackground(selectedBackground), mBackground(background),
      mRightIcon(nullptr), mLanguageIndex(languageIndex), mValueText(valueText ? valueText : "") {}

int SettingItem::draw(SDL_Rect& rect, bool selected) {
    const char* const label = mLanguageIndex >= 0 ? getLangStr(mLanguageIndex) : mLabel.c_str();
    kestro::drawSettingRow(*this, rect, selected, mSelectedBackground, mBackground, label);
    if (mRightIcon)
        kestro::drawInMiddle(mRightIcon, rect.x + rect.w - mRightIcon->getWidth() - 25, rect);
    const SDL_Rect place{rect.x + rect.w - 85, rect.y, 60, rect.h};
    DrawString(gListFontTxt, place, mValueText.c_str(), gListColorTxt, 4, false, false);
    return 1;
}
