#include "gfx/picture_bomb.h"

#include "gfx/picture_size_formats.h"

#include <SDL_image.h>

#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace {

/// Puts a file back where it stood.
class Place {
public:
    explicit Place(SDL_RWops* file) : mFile(file), mPlace(SDL_RWtell(file)) {}
    ~Place() { SDL_RWseek(mFile, mPlace, RW_SEEK_SET); }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

private:
    SDL_RWops* mFile;
    Sint64 mPlace;
};

/// Finds the markers of a JPEG file, reading it in blocks: all of it is looked at.
class Markers {
public:
    explicit Markers(SDL_RWops* file) : mFile(file) {}

    /// 0 at the end.
    int next() {
        int marker = 0;
        while (marker == 0) { // 0 stands for a byte of the picture
            if (!findEscape())
                return 0;
            do
                marker = byte();
            while (marker == 0xFF);
        }
        return marker > 0 ? marker : 0;
    }

private:
    SDL_RWops* mFile;
    uint8_t mBlock[4096];
    size_t mAt = 0;
    size_t mEnd = 0;

    bool fill() {
        mAt = 0;
        mEnd = SDL_RWread(mFile, mBlock, 1, sizeof mBlock);
        return mEnd > 0;
    }
    int byte() { return mAt < mEnd || fill() ? mBlock[mAt++] : -1; }

    bool findEscape() {
        while (mAt < mEnd || fill()) {
            const auto* const found = static_cast<const uint8_t*>(memchr(mBlock + mAt, 0xFF, mEnd - mAt));
            mAt = found ? static_cast<size_t>(found - mBlock) + 1 : mEnd;
            if (found)
                return true;
        }
        return false;
    }
};

struct Chunk {
    uint32_t length;
    uint32_t kind;
    int64_t size() const { return int64_t{length} + 12; } // with its length, kind and sum
};

/// The chunk at the place of the file, of which at least the beginning is there.
bool readChunk(SDL_RWops* file, Chunk& chunk) {
    uint32_t words[2];
    if (SDL_RWread(file, words, sizeof words, 1) != 1)
        return false;
    chunk = {SDL_SwapBE32(words[0]), SDL_SwapBE32(words[1])};
    return true;
}

bool isText(const Chunk& chunk) {
    using kestro::fourLetters;
    return chunk.kind == fourLetters("zTXt") || chunk.kind == fourLetters("iTXt") ||
           chunk.kind == fourLetters("iCCP");
}

constexpr int64_t signature = 8;

/// Zeros that no decoder takes for a chunk.
constexpr size_t noChunk = 16;

/// The places of a PNG file, from and to, that are no texts; empty if it has none.
std::vector<std::pair<int64_t, int64_t>> partsWithoutTexts(SDL_RWops* file) {
    std::vector<std::pair<int64_t, int64_t>> parts;
    const int64_t start = SDL_RWtell(file);
    const int64_t end = SDL_RWsize(file);
    int64_t begin = start;
    int64_t at = start + signature;
    Chunk chunk{};
    while (SDL_RWseek(file, at, RW_SEEK_SET) == at && readChunk(file, chunk)) {
        if (isText(chunk)) {
            parts.emplace_back(begin, at);
            begin = at + chunk.size();
        }
        at += chunk.size();
        if (chunk.kind == kestro::fourLetters("IEND"))
            break;
    }
    if (!parts.empty() && begin < end)
        parts.emplace_back(begin, std::min(at, end));
    return parts;
}

int closeCopy(SDL_RWops* copy) {
    SDL_free(copy->hidden.mem.base);
    SDL_FreeRW(copy);
    return 0;
}

} // namespace

namespace kestro {

bool isTooLargeFor(SDL_RWops* file, PictureSize size) {
    constexpr uint64_t large = 4'000'000;
    constexpr uint64_t mostPixelsPerByte = 10'000;
    const uint64_t pixels = uint64_t{size.width} * size.height;
    const Sint64 bytes = SDL_RWsize(file);
    return pixels > large && bytes >= 0 && pixels > mostPixelsPerByte * static_cast<uint64_t>(bytes) &&
           !IMG_isSVG(file);
}

int passes(SDL_RWops* file) {
    constexpr int progressive = 0xC2;
    constexpr int startOfScan = 0xDA;
    const Place place(file);
    if (!IMG_isJPG(file))
        return 0;
    Markers markers(file);
    bool isProgressive = false;
    int count = 0;
    while (const int marker = markers.next()) {
        isProgressive |= marker == progressive;
        count += marker == startOfScan;
        if (marker == startOfScan && !isProgressive)
            return 0; // the rest of the file need not be read
    }
    return count;
}

SDL_RWops* withoutTexts(SDL_RWops* file) {
    const Place place(file);
    if (!IMG_isPNG(file))
        return nullptr;
    try {
        size_t size = 0;
        const auto parts = partsWithoutTexts(file);
        for (const auto& [from, to] : parts)
            size += static_cast<size_t>(to - from);
        size += noChunk; // libpng believes what it reads of a chunk's head beyond the end of a file
        constexpr size_t mostCopied = size_t{64} << 20;
        const bool copied = !parts.empty() && size <= mostCopied;
        auto* const bytes = static_cast<char*>(copied ? SDL_malloc(size) : nullptr);
        SDL_RWops* const copy = bytes ? SDL_RWFromMem(bytes, static_cast<int>(size)) : nullptr;
        if (!copy) {
            SDL_free(bytes);
            return nullptr;
        }
        copy->close = closeCopy;
        char* next = bytes;
        for (const auto& [from, to] : parts) {
            SDL_RWseek(file, from, RW_SEEK_SET);
            next += SDL_RWread(file, next, 1, static_cast<size_t>(to - from));
        }
        memset(next, 0, static_cast<size_t>(bytes + size - next)); // and what a file that shrank lacks
        return copy;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

} // namespace kestro
