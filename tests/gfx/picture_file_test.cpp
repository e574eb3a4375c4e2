#include "gfx/picture_file.h"

#include "support/kestro_test.h"
#include "support/opened_paths.h"
#include "support/pictures.h"
#include "support/sdl_memory.h"
#include "support/surfaces.h"

#include <SDL_image.h>

#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string grayPicture(int width, int height) {
    return "P5 " + std::to_string(width) + " " + std::to_string(height) + " 255\n" +
           std::string(static_cast<size_t>(width) * static_cast<size_t>(height), '\x80');
}

size_t openFiles() {
    const fs::directory_iterator files("/proc/self/fd");
    return static_cast<size_t>(std::distance(begin(files), end(files)));
}

/// The formats that are decoded in a child are left out under the address sanitizer: its allocator may be
/// locked by another thread at the fork, and the child would wait for it in vain. glibc's own sees to that.
bool threadsMayDecode([[maybe_unused]] const std::string& name) {
#ifdef __SANITIZE_ADDRESS__
    const std::string type = fs::path(name).extension();
    return type == ".png" || type == ".jpg" || type == ".webp" || type == ".tif" || type == ".bmp";
#else
    return true;
#endif
}

} // namespace

class PictureFileTest : public KestroTest {
protected:
    static MemorySurface decoded(const std::string& path) {
        return MemorySurface(decodePictureFile(path.c_str()));
    }

    void TearDown() override {
        alarm(0);
        KestroTest::TearDown();
    }

    /// Ends a test that hangs.
    static void hurry() { alarm(20); }
};

TEST_F(PictureFileTest, EveryFormatIsDecodedAsSdlImageDoes) {
    for (const std::string& name : pictureNames()) {
        SCOPED_TRACE(name);
        const MemorySurface got = decoded(picturePath(name));
        const MemorySurface wanted(IMG_Load(picturePath(name).c_str()));
        ASSERT_EQ(got != nullptr, wanted != nullptr);
        if (!wanted) {
            EXPECT_EQ(name, "icon-png.ico");
            continue;
        }
        ASSERT_EQ(got->format->format, wanted->format->format);
        ASSERT_EQ(got->w, 32);
        ASSERT_EQ(got->h, 16);
        for (int y = 0; y < 16; ++y)
            EXPECT_EQ(memcmp(static_cast<char*>(got->pixels) + y * got->pitch,
                             static_cast<char*>(wanted->pixels) + y * wanted->pitch,
                             size_t{32} * got->format->BytesPerPixel),
                      0)
                << "row " << y;
    }
}

