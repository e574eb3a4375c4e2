#pragma once

#include <cstddef>
#include <cstring>

/// The place of a virtual function in its class's table, counted in pointers. The two entries of the
/// destructor, if it is declared first, are 0 and 1. `function` points to a virtual member function.
template <class Function>
ptrdiff_t virtualSlot(Function function) {
    ptrdiff_t parts[2];
    static_assert(sizeof function == sizeof parts, "not a pointer to a member function");
    memcpy(parts, &function, sizeof parts);
#if defined(__aarch64__) || defined(__arm__)
    const ptrdiff_t offset = parts[0]; // the mark of a virtual function stands in the other half
#else
    const ptrdiff_t offset = parts[0] - 1;
#endif
    return offset / static_cast<ptrdiff_t>(sizeof(void*));
}
