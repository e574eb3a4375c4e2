#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace fuzz {

/// Bytes as a string holds them: a file's content.
using Bytes = std::string;

/// The whole file; ends the program if it cannot be read.
Bytes contentOf(const std::string& path);

/// Breaks files, always in the same way for the same seed, on every machine.
class Mutator {
public:
    explicit Mutator(uint32_t seed) : mRandom(seed) {}

    /// A number from 0 to `count` - 1.
    size_t below(size_t count) { return count == 0 ? 0 : mRandom() % count; }

    /// `file` with one to three changes: bits and bytes turned over, pieces cut out, doubled, moved or
    /// zeroed, numbers replaced by those at the ends of their range, the end cut off.
    Bytes broken(Bytes file);

    /// `count` bytes of any value but zero.
    Bytes noise(size_t count);

private:
    std::mt19937 mRandom; // the standard says what it gives; its distributions differ

    void change(Bytes& file);
};

/// A PNG file whose chunks' checksums fit its content again, as far as its chunks can be followed: the
/// decoder reads past the first broken one.
Bytes withChecksums(Bytes png);

} // namespace fuzz
