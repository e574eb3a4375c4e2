#include "fuzz/stress/mutation.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fuzz {

Bytes contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    if (bytes.empty()) {
        fprintf(stderr, "%s cannot be read\n", path.c_str());
        exit(2);
    }
    return bytes;
}

static void setNumber(Bytes& file, size_t at, size_t size, uint32_t number) {
    for (size_t i = 0; i < size && at + i < file.size(); ++i)
        file[at + i] = static_cast<char>(number >> 8 * (size - 1 - i));
}

void Mutator::change(Bytes& file) {
    static constexpr uint32_t ends[] = {0, 1, 0x7F, 0xFF, 0x7FFF, 0xFFFF, 0x7FFFFFFF, 0xFFFFFFFF};
    // Half of the places are near the beginning, where a file says what it is.
    const size_t reach = below(2) ? file.size() : std::min<size_t>(file.size(), 64);
    const size_t at = below(reach);
    const size_t length = std::min(below(32) + 1, file.size() - at);
    switch (below(8)) {
    case 0:
        file[at] = static_cast<char>(file[at] ^ (1 << below(8)));
        break;
    case 1:
        file[at] = static_cast<char>(below(256));
        break;
    case 2: {
        const size_t size = size_t{1} << below(3);
        setNumber(file, at, size, ends[below(std::size(ends))]);
        break;
    }
    case 3:
        file.erase(at, length);
        break;
    case 4:
        file.insert(at, file.substr(at, length));
        break;
    case 5:
        file.insert(below(file.size()), file.substr(at, length));
        break;
    case 6:
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(at), length, '\0');
        break;
    default:
        if (below(4) == 0)
            file.resize(at);
    }
}

Bytes Mutator::broken(Bytes file) {
    for (size_t left = below(3) + 1; left > 0 && !file.empty(); --left)
        change(file);
    return file;
}

Bytes Mutator::noise(size_t count) {
    Bytes bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(below(255) + 1);
    return bytes;
}

static uint32_t numberAt(const Bytes& file, size_t at) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i)
        number = number << 8 | static_cast<uint8_t>(file[at + i]);
    return number;
}

static uint32_t checksum(const Bytes& file, size_t from, size_t size) {
    uint32_t sum = 0xFFFFFFFF;
    for (size_t i = from; i < from + size; ++i) {
        sum ^= static_cast<uint8_t>(file[i]);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return ~sum;
}

Bytes withChecksums(Bytes png) {
    for (size_t at = 8; at + 12 <= png.size();) {
        const size_t length = numberAt(png, at);
        if (length > png.size() - at - 12)
            break;
        setNumber(png, at + 8 + length, 4, checksum(png, at + 4, length + 4));
        at += length + 12;
    }
    return png;
}

} // namespace fuzz
