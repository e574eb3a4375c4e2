#pragma once

#include <cstddef>

/// While it lives, cJSON gets no memory at one moment: for the `nth` (from 1) of its pieces that are `size`
/// bytes big, or of all its pieces when `size` is 0.
class FailingJsonMemory {
public:
    explicit FailingJsonMemory(int nth, size_t size = 0);
    ~FailingJsonMemory();
    FailingJsonMemory(const FailingJsonMemory&) = delete;
    FailingJsonMemory& operator=(const FailingJsonMemory&) = delete;

    /// Whether that moment has come.
    bool failed() const;
};
