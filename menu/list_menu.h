#pragma once

#include "core/export.h"
#include "menu/menu_item.h"

#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

/// The root of every list: cursor, visible range and place on screen, and what the keys do to them. Rows
/// and drawing come from derived classes. Main thread.
class KESTRO_API ListMenu {
public:
    /// The argument is not used.
    explicit ListMenu(bool);
    virtual ~ListMenu();
    ListMenu(const ListMenu&) = delete;
    ListMenu& operator=(const ListMenu&) = delete;

    /// Puts back a saved position. The cursor is taken if there is such a row; `first` and `last`, the
    /// visible range, are taken together if there are both such rows.
    virtual void restorePos(int cursor, int first, int last);

    /// Reads one key and acts on it. Returns what handleEvent returns.
    virtual int eventHandling();

    /// Acts on the current row. Returns the row's result, -1 if there is nothing to act on.
    virtual int select() = 0;

    /// The row `index`, which stays the list's; null for any index that is none.
    virtual ListRow* getItemByIndex(int index) = 0;

    /// A folder of pictures for the row `index`; null by default, and stays its owner's.
    virtual const char* getItemThemePath(int index);

    /// Draws the list into the current render target. The result is not used; 0 by custom.
    virtual int draw() = 0;

    /// The number of rows.
    virtual int getListNum() = 0;

    /// One row down, from the last row to the first, whether or not the list wraps. Returns 0.
    virtual int moveForward();

    /// One row up. From the first row it goes to the last if the list wraps. Returns -1, or 1008 for a cursor
    /// that stays on the first row.
    virtual int moveBackward();

    /// The secondary action on the current row. Returns 0 by default.
    virtual int xselect();

    /// Takes over a new theme. Does nothing by default.
    virtual void refresh();

    virtual void removeItem(int index); ///< Removes the row `index`. Does nothing by default.
    virtual void clearItemList();       ///< Removes all rows. Does nothing by default.

    virtual void reserved15(); ///< for hosts' own lists; does nothing, and the library does not call it
    virtual void reserved16(); ///< the same

    virtual int pageUp();   ///< Six rows up, not beyond the first. Returns 0.
    virtual int pageDown(); ///< Six rows down, not beyond the last. Returns 0.

    /// Kept for hosts that call it; does nothing.
    void checkRepeatKey();

    /// Counts how often one direction key (codes 5 to 8) came within 200 ms of the time before; other codes
    /// are ignored.
    void addToPressedKeys(int code);

    /// Whether that count is 11 or more, which is when up and down move by pages. Logs the count.
    bool pressedForAWhile();

    /// Acts on one key code: up and down move, A or B (as the host's table says at index 19) selects, the
    /// third face button runs the secondary action. Returns the code, or the result of the action, or 1008
    /// for an up that the first row has stopped.
    int handleEvent(int code);

    void setRect(SDL_Rect& rect);              ///< the list's area, in pixels of the screen
    SDL_Rect getRect() const { return mRect; } ///< the list's area
    void setFocus(bool focus);                 ///< whether the list shows which row is current
    bool getFocus() const { return mFocus; }   ///< what setFocus has set

    /// Whether up wraps from the first row to the last. True at first.
    void setWrap(bool wrap) { mWrap = wrap; }
    bool getWrap() const { return mWrap; } ///< what setWrap has set

    /// The current row. Not checked: a cursor beyond the rows selects nothing.
    void setCursor(int cursor) { mCursor = cursor; }
    int getCursor() const { return mCursor; } ///< the current row, from 0

    /// The first row on screen; it and the last one both 0 stand for not laid out yet.
    void setFirstVisible(int first) { mFirstVisible = first; }
    int getFirstVisible() const { return mFirstVisible; }  ///< the first row on screen
    void setLastVisible(int last) { mLastVisible = last; } ///< the last row on screen, itself included
    int getLastVisible() const { return mLastVisible; }    ///< the last row on screen

    /// The search whose matches are highlighted; empty, or null, for none.
    void setKeyword(const char* keyword) { mKeyword = keyword ? keyword : ""; }
    const std::string& getKeyword() const { return mKeyword; } ///< empty for none

    /// A flag for the host; true at first.
    void setFirstFlag(bool flag) { mFirstFlag = flag; }
    bool getFirstFlag() const { return mFirstFlag; } ///< what setFirstFlag has set

protected:
    bool mFirstFlag;               ///< see setFirstFlag
    bool mWrap;                    ///< see setWrap
    int32_t mCursor;               ///< see setCursor
    int32_t mFirstVisible;         ///< see setFirstVisible
    int32_t mLastVisible;          ///< see setLastVisible
    std::string mKeyword;          ///< see setKeyword
    SDL_Rect mRect;                ///< see setRect
    uint64_t mLastKeyTime;         ///< systemms of the last direction key that counted
    std::vector<int> mPressedKeys; ///< the direction keys that addToPressedKeys counts
    bool mFocus;                   ///< see setFocus

private:
    KESTRO_HIDDEN int selectIfConfirmed(int code);
    KESTRO_HIDDEN int moveUp();
    KESTRO_HIDDEN int moveDown();
};
