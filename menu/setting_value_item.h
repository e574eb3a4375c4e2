#pragma once

#include "core/export.h"
#include "menu/setting_item.h"

/// The value behind a value row. Made and owned by the host, and outlives the row. Main thread.
class KESTRO_API ValueHandler {
public:
    ValueHandler() = default;
    virtual ~ValueHandler();
    ValueHandler(const ValueHandler&) = delete;
    ValueHandler& operator=(const ValueHandler&) = delete;

    /// Steps the value one way for code 7 (left) and the other for code 8 (right).
    virtual void changeValue(int code) = 0;

    /// The value as a number; for the host, 0 by default.
    virtual int getValue();

    /// The value as shown, of which 63 bytes are; null counts as "". Valid until the next call.
    virtual const char* getValueText() = 0;
};

/// A row with a value that left and right step.
class KESTRO_API SettingValueItem : public ItemDrawable {
public:
    /// `leftSelected` to `rightNormal` are the markers at the value's sides, on the selected row and on the
    /// others; `valueFrame` lies behind the value of the selected row, and where there is one the value is
    /// centred in it on every row. `handler` may be null: then the row has no value.
    SettingValueItem(KestroSurface* selectedBackground, KestroSurface* background,
                     KestroSurface* leftSelected, KestroSurface* leftNormal, KestroSurface* rightSelected,
                     KestroSurface* rightNormal, KestroSurface* valueFrame, int languageIndex, Action* action,
                     ValueHandler* handler);

    int draw(SDL_Rect& rect, bool selected) override;

    /// Steps the value for the codes 7 and 8 and returns 0; -1 for others, and without a handler.
    int handleEvent(int code) override;

private:
    KestroSurface* mSelectedBackground;
    KestroSurface* mBackground;
    KestroSurface* mLeftSelected;
    KestroSurface* mLeftNormal;
    KestroSurface* mRightSelected;
    KestroSurface* mRightNormal;
    KestroSurface* mValueFrame;
    int32_t mLanguageIndex;
    ValueHandler* mValueChanger;
    char mValueText[64];

    KESTRO_HIDDEN void drawValue(const SDL_Rect& rect, bool selected);
};
