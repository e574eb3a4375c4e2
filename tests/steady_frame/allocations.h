#pragma once

#include <functional>

/// Pieces of memory that were taken, by malloc and its like, by any thread.
struct Allocations {
    int all = 0;
    int bySdl = 0; ///< of those the ones that SDL took for itself

    bool operator==(const Allocations& other) const { return all == other.all && bySdl == other.bySdl; }
};

/// What `work` takes. The first call of this must come before SDL takes any memory.
Allocations allocationsDuring(const std::function<void()>& work);
