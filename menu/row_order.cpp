#include "menu/row_order.h"

#include "menu/action.h"
#include "system/language.h"

#include <algorithm>
#include <cstring>

namespace kestro {

static const char* labelOf(const TextMenuItem& item) {
    return item.labelText().empty() ? getLangStr(item.getLabelId()) : item.labelText().c_str();
}

void RowOrder::add(TextMenuItem* item) {
    const Action* const action = item->getAction();
    mRows.push_back({item, labelOf(*item), action != nullptr, action ? action->sortGroup : 0});
}

/// Whether an existing row gives way to a new one. Groups are compared by their signed difference.
bool RowOrder::comesBefore(const Row& newRow, const Row& existing) {
    if (newRow.hasGroup && existing.hasGroup && newRow.group != existing.group)
        return static_cast<int32_t>(existing.group - newRow.group) < 0;
    return strcmp(newRow.label, existing.label) <= 0;
}

/// Whether all rows compare by one and the same order: either no two groups differ, or every row has one and
/// they lie so close that their differences keep their sign.
bool RowOrder::canBeSorted() const {
    bool allHaveGroup = true;
    bool any = false;
    uint32_t lowest = 0;
    uint32_t highest = 0;
    for (const Row& row : mRows) {
        allHaveGroup &= row.hasGroup;
        if (!row.hasGroup)
            continue;
        lowest = any ? std::min(lowest, row.group) : row.group;
        highest = any ? std::max(highest, row.group) : row.group;
        any = true;
    }
    return lowest == highest || (allHaveGroup && highest - lowest <= INT32_MAX);
}

void RowOrder::insertOneByOne() {
    std::vector<Row> sorted;
    sorted.reserve(mRows.size());
    for (const Row& row : mRows) {
        const auto givesWay = [&row](const Row& existing) { return comesBefore(row, existing); };
        sorted.insert(std::find_if(sorted.begin(), sorted.end(), givesWay), row);
    }
    mRows.swap(sorted);
}

std::vector<void*> RowOrder::ordered() {
    if (canBeSorted()) {
        std::reverse(mRows.begin(), mRows.end()); // the newest first, where rows are alike
        std::stable_sort(mRows.begin(), mRows.end(),
                         [](const Row& a, const Row& b) { return !comesBefore(b, a); });
    } else {
        insertOneByOne();
    }
    std::vector<void*> items;
    items.reserve(mRows.size());
    for (const Row& row : mRows)
        items.push_back(row.item);
    return items;
}

} // namespace kestro
