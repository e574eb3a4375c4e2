#include "gfx/text.h"

#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <climits>
#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

/// The height of a font of 17 points, which makes the numbers round.
static constexpr int height = 20;

class TextLinesTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        small = font(17);
        ASSERT_EQ(TTF_FontHeight(small), height);
        drawn.take();
    }

    /// Draws the lines at the top left of a rectangle at (10, 100).
    std::vector<std::string> lines(const char* text, const char* separators, int rectHeight) {
        EXPECT_EQ(DrawStringLines(small, {10, 100, 300, rectHeight}, text, separators, white, 0, false), 0);
        return drawn.take();
    }

    std::vector<std::string> spaced(const char* text, const char* separators, int spacing,
                                    int rectHeight = 1) {
        EXPECT_EQ(DrawStringLinesSpacing(small, {10, 100, 300, rectHeight}, text, separators, spacing, white,
                                         0, false),
                  0);
        return drawn.take();
    }

    /// The drawing of a line as the log shows it.
    std::string line(const char* text, int x, int y) const {
        int w = 0;
        int h = 0;
        TTF_SizeUTF8(small, text, &w, &h);
        char call[96];
        snprintf(call, sizeof call, "copy all -> %d,%d %dx%d on W", x, y, w, h);
        return call;
    }

    std::string line(const char* text, int y) const { return line(text, 10, y); }

    DrawingLog drawn;
    TTF_Font* small = nullptr;
};

TEST_F(TextLinesTest, SpreadOverTheHeightOfTheRectangle) {
    EXPECT_THAT(lines("one\ntwo\nthree", "\n", 100),
                ElementsAre(line("one", 100), line("two", 133), line("three", 166)));
}

TEST_F(TextLinesTest, StackAtHeightPlusFiveWhereTheyWouldBeTooClose) {
    EXPECT_THAT(lines("one\ntwo\nthree", "\n", 60),
                ElementsAre(line("one", 100), line("two", 125), line("three", 150)));
}

TEST_F(TextLinesTest, PitchMustBeMoreThanHeightPlusFourToSpread) {
    const std::map<int, int> pitchOfHeight{{0, 25},  {47, 25}, {48, 25}, {49, 25},  {50, 25},
                                           {51, 25}, {52, 26}, {54, 27}, {101, 50}, {-100, 25}};
    for (const auto& [rectHeight, pitch] : pitchOfHeight)
        EXPECT_THAT(lines("a\nb", "\n", rectHeight), ElementsAre(line("a", 100), line("b", 100 + pitch)))
            << rectHeight;
}

TEST_F(TextLinesTest, OneLineStandsAtTheTop) {
    EXPECT_THAT(lines("alone", "\n", 400), ElementsAre(line("alone", 100)));
}

TEST_F(TextLinesTest, RunsOfSeparatorsMakeNoEmptyLines) {
    EXPECT_THAT(lines("a\n\nb", "\n", 100), ElementsAre(line("a", 100), line("b", 150)));
}

TEST_F(TextLinesTest, SeparatorsAtBothEndsAreDropped) {
    EXPECT_THAT(lines("\n\na\nb\n", "\n", 100), ElementsAre(line("a", 100), line("b", 150)));
}

TEST_F(TextLinesTest, EachCharacterOfTheSetEndsALine) {
    EXPECT_THAT(lines("a;b|c;|d", "|;", 120),
                ElementsAre(line("a", 100), line("b", 130), line("c", 160), line("d", 190)));
}

TEST_F(TextLinesTest, WithoutSeparatorsTheTextIsOneLine) {
    EXPECT_THAT(lines("a;b", nullptr, 100), ElementsAre(line("a;b", 100)));
    EXPECT_THAT(lines("a;b", "", 100), ElementsAre(line("a;b", 100)));
    EXPECT_THAT(spaced("a;b", nullptr, 3), ElementsAre(line("a;b", 100)));
}

