#include "support/kestro_test.h"
#include "support/picture_sizes.h"
#include "support/pictures.h"

/// What is particular to the header of each format.
class PictureFormatSizeTest : public KestroTest {
protected:
    static std::string bytesOf(const std::string& name) { return readFile(picturePath(name)); }

    /// The test picture `name` with `inserted` put in front of the first `mark`.
    static std::string withInserted(const std::string& name, const std::string& mark,
                                    const std::string& inserted) {
        std::string bytes = bytesOf(name);
        return bytes.insert(bytes.find(mark), inserted);
    }

    static std::string withReplaced(std::string bytes, size_t at, const std::string& replacement) {
        return bytes.replace(at, replacement.size(), replacement);
    }
};

TEST_F(PictureFormatSizeTest, BmpHeightMayBeNegative) {
    EXPECT_EQ(claimedSize(withReplaced(bytesOf("bmp-24bit.bmp"), 22, littleEndian(4, uint32_t(-20000)))),
              "32x20000");
    EXPECT_EQ(claimedSize(withReplaced(bytesOf("bmp-24bit.bmp"), 22, littleEndian(4, 0x80000000))),
              "32x2147483648");
}

TEST_F(PictureFormatSizeTest, GifClaimsTheLargerOfScreenAndFirstPicture) {
    const std::string gif = bytesOf("gif-8bit.gif");
    EXPECT_EQ(claimedSize(withReplaced(gif, 6, littleEndian(2, 10) + littleEndian(2, 500))), "32x500");
    const size_t picture = gif.find(',');
    EXPECT_EQ(claimedSize(withReplaced(gif, picture + 5, littleEndian(2, 40000))), "40000x16");
}

TEST_F(PictureFormatSizeTest, GifBlocksBeforeThePictureArePassedOver) {
    const std::string large = littleEndian(2, 20000) + littleEndian(2, 20000);
    const std::string gif = bytesOf("gif-8bit.gif");
    const size_t picture = gif.find(',');
    const std::string claiming = withReplaced(gif, picture + 5, large);
    const auto behind = [&](std::string blocks) { return std::string(claiming).insert(picture, blocks); };
    using std::string_literals::operator""s;
    EXPECT_EQ(claimedSize(behind("!\xFE\x05hello\x02,,\0"s)), "20000x20000") << "comment";
    EXPECT_EQ(claimedSize(behind("!\xF9\x04\0\0\0\0\0"s)), "20000x20000") << "graphic control";
    EXPECT_EQ(claimedSize(behind("!\xF9\0\x02;;\0"s)), "20000x20000")
        << "graphic control without its content";
    EXPECT_EQ(claimedSize(behind("junk"s)), "20000x20000");
    EXPECT_EQ(claimedSize(behind(";"s)), "32x16") << "nothing counts after the end";
    // The decoder finds the picture behind the same blocks.
    for (const std::string& blocks : {"!\xFE\x05hello\x02,,\0"s, "!\xF9\0\x02;;\0"s, "junk"s})
        EXPECT_EQ(decodedSize(std::string(gif).insert(picture, blocks)), "32x16");
}

TEST_F(PictureFormatSizeTest, IconWithTheMostColoursIsTheOneThatCounts) {
    const auto entry = [](char colors, uint32_t offset) {
        return std::string(2, '\x10') + colors + std::string(9, '\0') + littleEndian(4, offset);
    };
    const auto picture = [](uint32_t w, uint32_t h) {
        return littleEndian(4, 40) + littleEndian(4, w) + littleEndian(4, 2 * h) + littleEndian(2, 1) +
               littleEndian(2, 32) + std::string(24, '\0') + std::string(w * h * 4 + h * 4, '\x7F');
    };
    const std::string small = picture(8, 4);
    const std::string large = picture(16, 20);
    const std::string head = littleEndian(2, 0) + littleEndian(2, 1) + littleEndian(2, 2);
    const uint32_t first = 6 + 2 * 16;
    const auto second = static_cast<uint32_t>(first + small.size());
    const std::string secondHasMore = head + entry(16, first) + entry(0, second) + small + large;
    const std::string bothAlike = head + entry(16, first) + entry(16, second) + small + large;
    for (const std::string& icon : {secondHasMore, bothAlike})
        EXPECT_EQ(claimedSize(icon), decodedSize(icon));
    EXPECT_EQ(claimedSize(secondHasMore), "16x20");
    EXPECT_EQ(claimedSize(bothAlike), "8x4");
}

