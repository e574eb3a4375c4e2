#include "support/kestro_test.h"
#include "support/picture_sizes.h"

namespace {

constexpr const char* shape = "<rect x=\"0\" y=\"0\" width=\"10\" height=\"20\" fill=\"red\"/>";

std::string claimed(const std::string& bytes) {
    return claimedSize(bytes, "svg");
}

std::string decoded(const std::string& bytes) {
    return decodedSize(bytes, "svg");
}

/// A drawing whose outermost tag has these attributes.
std::string drawing(const std::string& attributes) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + attributes + ">" + shape + "</svg>";
}

} // namespace

class SvgSizeTest : public KestroTest {};

TEST_F(SvgSizeTest, WhatADrawingSaysIsWhatItDecodesTo) {
    const struct {
        const char* attributes;
        const char* size;
    } drawings[] = {
        {"width=\"33\" height=\"44\"", "33x44"},
        {"width='33' height='44'", "33x44"},
        {"width = \"33\"\n\theight= \"44\"", "33x44"},
        {"width=\"1e2\" height=\"70.2px\"", "100x71"},
        {"width=\".5e2\" height=\"+5\"", "50x5"},
        {"width=\"1in\" height=\"1.5in\"", "96x144"},
        {"width=\"10pt\" height=\"2pc\"", "14x32"},
        {"width=\"10mm\" height=\"2cm\"", "38x76"},
        {"viewBox=\"0 0 50 60\"", "50x60"},
        {"viewBox=\"-5,-6,50,60\"", "50x60"},
        {"viewBox=\"0 0 100 1e3\"", "100x1000"},
        {"width=\"10\" viewBox=\"0 0 50 60\"", "10x60"},
        {"width=\"50%\" height=\"70\" viewBox=\"0 0 50 60\"", "50x70"},
        {"height=\"44\" data-x=\"width=9\" width=\"33\"", "33x44"},
    };
    for (const auto& known : drawings) {
        SCOPED_TRACE(known.attributes);
        EXPECT_EQ(claimed(drawing(known.attributes)), known.size);
        EXPECT_EQ(decoded(drawing(known.attributes)), known.size);
    }
}

TEST_F(SvgSizeTest, SideWithoutClaimIsUnknown) {
    EXPECT_EQ(claimed(drawing("")), "0x0");
    EXPECT_EQ(decoded(drawing("")), "10x20") << "the size of its shapes";
    EXPECT_EQ(claimed(drawing("WIDTH=\"33\" height=\"44\"")), "0x44");
    EXPECT_EQ(claimed(drawing("width=\"-33\" height=\"44\"")), "0x44");
    EXPECT_EQ(claimed(drawing("width=\"inf\" height=\"nan\"")), "0x0");
    EXPECT_EQ(claimed(drawing("viewBox=\"0 0 100\"")), "100x0");
}

TEST_F(SvgSizeTest, OtherTagsClaimNothing) {
    for (const char* text : {"<svgx width=\"7\" height=\"8\"/>", "<g width=\"7\" height=\"8\"/>",
                             "<!-- <svg width=\"7\" height=\"8\"> -->", "< /svg width=\"7\">"})
        EXPECT_EQ(claimed(std::string(text) + "<svg width=\"5\" height=\"6\"/>"), "5x6") << text;
}

TEST_F(SvgSizeTest, LargestOfSeveralTagsCounts) {
    const std::string nested =
        std::string("<svg width=\"11\" height=\"50\"><svg width=\"21\" height=\"22\">") + shape +
        "</svg></svg>";
    EXPECT_EQ(claimed(nested), "21x50");
    EXPECT_EQ(decoded(nested), "21x22");
}

TEST_F(SvgSizeTest, ClaimFarFromTheBeginningIsFound) {
    const std::string far(100'000, ' ');
    EXPECT_EQ(claimed("<svg" + far + "a='" + far + "' viewBox='0" + far + "0" + far + "300 400'/>"),
              "300x400");
}

TEST_F(SvgSizeTest, UnfinishedTagsEndWithTheFile) {
    for (const char* text :
         {"<svg", "<svg ", "<svg width", "<svg width=", "<svg width=\"", "<svg viewBox=\"0 "})
        EXPECT_EQ(claimed(text), "0x0") << text;
    EXPECT_EQ(claimed("<svg width=\"12"), "12x0");
}
