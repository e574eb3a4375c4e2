#pragma once

#include "core/export.h"
#include "gfx/surface.h"
#include "menu/menu_item.h"

#include <SDL.h>

#include <cstdint>
#include <string>

/// A row of a setting page. Main thread. Pictures of all setting rows stay their owner's, may be null, and
/// outlive the row.
class KESTRO_API ItemDrawable : public ListRow {
public:
    /// `action` may be null; the row deletes it.
    explicit ItemDrawable(Action* action);
    ~ItemDrawable() override;

    /// Draws the row into `rect`. The result is not used; 1 by custom.
    virtual int draw(SDL_Rect& rect, bool selected) = 0;

    /// Whether the row shows its selection background; true by default.
    virtual bool isFocusable();

    /// Acts on a key code. Returns a negative number, as by default, for a key that it does not handle.
    virtual int handleEvent(int code);

    /// What runs when the row is chosen; stays the row's.
    Action* getAction() const { return mAction; }

protected:
    Action* mAction; ///< owned; null for none
};

/// A plain row: a label and a short value, that runs its action.
class KESTRO_API SettingItem : public ItemDrawable {
public:
    /// The label is given as text; null texts count as "".
    SettingItem(KestroSurface* selectedBackground, KestroSurface* background, const char* label,
                const char* valueText, Action* action);
    /// The label is the word `languageIndex`, in the language that is in force when it is drawn.
    SettingItem(KestroSurface* selectedBackground, KestroSurface* background, int languageIndex,
                const char* valueText, Action* action);

    int draw(SDL_Rect& rect, bool selected) override;

    /// A picture at the right end of the row; null, as at first, for none.
    void setRightIcon(KestroSurface* icon) { mRightIcon = icon; }

    /// Replaces the value text.
    void setValueText(const char* text) { mValueText = text ? text : ""; }

private:
    KestroSurface* mSelectedBackground;
    KestroSurface* mBackground;
    KestroSurface* mRightIcon;
    int32_t mLanguageIndex;
    std::string mLabel;
    std::string mValueText;
};
