#include "gfx/picture_size.h"

#include "support/kestro_test.h"
#include "support/pictures.h"

#include <SDL.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>

namespace {

/// A file in memory that counts what is asked of it, and where nothing can be read beyond the end.
class CountedFile {
public:
    explicit CountedFile(std::string bytes) : mBytes(std::move(bytes)), mFile(SDL_AllocRW()) {
        mFile->type = SDL_RWOPS_UNKNOWN;
        mFile->hidden.unknown.data1 = this;
        mFile->size = [](SDL_RWops* file) { return static_cast<Sint64>(of(file).mBytes.size()); };
        mFile->seek = seek;
        mFile->read = read;
        mFile->write = nullptr;
        mFile->close = nullptr;
    }
    ~CountedFile() { SDL_FreeRW(mFile); }
    CountedFile(const CountedFile&) = delete;
    CountedFile& operator=(const CountedFile&) = delete;

    SDL_RWops* file() { return mFile; }
    size_t size() const { return mBytes.size(); }
    size_t bytesRead() const { return mBytesRead; }
    size_t calls() const { return mCalls; }

private:
    std::string mBytes;
    SDL_RWops* mFile;
    Sint64 mPosition = 0;
    size_t mBytesRead = 0;
    size_t mCalls = 0;

    static CountedFile& of(SDL_RWops* file) { return *static_cast<CountedFile*>(file->hidden.unknown.data1); }

    static Sint64 seek(SDL_RWops* file, Sint64 offset, int from) {
        CountedFile& self = of(file);
        ++self.mCalls;
        const auto end = static_cast<Sint64>(self.mBytes.size());
        const Sint64 base = from == RW_SEEK_SET ? 0 : from == RW_SEEK_CUR ? self.mPosition : end;
        if (base + offset < 0)
            return -1;
        self.mPosition = base + offset; // may lie beyond the end, as in a real file
        return self.mPosition;
    }

    static size_t read(SDL_RWops* file, void* to, size_t size, size_t count) {
        CountedFile& self = of(file);
        ++self.mCalls;
        const Sint64 left = static_cast<Sint64>(self.mBytes.size()) - self.mPosition;
        const size_t objects = left <= 0 ? 0 : std::min(count, static_cast<size_t>(left) / size);
        if (objects > 0)
            memcpy(to, self.mBytes.data() + self.mPosition, objects * size);
        self.mPosition += static_cast<Sint64>(objects * size);
        self.mBytesRead += objects * size;
        return objects;
    }
};

/// Changes a file in up to four places, half of them near its beginning, where headers are.
class Mutator {
public:
    explicit Mutator(unsigned seed) : mRandom(seed) {}

    std::string mutated(std::string bytes) {
        for (size_t changes = 1 + below(4); changes > 0 && !bytes.empty(); --changes)
            change(bytes);
        return bytes;
    }

private:
    std::mt19937 mRandom;

    size_t below(size_t limit) { return mRandom() % limit; }

    void change(std::string& bytes) {
        const size_t reach = below(2) ? std::min(bytes.size(), size_t{64}) : bytes.size();
        const size_t at = below(reach);
        static constexpr char edges[] = "\x00\x01\x7F\x80\xFF\xFE\x20\x39\x22\x3C\x3E";
        switch (below(6)) {
        case 0:
            bytes[at] = static_cast<char>(mRandom());
            break;
        case 1:
            bytes[at] = edges[below(sizeof edges - 1)];
            break;
        case 2:
            bytes.replace(at, std::min(bytes.size() - at, size_t{4}), 1 + below(4), edges[below(5)]);
            break;
        case 3:
            bytes.insert(at, 1 + below(8), static_cast<char>(mRandom()));
            break;
        case 4:
            bytes.erase(at, 1 + below(8));
            break;
        default:
            bytes.resize(at);
        }
    }
};

} // namespace

class PictureSizeMutationTest : public KestroTest {
protected:
    /// Reads the size that 10,000 variations of a test picture claim.
    static void readVariations(const std::string& name) {
        const std::string bytes = readFile(picturePath(name));
        const std::string type = std::filesystem::path(name).extension().string().substr(1);
        Mutator mutator(20'000);
        int changedClaims = 0;
        for (int i = 0; i < 10'000; ++i) {
            CountedFile file(mutator.mutated(bytes));
            const kestro::PictureSize size = kestro::pictureSize(file.file(), type.c_str());
            changedClaims += size.width != 32 || size.height != 16;
            ASSERT_EQ(SDL_RWtell(file.file()), 0) << i;
            // Telling the formats apart takes some hundred calls; beyond that no byte is read more than a
            // few times, whatever the lengths in the file say.
            ASSERT_LE(file.bytesRead(), 10'000 + 8 * file.size()) << i;
            ASSERT_LE(file.calls(), 1'000 + 8 * file.size()) << i;
        }
        EXPECT_GT(changedClaims, 1'000) << "the variations do not reach what is read";
    }
};

TEST_F(PictureSizeMutationTest, Bmp) {
    readVariations("bmp-24bit.bmp");
    readVariations("bmp-24bit-os2.bmp");
}

TEST_F(PictureSizeMutationTest, Gif) {
    readVariations("gif-8bit-transparent.gif");
}

TEST_F(PictureSizeMutationTest, IconsAndCursors) {
    readVariations("icon.ico");
    readVariations("icon-png.ico");
    readVariations("cursor.cur");
}

TEST_F(PictureSizeMutationTest, Jpeg) {
    readVariations("jpeg-24bit.jpg");
    readVariations("jpeg-24bit-progressive.jpg");
}

TEST_F(PictureSizeMutationTest, Lbm) {
    readVariations("lbm-packed.lbm");
    readVariations("lbm-interleaved.lbm");
}

TEST_F(PictureSizeMutationTest, Pcx) {
    readVariations("pcx-8bit.pcx");
}

TEST_F(PictureSizeMutationTest, Png) {
    readVariations("png-8bit.png");
}

TEST_F(PictureSizeMutationTest, Pnm) {
    readVariations("pnm-p3.ppm");
    readVariations("pnm-p5.pgm");
}

TEST_F(PictureSizeMutationTest, Qoi) {
    readVariations("qoi-24bit.qoi");
}

TEST_F(PictureSizeMutationTest, Svg) {
    readVariations("svg.svg");
}

TEST_F(PictureSizeMutationTest, Tga) {
    readVariations("tga-32bit.tga");
}

TEST_F(PictureSizeMutationTest, Tiff) {
    readVariations("tiff-big-endian-16bit-size.tif");
    readVariations("tiff-little-endian-32bit-size.tif");
}

TEST_F(PictureSizeMutationTest, Webp) {
    readVariations("webp-24bit-lossless.webp");
    readVariations("webp-24bit-lossy.webp");
    readVariations("webp-32bit-extended.webp");
}

TEST_F(PictureSizeMutationTest, Xcf) {
    readVariations("xcf-24bit.xcf");
}

TEST_F(PictureSizeMutationTest, Xpm) {
    readVariations("xpm.xpm");
}

TEST_F(PictureSizeMutationTest, Xv) {
    readVariations("xv.xv");
}
