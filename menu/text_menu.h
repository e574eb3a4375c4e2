#pragma once

#include "core/export.h"
#include "menu/text_menu_drawer.h"

#include <vector>

/// The plain list: rows in order, which it owns. Nothing here moves the cursor or the visible range. Main
/// thread.
///
/// Rows are passed as `void*` that point to their TextMenuItemProvider part: a row class with several bases
/// is passed through static_cast<TextMenuItemProvider*>.
class KESTRO_API TextMenu : public TextMenuDrawer {
public:
    /// An empty list; the arguments are TextMenuDrawer's.
    TextMenu(const char* selectedBackground, const char* normalBackground, int rowsPerPage, int rowGap);
    ~TextMenu() override;

    TextMenuItemProvider* getItemByIndex(int index) override;
    int getListNum() override;

    /// Removes and deletes the row `index`; ignores an index that is none.
    void removeItem(int index) override;
    void clearItemList() override; ///< Removes and deletes all rows.

    /// Deletes all rows.
    virtual void freeListItem();

    /// Appends a row and takes it over. A null row is shown as a row that is still loading.
    void insertItem(void* row);

    /// Takes a row over and puts it before the first one for which `compare` gives 0 or less, else at the
    /// end: rows that compare equal stand newest first. A null `compare` puts it at the end. Null rows are
    /// compared like others.
    void insertItemSorted(void* row, int (*compare)(void* newRow, void* existingRow));

    /// Appends a row and takes it over, unless a row has the same label, as given (without the word that
    /// stands in for an empty one). Returns 1, or 0 for a row that stays the caller's; null gives 0.
    int insertItemUnique(TextMenuItem* row);

private:
    std::vector<TextMenuItemProvider*> mItems;
};