TEST_F(PictureFormatSizeTest, JpegSizeIsFoundBehindLongSegments) {
    const std::string exif = "\xFF\xE1" + bigEndian(2, 65535) + std::string(65533, '\xC0');
    const std::string jpeg = withInserted("jpeg-24bit.jpg", "\xFF\xDB", exif + exif + exif);
    EXPECT_EQ(claimedSize(jpeg), "32x16");
    EXPECT_EQ(decodedSize(jpeg), "32x16");
}

TEST_F(PictureFormatSizeTest, JpegSegmentThatHoldsAMarkerIsPassedOver) {
    const std::string bytes = headersClaiming(500, 600)[5].bytes.substr(2, 13);
    const std::string comment = "\xFF\xFE" + bigEndian(2, 2 + bytes.size()) + bytes;
    EXPECT_EQ(claimedSize(withInserted("jpeg-24bit.jpg", "\xFF\xDB", comment)), "32x16");
}

TEST_F(PictureFormatSizeTest, JpegMarkersMayBeFilledUp) {
    const std::string filled = withInserted("jpeg-24bit.jpg", "\xFF\xC0", "\xFF\xFF\xFF\xFF");
    EXPECT_EQ(claimedSize(filled), "32x16");
    EXPECT_EQ(decodedSize(filled), "32x16");
}

TEST_F(PictureFormatSizeTest, JpegMarkerWithoutContentHidesNothing) {
    // What looks like the length of a segment to one reader is passed over as junk by the decoder.
    const std::string standalone = "\xFF\x01" + bigEndian(2, 4) + "zz";
    EXPECT_EQ(claimedSize(withInserted("jpeg-24bit.jpg", "\xFF\xC0", standalone)), "32x16");
}

TEST_F(PictureFormatSizeTest, LbmChunksBeforeTheHeaderArePassedOver) {
    using std::string_literals::operator""s;
    const std::string note = withInserted("lbm-packed.lbm", "BMHD", "ANNO" + bigEndian(4, 3) + "abc\0"s);
    EXPECT_EQ(claimedSize(note), "32x16");
    EXPECT_EQ(decodedSize(note), "32x16");
    // The decoder takes four bytes of this one, whatever its length says, and one more if that is odd.
    for (const uint32_t length : {4u, 98u, 99u}) {
        const std::string content(length % 2 ? 5 : 4, '\0');
        const std::string mode =
            withInserted("lbm-packed.lbm", "BMHD", "CAMG" + bigEndian(4, length) + content);
        EXPECT_EQ(claimedSize(mode), "32x16") << length;
        EXPECT_EQ(decodedSize(mode), "32x16") << length;
    }
}

TEST_F(PictureFormatSizeTest, LbmRowsAreWholeWords) {
    const std::string bytes = bytesOf("lbm-packed.lbm");
    const std::string narrower = withReplaced(bytes, bytes.find("BMHD") + 8, bigEndian(2, 30));
    EXPECT_EQ(claimedSize(narrower), "32x16");
    EXPECT_EQ(decodedSize(narrower), "32x16");
}

TEST_F(PictureFormatSizeTest, PcxSizeIsTheDistanceOfItsCorners) {
    const auto corner = [](int x, int y) {
        return littleEndian(2, static_cast<uint16_t>(x)) + littleEndian(2, static_cast<uint16_t>(y));
    };
    const std::string pcx = bytesOf("pcx-24bit.pcx");
    EXPECT_EQ(claimedSize(withReplaced(pcx, 4, corner(-5, 100) + corner(26, 115))), "32x16");
    EXPECT_EQ(decodedSize(withReplaced(pcx, 4, corner(-5, 100) + corner(26, 115))), "32x16");
    EXPECT_EQ(claimedSize(withReplaced(pcx, 4, corner(-32768, -32768) + corner(32767, 32767))),
              "65536x65536");
    EXPECT_EQ(claimedSize(withReplaced(pcx, 4, corner(10, 10) + corner(0, 0))), "0x0");
}

TEST_F(PictureFormatSizeTest, PngChunksBeforeTheHeaderHideNothing) {
    const std::string known = bytesOf("png-24bit.png");
    std::string bytes = known;
    for (const size_t length : {size_t{0}, size_t{4}, size_t{1000}, size_t{100000}})
        bytes.insert(8, pngChunk("abCd" + std::string(length, 'x')));
    EXPECT_EQ(claimedSize(bytes), "32x16");
    EXPECT_EQ(decodedSize(bytes), "32x16");
}

TEST_F(PictureFormatSizeTest, PngChunkLongerThanTheFileEndsTheSearch) {
    std::string bytes = bytesOf("png-24bit.png");
    bytes.insert(8, bigEndian(4, UINT32_MAX) + "abCd");
    EXPECT_EQ(claimedSize(bytes), "0x0");
}

