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
    KestroSurface* getRowIcon() const { return mRowIcon; } ///< what setRowIcon has set

    int getItemHeight() const { return mItemHeight; }   ///< the height of a row, in pixels
    int getRowGap() const { return mYSpaceInList; }     ///< the pixels between two rows
    int getRowsPerPage() const { return mRowsPerPage; } ///< how many rows fit on a page

    void setShowNumber(bool show) { mShowNumber = show; } ///< whether rows show their number; true at first
    bool getShowNumber() const { return mShowNumber; }    ///< what setShowNumber has set
    /// Whether the position, such as "3/12", stands in the status bar. True at first.
    void setShowListNumber(bool show) { mShowListNumber = show; }
    bool getShowListNumber() const { return mShowListNumber; } ///< what setShowListNumber has set

    /// The colour of labels; gListColorTxt as it was when the list was made.
    void setTextColor(SDL_Color color) { mTextColor = color; }
    SDL_Color getTextColor() const { return mTextColor; } ///< the colour of labels
    /// A second colour, for the host; gListColorTxt at first. The library does not draw with it.
    void setSecondTextColor(SDL_Color color) { mSecondTextColor = color; }
    SDL_Color getSecondTextColor() const { return mSecondTextColor; } ///< what setSecondTextColor has set

    /// Whether the current row of a focused list has a shadow. False at first.
    void setShadow(bool shadow) { mShadow = shadow; }
    bool getShadow() const { return mShadow; } ///< what setShadow has set

    /// Pixels between the left edge of the list and the rows' backgrounds. 10 at first.
    void setLeftMargin(int margin) { mLeftMargin = margin; }
    int getLeftMargin() const { return mLeftMargin; } ///< pixels

    /// Alignment of the labels, as for DrawString. 0 at first, which here centres them vertically.
    void setLabelAlign(int align) { mLabelAlign = align; }
    int getLabelAlign() const { return mLabelAlign; } ///< what setLabelAlign has set

protected:
    /// Scrolls by the least amount that shows the cursor on a page of `rowsPerPage` of `count` rows.
    KESTRO_HIDDEN void layOutPage(int count, int rowsPerPage);

    std::string mPiece;                 ///< what drawListText draws just now
    KestroSurface* mSelectedBackground; ///< owned; null for none
    KestroSurface* mNormalBackground;   ///< owned; null for none
    KestroSurface* mRowIcon;            ///< see setRowIcon; its owner's
    KestroSurface* mReservedSurface;    ///< not used; null
    int32_t mItemHeight;                ///< see getItemHeight
    int32_t mYSpaceInList;              ///< see getRowGap
    bool mShowNumber;                   ///< see setShowNumber
    bool mReservedFlag;                 ///< not used; false
    bool mShowListNumber;               ///< see setShowListNumber
    SDL_Color mTextColor;               ///< see setTextColor
    SDL_Color mSecondTextColor;         ///< see setSecondTextColor
    bool mShadow;                       ///< see setShadow
    int32_t mRowsPerPage;               ///< see getRowsPerPage
    std::string mThemePath;             ///< the theme that the backgrounds are from
    LRUCache mRowImages;                ///< the rows' icons
    LRUCache mSecondRowImages;          ///< the rows' thumbnails
    int32_t mLeftMargin;                ///< see setLeftMargin
    int32_t mLabelAlign;                ///< see setLabelAlign
    ImageLoader mImageLoader;           ///< see setImageLoader; never empty

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
