#include "menu/row_order.h"

#include "menu/action.h"
#include "system/language.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace kestro {

static const char* labelOf(const TextMenuItem& item) {
    return item.labelText().empty() ? getLangStr(item.getLabelId()) : item.labelText().c_str();
}

RowOrder::~RowOrder() {
    for (const Row& row : mRows)
        delete row.item;
}

void RowOrder::add(TextMenuItem* item) {
    std::unique_ptr<TextMenuItem> owned(item);
    const Action* const action = item->getAction();
    mRows.push_back(
        {item, LabelSort::Label(labelOf(*item)), action != nullptr, action ? action->sortGroup : 0});
    static_cast<void>(owned.release());
}

std::vector<void*> RowOrder::takeOrdered() {
    std::vector<void*> items = ordered();
    mRows.clear();
    return items;
}

/// Whether an existing row gives way to a new one. Groups are compared by their signed difference.
bool RowOrder::comesBefore(const Row& newRow, const Row& existing) {
    if (newRow.hasGroup && existing.hasGroup && newRow.group != existing.group)
        return static_cast<int32_t>(existing.group - newRow.group) < 0;
    return strcmp(newRow.label.text, existing.label.text) <= 0;
}

/// Whether all rows compare by one and the same order: either no two groups differ, or every row has one and
/// they lie so close that their differences keep their sign. Gives the highest group.
bool RowOrder::canBeSorted(uint32_t& highest) const {
    bool allHaveGroup = true;
    uint32_t lowest = UINT32_MAX;
    highest = 0;
    for (const Row& row : mRows) {
        allHaveGroup &= row.hasGroup;
        if (!row.hasGroup)
            continue;
        lowest = std::min(lowest, row.group);
        highest = std::max(highest, row.group);
    }
    return lowest >= highest || (allHaveGroup && highest - lowest <= INT32_MAX);
}

std::vector<void*> RowOrder::insertedOneByOne() const {
    std::vector<Row> inserted;
    inserted.reserve(mRows.size());
    for (const Row& row : mRows) {
        const auto givesWay = [&row](const Row& existing) { return comesBefore(row, existing); };
        inserted.insert(std::find_if(inserted.begin(), inserted.end(), givesWay), row);
    }
    std::vector<void*> items;
    items.reserve(mRows.size());
    for (const Row& row : inserted)
        items.push_back(row.item);
    return items;
}

std::vector<void*> RowOrder::ordered() const {
    uint32_t highest = 0;
    if (!canBeSorted(highest))
        return insertedOneByOne();
    LabelSort sort(mRows.size());
    for (auto row = mRows.rbegin(); row != mRows.rend(); ++row) // the newest first, where rows are alike
        sort.add(row->hasGroup ? highest - row->group : 0, row->label);
    std::vector<void*> items;
    items.reserve(mRows.size());
    for (const uint32_t number : sort.sorted())
        items.push_back(mRows[mRows.size() - 1 - number].item);
    return items;
}

} // namespace kestro
