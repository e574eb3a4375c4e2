#pragma once

#include <SDL.h>

#include <cstddef>
#include <cstdint>

namespace kestro {

/// Reads numbers from a file of which nothing is believed. At the end of the file every number is 0 and
/// `ended` is true; moving the position never fails. Positions count from where the file stood at first.
class ByteReader {
public:
    explicit ByteReader(SDL_RWops* file) : mFile(file), mStart(SDL_RWtell(file)) {}
    ByteReader(const ByteReader&) = delete;
    ByteReader& operator=(const ByteReader&) = delete;

    /// Whether a read met the end of the file since the last call of seek.
    bool ended() const { return mEnded; }

    int64_t position() const { return SDL_RWtell(mFile) - mStart; }

    void seek(int64_t position) {
        mEnded = false;
        SDL_RWseek(mFile, mStart + position, RW_SEEK_SET);
    }

    /// Passes over bytes; few of them by reading, which keeps the file's buffer.
    void skip(uint32_t count) {
        char passed[256];
        if (count <= sizeof passed)
            read(passed, count);
        else
            SDL_RWseek(mFile, count, RW_SEEK_CUR);
    }

    uint32_t u8() { return littleEndian(1); }
    uint32_t le16() { return littleEndian(2); }
    uint32_t le24() { return littleEndian(3); }
    uint32_t le32() { return littleEndian(4); }
    uint32_t be16() { return bigEndian(2); }
    uint32_t be32() { return bigEndian(4); }

private:
    SDL_RWops* mFile;
    int64_t mStart;
    bool mEnded = false;

    bool read(void* bytes, size_t count) {
        if (SDL_RWread(mFile, bytes, 1, count) != count)
            mEnded = true;
        return !mEnded;
    }

    uint32_t littleEndian(size_t count) {
        uint8_t bytes[4] = {};
        uint32_t number = 0;
        if (read(bytes, count))
            for (size_t i = count; i > 0; --i)
                number = number << 8 | bytes[i - 1];
        return number;
    }

    uint32_t bigEndian(size_t count) {
        uint8_t bytes[4] = {};
        uint32_t number = 0;
        if (read(bytes, count))
            for (size_t i = 0; i < count; ++i)
                number = number << 8 | bytes[i];
        return number;
    }
};

} // namespace kestro
