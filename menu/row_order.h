#pragma once

#include "menu/label_sort.h"
#include "menu/menu_item.h"

#include <cstdint>
#include <vector>

namespace kestro {

/// Puts the rows of a folder in order: by descending sort group of their actions, then by ascending label in
/// byte order; of rows that are alike the newest comes first. The order is that of inserting the rows one by
/// one, each before the first row that is not before it. That matters where rows with and without actions
/// mix: they compare by label alone, and there is no order that suits every pair.
class RowOrder {
public:
    RowOrder() = default;
    RowOrder(RowOrder&&) = default;
    RowOrder& operator=(RowOrder&&) = delete;
    ~RowOrder();

    /// Takes the next row, which is not null and is owned from here on, also when this throws.
    void add(TextMenuItem* row);
    size_t size() const { return mRows.size(); }

    /// All rows in order. From now on they are the caller's, and there are none left here.
    std::vector<void*> takeOrdered();

private:
    struct Row {
        TextMenuItem* item;
        LabelSort::Label label;
        bool hasGroup;
        uint32_t group;
    };

    std::vector<Row> mRows; // as they came

    static bool comesBefore(const Row& newRow, const Row& existing);
    bool canBeSorted(uint32_t& highest) const;
    std::vector<void*> insertedOneByOne() const;
    std::vector<void*> ordered() const;
};

} // namespace kestro