TEST_F(PictureFormatSizeTest, PnmHeaderMayHoldCommentsAnywhere) {
    const std::string header = "P5#one\n#two\r \t\n#20000 20000\n32#three\n16 255\n";
    EXPECT_EQ(claimedSize(header), "32x0") << "a number ends at any other character, which is then gone";
    const std::string usual = "P5#one\n#two\r \t\n#20000 20000\n32 #three\n16 255\n";
    EXPECT_EQ(claimedSize(usual), "32x16");
    EXPECT_EQ(decodedSize(usual + std::string(32 * 16, 'x')), "32x16");
}

TEST_F(PictureFormatSizeTest, TiffSizeHasAnyWholeNumberType) {
    struct {
        uint32_t type;
        size_t bytes;
    } const types[] = {{1, 1}, {3, 2}, {4, 4}, {6, 1}, {8, 2}, {9, 4}};
    for (const auto& type : types)
        for (const bool big : {false, true}) {
            std::string tiff =
                bytesOf(big ? "tiff-big-endian-32bit-size.tif" : "tiff-little-endian-32bit-size.tif");
            const auto number = big ? bigEndian : littleEndian;
            for (const size_t entry : {size_t{10}, size_t{22}}) {
                const uint32_t side = entry == 10 ? 32 : 16;
                tiff = withReplaced(tiff, entry + 2, number(2, type.type) + number(4, 1));
                std::string value = number(type.bytes, side);
                value.resize(4);
                tiff = withReplaced(tiff, entry + 8, value);
            }
            EXPECT_EQ(claimedSize(tiff), "32x16") << type.type << " " << big;
            EXPECT_EQ(decodedSize(tiff), "32x16") << type.type << " " << big;
        }
}

TEST_F(PictureFormatSizeTest, TiffSizeOfEightBytesStandsElsewhere) {
    for (const bool big : {false, true}) {
        std::string tiff =
            bytesOf(big ? "tiff-big-endian-32bit-size.tif" : "tiff-little-endian-32bit-size.tif");
        const auto number = big ? bigEndian : littleEndian;
        tiff = withReplaced(tiff, 12, number(2, 16) + number(4, 1) + number(4, tiff.size()));
        EXPECT_EQ(claimedSize(tiff + number(8, 32)), "32x16");
        EXPECT_EQ(decodedSize(tiff + number(8, 32)), "32x16");
        EXPECT_EQ(claimedSize(tiff + number(8, 0x100000020)), "4294967295x16");
        EXPECT_EQ(claimedSize(tiff), "0x16") << "beyond the end";
    }
}

TEST_F(PictureFormatSizeTest, TiffTileCountsToo) {
    const std::string tiff = bytesOf("tiff-little-endian-32bit-size.tif");
    const size_t bitsPerSample = 10 + 2 * 12;
    const std::string tile = littleEndian(2, 322) + littleEndian(2, 4) + littleEndian(4, 1);
    EXPECT_EQ(claimedSize(withReplaced(tiff, bitsPerSample, tile + littleEndian(4, 30000))), "30000x16");
}

TEST_F(PictureFormatSizeTest, TiffDirectoryBeyondTheEndClaimsNothing) {
    const std::string tiff = bytesOf("tiff-little-endian-32bit-size.tif");
    EXPECT_EQ(claimedSize(withReplaced(tiff, 4, littleEndian(4, UINT32_MAX))), "0x0");
}

TEST_F(PictureFormatSizeTest, WebpFieldsOfFourteenBitsAreReadWhole) {
    const std::string lossless = bytesOf("webp-24bit-lossless.webp");
    EXPECT_EQ(claimedSize(withReplaced(lossless, 21, "\xFF\xFF\xFF\x0F")), "16384x16384");
    EXPECT_EQ(claimedSize(withReplaced(lossless, 21, littleEndian(4, (300 - 1) | (200 - 1) << 14))),
              "300x200");
    const std::string lossy = bytesOf("webp-24bit-lossy.webp");
    EXPECT_EQ(claimedSize(withReplaced(lossy, 26, "\xFF\xFF\xFF\xFF")), "16383x16383");
    EXPECT_EQ(claimedSize(withReplaced(lossy, 26, littleEndian(2, 300 | 1 << 14) + littleEndian(2, 200))),
              "300x200");
}

TEST_F(PictureFormatSizeTest, XpmSizeBeginsTheFirstText) {
    EXPECT_EQ(claimedSize("/* XPM */ \"  +7\t8 1 1\" \"20000 20000\""), "7x8");
    EXPECT_EQ(claimedSize("/* XPM */ no text"), "0x0");
}
