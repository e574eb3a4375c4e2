#pragma once

/// While it lives, memory that SDL and its libraries let go comes back at the next request for as much, at
/// the same address. Allocators mostly do so anyway, but not those of the memory checkers.
class ReusedMemory {
public:
    ReusedMemory();
    ~ReusedMemory();
    ReusedMemory(const ReusedMemory&) = delete;
    ReusedMemory& operator=(const ReusedMemory&) = delete;
};
