#pragma once

#include "core/export.h"
#include "menu/setting_item.h"

/// The state behind a switch row. Made and owned by the host, and outlives the row. Main thread.
class KESTRO_API SwitchHandler {
public:
    SwitchHandler() = default;
    virtual ~SwitchHandler();
    SwitchHandler(const SwitchHandler&) = delete;
    SwitchHandler& operator=(const SwitchHandler&) = delete;

    virtual bool getValue() = 0;        ///< Whether it is on. Asked at every draw.
    virtual void setValue(bool on) = 0; ///< Called when the user switches over.
};

/// A row that is on or off. It has no action.
class KESTRO_API SettingSwitchItem : public ItemDrawable {
public:
    /// `onImage` or `offImage` shows the state, if both are there. `handler` may be null: then the row shows
    /// and does nothing.
    SettingSwitchItem(KestroSurface* selectedBackground, KestroSurface* background, KestroSurface* onImage,
                      KestroSurface* offImage, int languageIndex, SwitchHandler* handler);

    int draw(SDL_Rect& rect, bool selected) override;

    /// Switches over for left, right, the fourth face button and the confirming one. Returns 0 for every
    /// code.
    int handleEvent(int code) override;

    /// Switches over.
    void switchValue();

private:
    KestroSurface* mSelectedBackground;
    KestroSurface* mBackground;
    KestroSurface* mOnImage;
    KestroSurface* mOffImage;
    int32_t mLanguageIndex;
    SwitchHandler* mHandler;
};
