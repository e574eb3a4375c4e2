#pragma once

#include "core/export.h"
#include "menu/list_menu.h"
#include "services/lru_cache.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <string>

/// Makes the picture for a row: the file `path` fitted into width x height pixels, as a new surface that the
/// drawer takes over. Null stands for not yet: it is asked again at the next draw. A surface of no size
/// stands for never. Main thread.
using ImageLoader = std::function<KestroSurface*(const std::string& path, int width, int height)>;

/// A list that draws a page of rows: background, number, icon and label, with what matches the search
/// highlighted, and a thumbnail of the current row. It knows rows only by getItemByIndex and getListNum.
/// Main thread.
class KESTRO_API TextMenuDrawer : public ListMenu {
public:
    /// The names of the pictures behind the current row and behind the others, looked up in the theme and
    /// then in "./"; null for none. Rows share the height of the area (580 pixels at first) less `rowGap`
    /// pixels between any two.
    TextMenuDrawer(const char* selectedBackground, const char* normalBackground, int rowsPerPage, int rowGap);
    ~TextMenuDrawer() override;

    int eventHandling() override;

    /// Runs the current row's action. Returns its result; -1 for a negative one, and where there is no row
    /// or no action. The action may delete the row and the list.
    int select() override;
    int xselect() override;

    int draw() override;

    /// Loads "skin/bg-list-f.png" and "skin/bg-list-n.png" in place of the backgrounds that there are, if
    /// the theme has changed since they were loaded, and forgets the rows' pictures.
    void refresh() override;

    /// Draws a row's number, with four digits, in the middle of `rect`. Returns its width.
    virtual int drawListNum(int number, SDL_Rect& rect, TTF_Font* font);

    /// Gives the list a new area. Returns what is left of its height for rows, in pixels.
    int updateRectAndNum(SDL_Rect& rect, int rowsPerPage);

    /// With true, takes away the picture behind the current row; false does nothing.
    void ignoreSelBG(bool ignore);

    /// A folder of pictures for a row: the list's own for that index, else the row's, else "".
    std::string getThemePath(TextMenuItemProvider* row, int index);

    /// Draws a label with the part that matches `keyword` in gHighlightColor. `textInitials` and
    /// `extraInitials` are the pinyin initials of the two texts; the extra text is searched too, and shown
    /// in brackets when only it matches; null leaves it out. Null counts as "". `align` is that of
    /// DrawString, except that unknown codes centre a label that matches. Returns 0.
    int drawListText(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color color, int align, bool shadow,
                     const char* keyword, const char* textInitials, const char* extraInitials,
                     const char* extraText);

    /// A row's picture from the drawer's caches, else from the loader; null if there is none, or not yet.
    /// What fits into a row is kept with the icons, anything larger with the thumbnails, 101 of each. The
    /// drawer owns it: use it at once. Null and empty paths give null.
    ///
    /// Rows ask for their icon (getImagePath) at the size of a square with sides of the item height less 32
    /// pixels, which is 64 x 64 with six rows on a page; a row of 32 pixels or less has none. The current
    /// row's thumbnail (getSecondImagePath) is asked for at 300 x 300.
    KestroSurface* getRowImage(const char* path, int width, int height);

    /// Replaces the loader, which at first loads at once; null brings that back.
    void setImageLoader(ImageLoader loader);

    /// An icon before every label; null, as at first, shows each row's own. Stays its owner's.
    void setRowIcon(KestroSurface* icon) { mRowIcon = icon; }
    KestroSurface* getRowIcon() const { return mRowIcon; }

    /// Pixels.
    int getItemHeight() const { return mItemHeight; }
    int getRowGap() const { return mYSpaceInList; }
    int getRowsPerPage() const { return mRowsPerPage; }

    /// Whether rows show their number (true at first), and the position stands in the status bar (true).
    void setShowNumber(bool show) { mShowNumber = show; }
    bool getShowNumber() const { return mShowNumber; }
    void setShowListNumber(bool show) { mShowListNumber = show; }
    bool getShowListNumber() const { return mShowListNumber; }

    /// The colour of labels; gListColorTxt as it was when the list was made. The second is the host's.
    void setTextColor(SDL_Color color) { mTextColor = color; }
    SDL_Color getTextColor() const { return mTextColor; }
    void setSecondTextColor(SDL_Color color) { mSecondTextColor = color; }
    SDL_Color getSecondTextColor() const { return mSecondTextColor; }

    /// Whether the current row of a focused list has a shadow. False at first.
    void setShadow(bool shadow) { mShadow = shadow; }
    bool getShadow() const { return mShadow; }

    /// Pixels between the left edge of the list and the rows' backgrounds. 10 at first.
    void setLeftMargin(int margin) { mLeftMargin = margin; }
    int getLeftMargin() const { return mLeftMargin; }

    /// Alignment of the labels, as for DrawString. 0 at first, which here centres them vertically.
    void setLabelAlign(int align) { mLabelAlign = align; }
    int getLabelAlign() const { return mLabelAlign; }

protected:
    /// Scrolls by the least amount that shows the cursor on a page of `rowsPerPage` of `count` rows.
    KESTRO_HIDDEN void layOutPage(int count, int rowsPerPage);

    std::string mPiece; // what drawListText draws just now
    KestroSurface* mSelectedBackground;
    KestroSurface* mNormalBackground;
    KestroSurface* mRowIcon;
    KestroSurface* mReservedSurface;
    int32_t mItemHeight;
    int32_t mYSpaceInList;
    bool mShowNumber;
    bool mReservedFlag;
    bool mShowListNumber;
    SDL_Color mTextColor;
    SDL_Color mSecondTextColor;
    bool mShadow;
    int32_t mRowsPerPage;
    std::string mThemePath;    // of the backgrounds
    LRUCache mRowImages;       // icons
    LRUCache mSecondRowImages; // thumbnails
    int32_t mLeftMargin;
    int32_t mLabelAlign;
    ImageLoader mImageLoader;

private:
    struct RowPlace;
    KESTRO_HIDDEN KestroSurface* rowImage(const char* path, int width, int height);
    KESTRO_HIDDEN void takeTheme(std::string theme);
    KESTRO_HIDDEN void drawRow(int index);
    KESTRO_HIDDEN void drawBackground(const RowPlace& place);
    KESTRO_HIDDEN void drawIcon(KestroSurface* icon, RowPlace& place);
    KESTRO_HIDDEN KestroSurface* iconOf(TextMenuItemProvider* row);
    KESTRO_HIDDEN void drawLabel(TextMenuItemProvider& row, const RowPlace& place);
    KESTRO_HIDDEN void drawTwoLines(TextMenuItemProvider& row, const char* subLabel, const RowPlace& place);
    KESTRO_HIDDEN void drawSearched(TextMenuItemProvider& row, const SDL_Rect& rect, int align, bool shadow);
    KESTRO_HIDDEN void drawThumbnail();
    KESTRO_HIDDEN int runAction(int (Action::*run)(void*), bool logged);
};

/// Draws a list's position, as "3/12", at the right of the status bar. Returns 0. Main thread.
KESTRO_API int drawListNumAtStatBar(int current, int total);