TEST_F(TextLinesTest, NothingToDrawGivesZero) {
    EXPECT_THAT(lines("", "\n", 100), IsEmpty());
    EXPECT_THAT(lines("\n\n\n", "\n", 100), IsEmpty());
    EXPECT_THAT(lines(nullptr, "\n", 100), IsEmpty());
    EXPECT_THAT(spaced("", "\n", 5), IsEmpty());
    EXPECT_THAT(spaced("\n", "\n", 5), IsEmpty());
    EXPECT_THAT(spaced(nullptr, nullptr, 5), IsEmpty());
    EXPECT_EQ(DrawStringLines(nullptr, {0, 0, 9, 9}, "a\nb", "\n", white, 0, true), 0);
    EXPECT_EQ(DrawStringLinesSpacing(nullptr, {0, 0, 9, 9}, "a\nb", "\n", 1, white, 0, true), 0);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_F(TextLinesTest, AlignInTheirOwnRectangleOfOnePitch) {
    int w = 0;
    TTF_SizeUTF8(small, "b", &w, nullptr);
    DrawStringLines(small, {10, 100, w + 60, 80}, "b\nb", "\n", white, 1, false);
    EXPECT_THAT(drawn.take(), ElementsAre(line("b", 40, 110), line("b", 40, 150)));
    DrawStringLines(small, {10, 100, w + 60, 80}, "b\nb", "\n", white, 4, false);
    EXPECT_THAT(drawn.take(), ElementsAre(line("b", 70, 110), line("b", 70, 150)));
    DrawStringLines(small, {10, 100, w + 60, 80}, "b\nb", "\n", white, 2, false);
    EXPECT_THAT(drawn.take(), ElementsAre(line("b", 70, 100), line("b", 70, 140)));
}

TEST_F(TextLinesTest, EachHasItsOwnShadow) {
    DrawStringLines(small, {10, 100, 300, 80}, "a\nb", "\n", white, 0, true);
    EXPECT_THAT(drawn.take(),
                ElementsAre(line("a", 11, 102), line("a", 100), line("b", 11, 142), line("b", 140)));
    DrawStringLinesSpacing(small, {10, 100, 300, 80}, "a\nb", "\n", 1, white, 0, true);
    EXPECT_THAT(drawn.take(),
                ElementsAre(line("a", 11, 102), line("a", 100), line("b", 11, 123), line("b", 121)));
}

TEST_F(TextLinesTest, AreDrawnInTheirColour) {
    DrawStringLines(small, {0, 0, 300, 80}, "█\n█", "\n", {10, 20, 30, 255}, 0, false);
    EXPECT_EQ(pixel(8, 10), 0xFF0A141E);
    EXPECT_EQ(pixel(8, 50), 0xFF0A141E);
}

TEST_F(TextLinesTest, ALineOfBlanksKeepsItsPlace) {
    EXPECT_THAT(lines("a\n \nb", "\n", 90), ElementsAre(line("a", 100), line(" ", 130), line("b", 160)));
}

TEST_F(TextLinesTest, ManyLinesLeaveTheTextAsItWas) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "i\n";
    const std::string before = text;
    EXPECT_EQ(lines(text.c_str(), "\n", 100).size(), 60u);
    EXPECT_EQ(text, before);
}

TEST_F(TextLinesTest, SpacedLinesLieAtHeightPlusSpacing) {
    EXPECT_THAT(spaced("one\ntwo\nthree", "\n", 7),
                ElementsAre(line("one", 100), line("two", 127), line("three", 154)));
}

TEST_F(TextLinesTest, SpacedLinesPayNoHeedToTheHeightOfTheRectangle) {
    const auto wanted = ElementsAre(line("a", 100), line("b", 120));
    EXPECT_THAT(spaced("a\nb", "\n", 0, 1000), wanted);
    EXPECT_THAT(spaced("a\nb", "\n", 0, 0), wanted);
    EXPECT_THAT(spaced("a\nb", "\n", 0, -50), wanted);
}

TEST_F(TextLinesTest, SpacedLinesMayOverlapOrRise) {
    EXPECT_THAT(spaced("a\nb", "\n", -5), ElementsAre(line("a", 100), line("b", 115)));
    EXPECT_THAT(spaced("a\nb", "\n", -height), ElementsAre(line("a", 100), line("b", 100)));
    EXPECT_THAT(spaced("a\nb", "\n", -50), ElementsAre(line("a", 100), line("b", 70)));
}

TEST_F(TextLinesTest, SpacedLinesCutLikeTheOthers) {
    EXPECT_THAT(spaced("\na;;b\n", "\n;", 10), ElementsAre(line("a", 100), line("b", 130)));
}

TEST_F(TextLinesTest, SpacedLinesAlignInTheirOwnRectangle) {
    DrawStringLinesSpacing(small, {10, 100, 300, 5}, "b\nb", "\n", 20, white, 3, false);
    EXPECT_THAT(drawn.take(), ElementsAre(line("b", 110), line("b", 150)));
    DrawStringLinesSpacing(small, {10, 100, 300, 5}, "b\nb", "\n", -15, white, 3, false);
    EXPECT_THAT(drawn.take(), ElementsAre(line("b", 93), line("b", 98))); // -15 / 2 is -7
}
