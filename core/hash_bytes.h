#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace kestro {

/// A number that is the same for the same bytes, and hardly ever for others. For tables in memory: it may
/// differ between machines. Any thread.
inline uint64_t hashBytes(std::string_view bytes) {
    uint64_t hash = bytes.size();
    const auto mix = [&hash](uint64_t word) {
        hash = (hash ^ word) * 0x9E3779B97F4A7C15U; // the golden ratio: its multiples lie far apart
        hash ^= hash >> 32;
    };
    const auto load = [](const char* from, size_t count) {
        uint64_t word = 0;
        memcpy(&word, from, count);
        return word;
    };
    if (bytes.size() < sizeof(uint64_t)) {
        mix(load(bytes.data(), bytes.size()));
        return hash;
    }
    const char* const last = bytes.data() + bytes.size() - sizeof(uint64_t);
    for (const char* at = bytes.data(); at < last; at += sizeof(uint64_t))
        mix(load(at, sizeof(uint64_t)));
    mix(load(last, sizeof(uint64_t))); // may take some bytes a second time, which is quicker than fewer
    return hash;
}

} // namespace kestro