TEST_F(PictureFileTest, AbsurdClaimIsRefusedBeforeMemoryIsTaken) {
    for (const PictureHeader& header : headersClaiming(20000, 20000)) {
        SCOPED_TRACE(header.extension);
        const std::string path = folder() + "/absurd." + header.extension;
        writeFile(path, header.bytes);
        const SdlMemory memory;
        EXPECT_EQ(decodePictureFile(path.c_str()), nullptr);
        EXPECT_LT(memory.largest(), 100'000u);
        EXPECT_EQ(takeLog(), "picture " + path + " refused: 20000x20000 is too large\n");
    }
}

TEST_F(PictureFileTest, RefusedSizesWouldHaveTakenMemory) {
    // The same header with a size that is allowed: what is watched above does see the picture's memory.
    for (const PictureHeader& header : headersClaiming(4000, 4000)) {
        if (header.extension != "bmp" && header.extension != "png" && header.extension != "pnm")
            continue;
        const std::string path = folder() + "/large." + header.extension;
        writeFile(path, header.bytes);
        const SdlMemory memory;
        MemorySurface(IMG_Load(path.c_str())); // which decodePictureFile may leave to another process
        EXPECT_GE(memory.largest(), 4000u * 4000u / 8) << header.extension;
    }
}

TEST_F(PictureFileTest, EitherSideOrTheAreaAloneIsReasonEnough) {
    for (const auto& [w, h] : {std::pair{16385, 1}, {1, 16385}, {8001, 8000}, {16384, 16384}}) {
        writeFile("large.qoi", "qoif" + bigEndian(4, static_cast<uint32_t>(w)) +
                                   bigEndian(4, static_cast<uint32_t>(h)) + "\3\1");
        EXPECT_EQ(decodePictureFile("large.qoi"), nullptr);
        EXPECT_EQ(takeLog(), "picture large.qoi refused: " + std::to_string(w) + "x" + std::to_string(h) +
                                 " is too large\n");
    }
}

TEST_F(PictureFileTest, LargestSidesAreDecoded) {
    for (const auto& [w, h] : {std::pair{16384, 1}, {1, 16384}}) {
        writeFile("long.pgm", grayPicture(w, h));
        const MemorySurface picture = decoded("long.pgm");
        ASSERT_TRUE(picture) << IMG_GetError();
        EXPECT_EQ(picture->w, w);
        EXPECT_EQ(picture->h, h);
    }
}

TEST_F(PictureFileTest, LargeClaimOfATinyFileIsRefusedBeforeMemoryIsTaken) {
    for (const PictureHeader& header : headersClaiming(8000, 8000)) {
        if (header.extension == "svg")
            continue;
        SCOPED_TRACE(header.extension);
        const std::string path = folder() + "/large." + header.extension;
        writeFile(path, header.bytes);
        const SdlMemory memory;
        EXPECT_EQ(decodePictureFile(path.c_str()), nullptr);
        EXPECT_LT(memory.largest(), 100'000u);
        EXPECT_EQ(takeLog(), "picture " + path + " refused: 8000x8000 from " +
                                 std::to_string(header.bytes.size()) + " bytes\n");
    }
}

TEST_F(PictureFileTest, DrawingMayBeLargeAndItsFileTiny) {
    writeFile("large.svg", R"(<svg width="2100" height="2000"><rect width="9" height="9"/></svg>)");
    EXPECT_TRUE(decoded("large.svg"));
}

TEST_F(PictureFileTest, JpegThatGoesOverThePictureAgainAndAgainIsRefused) {
    std::string file = readFile(picturePath("jpeg-24bit-progressive.jpg"));
    const size_t scan = file.rfind("\xFF\xDA");
    const size_t end = file.rfind("\xFF\xD9");
    ASSERT_LT(scan, end);
    const std::string pass = file.substr(scan, end - scan);
    for (int i = 0; i < 101; ++i)
        file.insert(end, pass);
    writeFile("passes.jpg", file);
    EXPECT_EQ(decodePictureFile("passes.jpg"), nullptr);
    EXPECT_THAT(takeLog(), testing::MatchesRegex("picture passes.jpg refused: 1[01][0-9] passes\n"));
}

TEST_F(PictureFileTest, TextsInAPngAreNotUnpacked) {
    const std::string file = readFile(picturePath("png-24bit.png"));
    constexpr size_t afterHeader = 33;
    for (const char* kind : {"zTXt", "iTXt", "iCCP"}) {
        SCOPED_TRACE(kind);
        std::string chunk = pngChunk(std::string(kind) + "text");
        chunk.back() = static_cast<char>(chunk.back() + 1); // of which the decoder would complain
        writeFile("texts.png", file.substr(0, afterHeader) + chunk + chunk + file.substr(afterHeader));
        testing::internal::CaptureStderr();
        const MemorySurface got = decoded("texts.png");
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        const MemorySurface wanted = decoded(picturePath("png-24bit.png"));
        ASSERT_TRUE(got && wanted);
        EXPECT_EQ(memcmp(got->pixels, wanted->pixels, static_cast<size_t>(wanted->pitch) * 16), 0);
    }
}

TEST_F(PictureFileTest, PngThatEndsWithinATextIsNull) {
    const std::string file = readFile(picturePath("png-24bit.png"));
    writeFile("cut.png", file.substr(0, 33) + pngChunk("zTXt" + std::string(100, 'x')).substr(0, 50));
    EXPECT_EQ(decodePictureFile("cut.png"), nullptr);
}

TEST_F(PictureFileTest, DrawingThatTurnsOutTooLargeIsRefusedAfterAll) {
    writeFile("long.svg", "<svg><rect x=\"0\" y=\"0\" width=\"16400\" height=\"2\"/></svg>");
    EXPECT_EQ(decodePictureFile("long.svg"), nullptr);
    EXPECT_EQ(takeLog(), "picture long.svg refused: 16400x2 is too large\n");
}

TEST_F(PictureFileTest, FileIsOpenedOnce) {
    const std::string path = picturePath("png-24bit.png");
    OpenedPaths opened;
    EXPECT_TRUE(decoded(path));
    EXPECT_THAT(opened.take(), testing::ElementsAre(path));
}

TEST_F(PictureFileTest, NoFileIsLeftOpenAndNoMemoryLost) {
    writeFile("large.qoi", "qoif" + bigEndian(4, 20000) + bigEndian(4, 20000) + "\3\1");
    writeFile("broken.bmp", "BM");
    const auto decodeAll = [] {
        for (const char* path : {"large.qoi", "broken.bmp", "missing.png", "."})
            EXPECT_FALSE(decoded(path)) << path;
        EXPECT_TRUE(decoded(picturePath("png-24bit.png")));
    };
    decodeAll();
    const size_t files = openFiles();
    const int allocations = SDL_GetNumAllocations();
    decodeAll();
    EXPECT_EQ(openFiles(), files);
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
    takeLog();
}

TEST_F(PictureFileTest, NothingToOpenIsNull) {
    EXPECT_EQ(decodePictureFile(nullptr), nullptr);
    EXPECT_EQ(decodePictureFile(""), nullptr);
    EXPECT_EQ(decodePictureFile("missing.png"), nullptr);
    EXPECT_EQ(decodePictureFile("/nowhere/missing.png"), nullptr);
    EXPECT_EQ(decodePictureFile((folder() + "/" + std::string(5000, 'x')).c_str()), nullptr);
}

TEST_F(PictureFileTest, WhatIsNoRegularFileIsNeverOpened) {
    hurry();
    fs::create_directory("folder.png");
    ASSERT_EQ(mkfifo("pipe.png", 0600), 0);
    fs::create_symlink("pipe.png", "link-to-pipe.png");
    OpenedPaths opened;
    for (const char* path : {"folder.png", "pipe.png", "link-to-pipe.png", "/dev/zero", "/dev/null"})
        EXPECT_EQ(decodePictureFile(path), nullptr) << path;
    EXPECT_THAT(opened.take(), testing::IsEmpty());
}

TEST_F(PictureFileTest, EmptyAndUnreadableFilesAreNull) {
    hurry();
    writeFile("empty.png", "");
    EXPECT_EQ(decodePictureFile("empty.png"), nullptr);
    writeFile("text.png", "no picture at all, just some words\n");
    EXPECT_EQ(decodePictureFile("text.png"), nullptr);
    EXPECT_EQ(decodePictureFile("/proc/self/mem"), nullptr) << "a regular file whose reads fail";
}

TEST_F(PictureFileTest, LinksAreFollowed) {
    fs::create_symlink(picturePath("png-24bit.png"), "link.png");
    EXPECT_TRUE(decoded("link.png"));
}

TEST_F(PictureFileTest, SeveralThreadsDecodeAtOnceWithoutAScreen) {
    std::vector<std::string> paths;
    for (const std::string& name : pictureNames())
        if (threadsMayDecode(name) && decoded(picturePath(name)))
            paths.push_back(picturePath(name));
    ASSERT_GE(paths.size(), 10U);
    IMG_Quit(); // so that all of them meet the formats for the first time
    std::vector<size_t> decodedBy(4);
    std::vector<std::thread> threads;
    for (size_t& count : decodedBy)
        threads.emplace_back([&] {
            for (const std::string& path : paths)
                count += decoded(path) != nullptr;
            SDL_TLSCleanup(); // SDL's place for its error texts
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(decodedBy, testing::Each(paths.size()));
}

TEST_F(PictureFileTest, WrongExtensionDoesNotMatterButForTga) {
    fs::copy_file(picturePath("png-24bit.png"), "picture.jpg");
    fs::copy_file(picturePath("png-24bit.png"), "picture");
    fs::copy_file(picturePath("tga-24bit.tga"), "tga.TGA");
    fs::copy_file(picturePath("tga-24bit.tga"), "tga.png");
    EXPECT_TRUE(decoded("picture.jpg"));
    EXPECT_TRUE(decoded("picture"));
    EXPECT_TRUE(decoded("tga.TGA"));
    EXPECT_FALSE(decoded("tga.png"));
}
