#include "support/kestro_test.h"
#include "support/picture_sizes.h"
#include "support/pictures.h"

#include <filesystem>

using kestro::isTooLarge;

class PictureSizeTest : public KestroTest {
protected:
    static std::string bytesOf(const std::string& name) { return readFile(picturePath(name)); }

    static std::string extensionOf(const std::string& name) {
        return std::filesystem::path(name).extension().string().substr(1);
    }
};

TEST_F(PictureSizeTest, EveryTestPictureClaimsTheSizeThatItDecodesTo) {
    const std::vector<std::string> names = pictureNames();
    ASSERT_GE(names.size(), 40u);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const std::string type = extensionOf(name);
        EXPECT_EQ(claimedSize(bytesOf(name), type.c_str()), "32x16");
        if (name == "icon-png.ico")
            continue; // SDL_image 2.6 does not decode it; later ones may
        EXPECT_EQ(decodedSize(bytesOf(name), type.c_str()), "32x16");
    }
}

TEST_F(PictureSizeTest, HeadersOfEveryFormatTellTheirClaim) {
    for (const PictureHeader& header : headersClaiming(20000, 20000)) {
        SCOPED_TRACE(header.extension + ": " + testing::PrintToString(header.bytes));
        EXPECT_LE(header.bytes.size(), header.extension == "pcx" ? 128u : 65u);
        EXPECT_EQ(claimedSize(header.bytes, header.extension.c_str()), "20000x20000");
    }
    for (const PictureHeader& header : headersClaiming(12345, 19))
        EXPECT_THAT(claimedSize(header.bytes, header.extension.c_str()),
                    testing::AnyOf("12345x19", "12352x19")) // one format has rows of whole words
            << header.extension;
}

TEST_F(PictureSizeTest, LimitsThemselvesAreAllowed) {
    EXPECT_FALSE(isTooLarge({16384, 1}));
    EXPECT_FALSE(isTooLarge({1, 16384}));
    EXPECT_TRUE(isTooLarge({16385, 1}));
    EXPECT_TRUE(isTooLarge({1, 16385}));
    EXPECT_FALSE(isTooLarge({8000, 8000}));
    EXPECT_TRUE(isTooLarge({8001, 8000}));
    EXPECT_FALSE(isTooLarge({16000, 4000}));
    EXPECT_TRUE(isTooLarge({16000, 4001}));
    EXPECT_TRUE(isTooLarge({16384, 16384}));
    EXPECT_TRUE(isTooLarge({UINT32_MAX, UINT32_MAX}));
    EXPECT_TRUE(isTooLarge({65536, 65536})) << "the product does not fit 32 bits";
    EXPECT_FALSE(isTooLarge({0, 0}));
}

TEST_F(PictureSizeTest, SideThatNeeds32BitsStaysWhole) {
    EXPECT_EQ(claimedSize("qoif" + bigEndian(4, UINT32_MAX) + bigEndian(4, 1u << 31) + "\3\1"),
              "4294967295x2147483648");
    EXPECT_EQ(claimedSize("P6 99999999999999999999 4294967296 255\n"), "4294967295x4294967295");
    EXPECT_EQ(claimedSize("<svg width=\"1e99\" height=\"99999999999\"/>"), "4294967295x4294967295");
}

TEST_F(PictureSizeTest, WhatIsNoPictureClaimsNothing) {
    EXPECT_EQ(claimedSize("just a text", "txt"), "0x0");
    EXPECT_EQ(claimedSize("x"), "0x0");
    EXPECT_EQ(claimedSize(std::string(1000, '\0')), "0x0");
    EXPECT_EQ(claimedSize(bytesOf("tga-24bit.tga"), "png"), "0x0") << "that format is told by its name alone";
}

TEST_F(PictureSizeTest, NameThatSaysTgaDecidesInAnyCase) {
    EXPECT_EQ(claimedSize(bytesOf("tga-24bit.tga"), "TGA"), "32x16");
    EXPECT_EQ(claimedSize(bytesOf("tga-24bit.tga"), "Tga"), "32x16");
    const std::string png = bytesOf("png-24bit.png");
    EXPECT_EQ(claimedSize(png, "tga"), "18505x21060") << "bytes 12 to 15 of the file: IHDR";
}

TEST_F(PictureSizeTest, CutOffFilesClaimAtMostWhatTheWholeOnesDo) {
    for (const std::string& name : pictureNames()) {
        SCOPED_TRACE(name);
        const std::string bytes = bytesOf(name);
        for (size_t length = 1; length < bytes.size(); length += length < 300 ? 1 : 97) {
            const kestro::PictureSize claim = claimOf(bytes.substr(0, length), extensionOf(name).c_str());
            EXPECT_LE(claim.width, 32u) << length;
            EXPECT_LE(claim.height, 16u) << length;
        }
    }
}
