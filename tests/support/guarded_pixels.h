#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

/// Pixels that end at a page which cannot be touched: a read or write beyond the last one ends the process.
template <typename Pixel>
class GuardedPixels {
public:
    explicit GuardedPixels(const std::vector<Pixel>& pixels) : mCount(pixels.size()) {
        const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        const size_t bytes = mCount * sizeof(Pixel);
        mMapped = (bytes + page - 1) / page * page + page;
        mMemory = static_cast<char*>(
            mmap(nullptr, mMapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(mMemory + mMapped - page, page, PROT_NONE);
        mPixels = reinterpret_cast<Pixel*>(mMemory + mMapped - page - bytes);
        if (bytes > 0)
            memcpy(mPixels, pixels.data(), bytes);
    }
    GuardedPixels(size_t count, Pixel value) : GuardedPixels(std::vector<Pixel>(count, value)) {}
    ~GuardedPixels() { munmap(mMemory, mMapped); }
    GuardedPixels(const GuardedPixels&) = delete;
    GuardedPixels& operator=(const GuardedPixels&) = delete;

    Pixel* data() { return mPixels; }
    size_t size() const { return mCount; }
    std::vector<Pixel> copy() const { return {mPixels, mPixels + mCount}; }

private:
    size_t mCount;
    size_t mMapped = 0;
    char* mMemory = nullptr;
    Pixel* mPixels = nullptr;
};
