#include "menu/text_menu.h"

#include <algorithm>

TextMenu::TextMenu(const char* selectedBackground, const char* normalBackground, int rowsPerPage, int rowGap)
    : TextMenuDrawer(selectedBackground, normalBackground, rowsPerPage, rowGap) {}

TextMenu::~TextMenu() {
    TextMenu::freeListItem();
}

TextMenuItemProvider* TextMenu::getItemByIndex(int index) {
    return index >= 0 && index < TextMenu::getListNum() ? mItems[static_cast<size_t>(index)] : nullptr;
}

int TextMenu::getListNum() {
    return static_cast<int>(mItems.size());
}

void TextMenu::removeItem(int index) {
    if (index < 0 || index >= TextMenu::getListNum())
        return;
    const auto position = mItems.begin() + index;
    TextMenuItemProvider* const row = *position;
    mItems.erase(position);
    delete row;
}

void TextMenu::clearItemList() {
    freeListItem();
}

void TextMenu::freeListItem() {
    for (TextMenuItemProvider* row : mItems)
        delete row;
    mItems.clear();
}

void TextMenu::insertItem(void* row) {
    mItems.push_back(static_cast<TextMenuItemProvider*>(row));
}

void TextMenu::insertItemSorted(void* row, int (*compare)(void* newRow, void* existingRow)) {
    const auto before = [&](TextMenuItemProvider* existing) {
        return compare && compare(row, existing) <= 0;
    };
    mItems.insert(std::find_if(mItems.begin(), mItems.end(), before),
                  static_cast<TextMenuItemProvider*>(row));
}

int TextMenu::insertItemUnique(TextMenuItem* row) {
    if (!row)
        return 0;
    for (TextMenuItemProvider* existing : mItems) {
        const auto* const item = dynamic_cast<TextMenuItem*>(existing);
        if (item && item->labelText() == row->labelText())
            return 0;
    }
    insertItem(static_cast<TextMenuItemProvider*>(row));
    return 1;
}
