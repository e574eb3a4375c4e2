#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kestro {

/// Sorts labels by a rank and then in byte order. What is alike stays in the order in which it came.
///
/// Most of the time that it takes to compare labels goes into fetching them. So eight bytes of each lie side
/// by side here, as a number; the next eight are fetched only where those are the same.
class LabelSort {
public:
    /// A label with its first eight bytes: best made when the label is at hand anyway.
    struct Label {
        /// `text` is not null and not owned here.
        explicit Label(const char* text);

        const char* text;
        uint64_t beginning; ///< as a number that compares as the bytes do
    };

    /// `count` labels will come.
    explicit LabelSort(size_t count);

    /// Takes the next label. Lower ranks come first.
    void add(uint32_t rank, const Label& label);

    /// The numbers of all labels in order. The one that was added first has the number 0.
    std::vector<uint32_t> sorted();

private:
    /// One label while it is sorted.
    struct Key {
        uint64_t part; ///< the next bytes, as a number that compares as they do
        uint32_t number;
        uint32_t rank;
    };
    using Keys = std::vector<Key>;

    /// Keys that are the same so far.
    struct Run {
        Key* begin;
        Key* end;
        size_t depth; ///< the bytes of the labels that were compared
    };

    std::vector<const char*> mLabels;
    Keys mKeys;
    Keys mMoved;            // where keys are moved to and back
    std::vector<Run> mLeft; // still to be told apart

    template <class Number>
    void sortByBytes(Key* begin, Key* end, Number number);
    template <class Number>
    void addRuns(Key* begin, Key* end, size_t depth, Number number);
    void sortByRank();
    void sortByPart(Key* begin, Key* end);
};

} // namespace kestro
