#pragma once

namespace fuzz {

/// Which allocations of this process fail: those of malloc, calloc and realloc, and with them those of `new`,
/// of SDL and of every other library. Any thread.
enum class Failing { one, allFromThere };

/// Lets the n-th allocation from now on fail, and with allFromThere all that follow it.
void failAllocation(long nth, Failing which);

/// Ends that. Returns whether there was an n-th allocation.
bool endFailing();

} // namespace fuzz
