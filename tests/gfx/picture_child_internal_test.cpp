#include "gfx/picture_child.h"

#include "gfx/picture_file.h"
#include "support/kestro_test.h"
#include "support/pictures.h"
#include "support/surfaces.h"

#include <SDL_image.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using kestro::decodeInChild;
using kestro::PictureSize;

namespace {

bool refusesNone(PictureSize) {
    return false;
}

long openFiles() {
    const fs::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

/// A file whose reading does what the test wants.
class OddFile {
public:
    explicit OddFile(std::function<size_t()> read) : mRead(std::move(read)), mFile(SDL_AllocRW()) {
        mFile->size = [](SDL_RWops*) -> Sint64 { return 100; };
        mFile->seek = [](SDL_RWops*, Sint64, int) -> Sint64 { return 0; };
        mFile->read = [](SDL_RWops* file, void*, size_t, size_t) -> size_t {
            return static_cast<OddFile*>(file->hidden.unknown.data1)->mRead();
        };
        mFile->hidden.unknown.data1 = this;
    }
    ~OddFile() { SDL_FreeRW(mFile); }
    OddFile(const OddFile&) = delete;
    OddFile& operator=(const OddFile&) = delete;

    SDL_RWops* get() const { return mFile; }

private:
    std::function<size_t()> mRead;
    SDL_RWops* mFile;
};

class PictureChildTest : public KestroTest {
protected:
    /// The picture with this content, decoded in a child or right here.
    static MemorySurface decoded(const std::string& content, bool inChild) {
        SDL_RWops* const file = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
        MemorySurface picture(inChild ? decodeInChild(file, nullptr, refusesNone)
                                      : IMG_LoadTyped_RW(file, 0, nullptr));
        SDL_RWclose(file);
        return picture;
    }

    static void expectTheSame(const MemorySurface& got, const MemorySurface& wanted) {
        ASSERT_TRUE(got && wanted);
        ASSERT_EQ(got->format->format, wanted->format->format);
        ASSERT_EQ(got->w, wanted->w);
        ASSERT_EQ(got->h, wanted->h);
        const auto width = static_cast<size_t>(got->w) * got->format->BytesPerPixel;
        for (int y = 0; y < got->h; ++y)
            EXPECT_EQ(memcmp(static_cast<char*>(got->pixels) + y * got->pitch,
                             static_cast<char*>(wanted->pixels) + y * wanted->pitch, width),
                      0)
                << y;
        Uint32 gotKey = 0;
        Uint32 wantedKey = 0;
        EXPECT_EQ(SDL_GetColorKey(got.get(), &gotKey), SDL_GetColorKey(wanted.get(), &wantedKey));
        EXPECT_EQ(gotKey, wantedKey);
        const SDL_Palette* const palette = wanted->format->palette;
        ASSERT_EQ(got->format->palette != nullptr, palette != nullptr);
        for (int i = 0; palette && i < palette->ncolors; ++i)
            EXPECT_EQ(memcmp(&got->format->palette->colors[i], &palette->colors[i], sizeof(SDL_Color)), 0)
                << i;
    }

    static constexpr const char* transparent =
        "/* XPM */\nstatic char *a[] = {\n\"2 2 2 1\",\n\"x c None\",\n"
        "\"y c #102030\",\n\"xy\",\n\"yx\"};\n";
};

} // namespace

TEST_F(PictureChildTest, GivesEveryFormatAsItIsDecodedRightHere) {
    for (const std::string& name : pictureNames()) {
        SCOPED_TRACE(name);
        const std::string content = readFile(picturePath(name));
        if (const MemorySurface wanted = decoded(content, false))
            expectTheSame(decoded(content, true), wanted);
    }
}

TEST_F(PictureChildTest, KeepsTheColourThatIsTransparent) {
    expectTheSame(decoded(transparent, true), decoded(transparent, false));
}

TEST_F(PictureChildTest, ReadsOnFromWhereTheFileStands) {
    const std::string content = std::string("before") + transparent;
    SDL_RWops* const file = SDL_RWFromConstMem(content.data(), static_cast<int>(content.size()));
    SDL_RWseek(file, 6, RW_SEEK_SET);
    EXPECT_TRUE(kestro::hasFragileDecoder(file, nullptr));
    EXPECT_EQ(SDL_RWtell(file), 6);
    expectTheSame(MemorySurface(decodeInChild(file, nullptr, refusesNone)), decoded(transparent, false));
    SDL_RWclose(file);
}

TEST_F(PictureChildTest, ACrashOfTheDecoderIsAPictureThatCannotBeRead) {
    const OddFile crashing([]() -> size_t { abort(); });
    EXPECT_EQ(decodeInChild(crashing.get(), nullptr, refusesNone), nullptr);
}

TEST_F(PictureChildTest, ADecoderThatHangsIsEnded) {
    const OddFile hanging([]() -> size_t {
        for (;;)
            pause();
    });
    EXPECT_EQ(decodeInChild(hanging.get(), nullptr, refusesNone, 100), nullptr);
}

TEST_F(PictureChildTest, ASizeThatIsRefusedIsNotRead) {
    SDL_RWops* const file = SDL_RWFromConstMem(transparent, static_cast<int>(strlen(transparent)));
    std::vector<std::pair<uint32_t, uint32_t>> asked;
    EXPECT_EQ(decodeInChild(file, nullptr,
                            [&](PictureSize size) {
                                asked.emplace_back(size.width, size.height);
                                return true;
                            }),
              nullptr);
    EXPECT_THAT(asked, testing::ElementsAre(std::pair(2u, 2u)));
    SDL_RWclose(file);
}

TEST_F(PictureChildTest, LeavesNeitherProcessesNorOpenFiles) {
    const long before = openFiles();
    const OddFile crashing([]() -> size_t { abort(); });
    for (int i = 0; i < 3; ++i) {
        decodeInChild(crashing.get(), nullptr, refusesNone);
        decoded(transparent, true);
    }
    EXPECT_EQ(openFiles(), before);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(PictureChildTest, FormatsOfWellKeptLibrariesNeedNone) {
    for (const std::string& name : pictureNames()) {
        SDL_RWops* const file = SDL_RWFromFile(picturePath(name).c_str(), "rb");
        const std::string extension = name.substr(name.rfind('.') + 1);
        const bool sturdy = extension == "bmp" || extension == "jpg" || extension == "png" ||
                            extension == "tif" || extension == "webp";
        EXPECT_EQ(kestro::hasFragileDecoder(file, extension.c_str()), !sturdy) << name;
        EXPECT_TRUE(kestro::hasFragileDecoder(file, "TGA")) << name; // decoded as that, whatever it is
        SDL_RWclose(file);
    }
}

TEST_F(PictureChildTest, WhatIsNoPictureNeedsNone) {
    SDL_RWops* const file = SDL_RWFromConstMem("hello, world", 12);
    EXPECT_FALSE(kestro::hasFragileDecoder(file, "txt"));
    EXPECT_FALSE(kestro::hasFragileDecoder(file, nullptr));
    SDL_RWclose(file);
}

// A quote is missing, so that SDL_image 2.6.3 loses its place, and crashes.
TEST_F(PictureChildTest, APictureThatCrashesItsDecoderIsRefused) {
    std::string broken = readFile(picturePath("xpm.xpm"));
    const size_t row = broken.find("\"BBBB");
    ASSERT_NE(row, std::string::npos);
    for (size_t at = row; at < broken.size(); at += 5) {
        std::string cut = broken;
        cut.erase(at, 3);
        writeFile("broken.xpm", cut);
        SDL_FreeSurface(decodePictureFile("broken.xpm"));
    }
    EXPECT_EQ(takeLog(), "");
}
