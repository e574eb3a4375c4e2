#include "menu/label_sort.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kestro {

LabelSort::LabelSort(size_t count) {
    mLabels.reserve(count);
    mKeys.reserve(count);
}

/// The eight bytes at `label`, or those up to its end and then zeroes.
static uint64_t partOf(const char* label) {
    uint64_t part = 0;
    for (int shift = 56; shift >= 0 && *label; shift -= 8)
        part |= static_cast<uint64_t>(static_cast<unsigned char>(*label++)) << shift;
    return part;
}

LabelSort::Label::Label(const char* labelText) : text(labelText), beginning(partOf(labelText)) {}

void LabelSort::add(uint32_t rank, const Label& label) {
    mKeys.push_back({label.beginning, static_cast<uint32_t>(mLabels.size()), rank});
    mLabels.push_back(label.text);
}

/// Sorts by the numbers that `number` gives, one byte after the other from the lowest up; keys with the same
/// byte stay in their order. A byte that is the same in all of them is passed over.
template <class Number>
void LabelSort::sortByBytes(Key* begin, Key* end, Number number) {
    constexpr size_t bytes = sizeof number(*begin);
    const auto byteOf = [&](const Key& key, size_t byte) { return number(key) >> 8 * byte & 0xFF; };
    std::array<std::array<uint32_t, 256>, bytes> counts{};
    for (const Key* key = begin; key != end; ++key)
        for (size_t byte = 0; byte < bytes; ++byte)
            ++counts[byte][byteOf(*key, byte)];
    const auto size = static_cast<size_t>(end - begin);
    mMoved.resize(std::max(mMoved.size(), size));
    Key* from = begin;
    Key* to = mMoved.data();
    for (size_t byte = 0; byte < bytes; ++byte) {
        std::array<uint32_t, 256>& places = counts[byte];
        if (places[byteOf(*from, byte)] == size)
            continue;
        uint32_t next = 0;
        for (uint32_t& place : places)
            next += std::exchange(place, next);
        for (const Key* key = from; key != from + size; ++key)
            to[places[byteOf(*key, byte)]++] = *key;
        std::swap(from, to);
    }
    if (from != begin)
        std::copy(from, from + size, begin);
}

/// Notes the runs of keys with the same number.
template <class Number>
void LabelSort::addRuns(Key* begin, Key* end, size_t depth, Number number) {
    while (begin != end) {
        const auto differs = [&](const Key& key) { return number(key) != number(*begin); };
        Key* const other = std::find_if(begin + 1, end, differs);
        if (other - begin > 1)
            mLeft.push_back({begin, other, depth});
        begin = other;
    }
}

void LabelSort::sortByRank() {
    const auto rank = [](const Key& key) { return key.rank; };
    Key* const begin = mKeys.data();
    Key* const end = begin + mKeys.size();
    sortByBytes(begin, end, rank);
    addRuns(begin, end, 0, rank);
}

void LabelSort::sortByPart(Key* begin, Key* end) {
    constexpr std::ptrdiff_t few = 200; // for which counting takes longer than comparing
    if (end - begin > few)
        return sortByBytes(begin, end, [](const Key& key) { return key.part; });
    std::sort(begin, end, [](const Key& a, const Key& b) {
        return a.part == b.part ? a.number < b.number : a.part < b.part;
    });
}

std::vector<uint32_t> LabelSort::sorted() {
    if (!mKeys.empty())
        sortByRank();
    while (!mLeft.empty()) {
        const Run run = mLeft.back();
        mLeft.pop_back();
        if (run.depth > 0) {
            if ((run.begin->part & 0xFF) == 0)
                continue; // the labels are at their end
            for (Key* key = run.begin; key != run.end; ++key)
                key->part = partOf(mLabels[key->number] + run.depth);
        }
        sortByPart(run.begin, run.end);
        addRuns(run.begin, run.end, run.depth + sizeof Key::part, [](const Key& key) { return key.part; });
    }
    std::vector<uint32_t> numbers;
    numbers.reserve(mKeys.size());
    for (const Key& key : mKeys)
        numbers.push_back(key.number);
    return numbers;
}

} // namespace kestro
