#include "gfx/text.h"
#include "shell/skin.h"
#include "support/list_drawing_test.h"

#include <memory>

/// Rows with more than a short label: long ones, second lines, icons.
class DrawerRowsTest : public ListDrawingTest {
protected:
    static std::string subLabel(const std::string& shown, int x, int y) {
        return text(gListFontSubtxt, shown, {20, 20, 20, 255}, x, y);
    }

    /// Where the second line of a row at the top of the list stands, and the first.
    static int firstLineY() { return 80 + 60 - lineHeight(gListFontTxt); }
    static int secondLineY() { return 80 + 90 - lineHeight(gListFontSubtxt); }

    TextMenuItem* addTwoLines(const char* label, const char* second) {
        TextMenuItem* const row = menu->add(label);
        row->setSubLabel(second);
        row->setSubLabelPresent(true);
        return row;
    }

    static std::string repeated(const std::string& piece, int times) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += piece;
        return all;
    }
};

TEST_F(DrawerRowsTest, ALongLabelIsCutToTheWidthOfItsArea) {
    const std::string label60 = repeated("ABCDEF", 10);
    menu->add(label60.c_str());
    const int kept = getTruncateLen(gListFontTxt, label60.c_str(), 0, 1160);
    ASSERT_GT(kept, 10);
    ASSERT_LT(kept, 60);
    const std::string cut = label60.substr(0, static_cast<size_t>(kept)) + "...";
    EXPECT_EQ(drawn(*menu).back(), label(cut, 95, 80 + labelOffset(96)));
    EXPECT_LT(textWidth(gListFontTxt, cut), 1160);
    menu->setShowNumber(false);
    const int keptWithout = getTruncateLen(gListFontTxt, label60.c_str(), 0, 1220);
    ASSERT_GT(keptWithout, kept);
    EXPECT_EQ(drawn(*menu).back(),
              label(label60.substr(0, static_cast<size_t>(keptWithout)) + "...", 30, 80 + labelOffset(96)));
}

TEST_F(DrawerRowsTest, ALabelIsCutBetweenItsCharacters) {
    const std::string chinese = repeated("中é", 60);
    menu->add(chinese.c_str());
    const int kept = getTruncateLen(gListFontTxt, chinese.c_str(), 0, 1160);
    ASSERT_GT(kept, 0);
    const std::string cut = repeated("中é", kept / 2) + (kept % 2 ? "中" : "") + "...";
    EXPECT_EQ(drawn(*menu).back(), label(cut, 95, 80 + labelOffset(96)));
}

TEST_F(DrawerRowsTest, LabelsThatAreNotUtf8AreDrawnLikeOthers) {
    for (const std::string& bad :
         {repeated("\x80", 255), repeated("\xFF\x80", 127), repeated("W", 254) + "\xE4",
          repeated("\xE4\xB8", 127), std::string("\xF0\x9F")}) {
        menu->clearItemList();
        addTwoLines(bad.c_str(), bad.c_str());
        const Drawing calls = drawn(*menu);
        ASSERT_EQ(calls.size(), 4u);
        EXPECT_THAT(calls[2], testing::HasSubstr(" -> 95," + std::to_string(firstLineY())));
        EXPECT_THAT(calls[3], testing::HasSubstr(" -> 95," + std::to_string(secondLineY())));
        if (bad[0] == 'W') {
            EXPECT_THAT(calls[2], testing::HasSubstr("WWW...\""));
        }
    }
}

TEST_F(DrawerRowsTest, AShortLabelIsNotCut) {
    menu->add("short");
    EXPECT_EQ(drawn(*menu).back(), label("short", 95, 80 + labelOffset(96)));
}

TEST_F(DrawerRowsTest, AnEmptyLabelDrawsNoText) {
    menu->add("");
    EXPECT_EQ(drawn(*menu).size(), 2u);
}

TEST_F(DrawerRowsTest, ASecondLineMovesTheFirstUp) {
    addTwoLines("Alpha", "second");
    EXPECT_THAT(drawn(*menu), testing::ElementsAre(background("selected", 80), number("0001", 0, 80, 96),
                                                   label("Alpha", 95, firstLineY()),
                                                   subLabel("second", 95, secondLineY())));
}

TEST_F(DrawerRowsTest, TheLinesDoNotFollowTheRowsHeight) {
    SDL_Rect rect{0, 80, 1280, 400};
    menu->updateRectAndNum(rect, 2);
    addTwoLines("Alpha", "second");
    addTwoLines("Beta", "third");
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 8u);
    EXPECT_EQ(calls[2], label("Alpha", 95, firstLineY()));
    EXPECT_EQ(calls[3], subLabel("second", 95, secondLineY()));
    EXPECT_EQ(calls[6], label("Beta", 95, firstLineY() + 200));
    EXPECT_EQ(calls[7], subLabel("third", 95, secondLineY() + 200));
}

TEST_F(DrawerRowsTest, TwoLinesAreAlwaysAlignedLeft) {
    addTwoLines("Alpha", "second");
    for (const int align : {0, 1, 2, 3, 4, 9}) {
        menu->setLabelAlign(align);
        const Drawing calls = drawn(*menu);
        EXPECT_EQ(calls[2], label("Alpha", 95, firstLineY())) << align;
        EXPECT_EQ(calls[3], subLabel("second", 95, secondLineY())) << align;
    }
}

TEST_F(DrawerRowsTest, OnlyAPresentSecondLineCounts) {
    TextMenuItem* const row = addTwoLines("Alpha", "second");
    row->setSubLabelPresent(false);
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 95, 80 + labelOffset(96)));
    row->setSubLabelPresent(true);
    row->setSubLabel("");
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 95, 80 + labelOffset(96)));
    row->setSubLabelId(4);
    EXPECT_EQ(drawn(*menu).back(), subLabel("OPEN", 95, secondLineY()));
}

TEST_F(DrawerRowsTest, BothLinesHaveTheShadowOfTheCurrentRow) {
    addTwoLines("Alpha", "second");
    addTwoLines("Beta", "third");
    menu->setShadow(true);
    menu->setCursor(1);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 10u);
    const int y = firstLineY() + 96;
    const int secondY = secondLineY() + 96;
    EXPECT_EQ(Drawing(calls.begin() + 6, calls.end()),
              (Drawing{label("Beta", 96, y + 2), label("Beta", 95, y), subLabel("third", 96, secondY + 2),
                       subLabel("third", 95, secondY)}));
    menu->setFocus(false);
    EXPECT_EQ(drawn(*menu).size(), 8u);
}

TEST_F(DrawerRowsTest, EachLineIsCutInItsOwnFont) {
    const std::string text60 = repeated("ABCDEF", 20);
    addTwoLines(text60.c_str(), text60.c_str());
    const auto kept = static_cast<size_t>(getTruncateLen(gListFontTxt, text60.c_str(), 0, 1160));
    const auto keptBelow = static_cast<size_t>(getTruncateLen(gListFontSubtxt, text60.c_str(), 0, 1160));
    ASSERT_GT(kept, 0u);
    ASSERT_GT(keptBelow, kept);
    const Drawing calls = drawn(*menu);
    EXPECT_EQ(calls[2], label(text60.substr(0, kept) + "...", 95, firstLineY()));
    EXPECT_EQ(calls[3], subLabel(text60.substr(0, keptBelow) + "...", 95, secondLineY()));
}

TEST_F(DrawerRowsTest, TheCommonIconStandsBeforeEveryLabel) {
    const std::unique_ptr<KestroSurface> icon(newPicture(40, 31, 0xFFFF0000));
    menu->add("Alpha");
    addTwoLines("Beta", "second");
    menu->insertItem(nullptr);
    menu->setRowIcon(icon.get());
    TextureNames names;
    names.name(icon.get(), "icon");
    DrawingLog log;
    menu->draw();
    const Drawing calls = log.take();
    ASSERT_EQ(calls.size(), 13u);
    EXPECT_EQ(calls[2], "'icon' all -> 95,112 40x31 on W");
    EXPECT_EQ(calls[3], label("Alpha", 137, 80 + labelOffset(96)));
    EXPECT_EQ(calls[6], "'icon' all -> 95,208 40x31 on W");
    EXPECT_EQ(calls[7], label("Beta", 137, 96 + firstLineY()));
    EXPECT_EQ(calls[8], subLabel("second", 137, 96 + secondLineY()));
    EXPECT_EQ(calls[11], "'icon' all -> 95,304 40x31 on W");
    EXPECT_EQ(calls[12], label("LOADING...", 137, 272 + labelOffset(96)));
}

TEST_F(DrawerRowsTest, AnIconNarrowsTheLabelByItsOwnWidth) {
    const std::unique_ptr<KestroSurface> icon(newPicture(400, 30, 0xFFFF0000));
    const std::string label60 = repeated("ABCDEF", 10);
    menu->add(label60.c_str());
    menu->setRowIcon(icon.get());
    const auto kept = static_cast<size_t>(getTruncateLen(gListFontTxt, label60.c_str(), 0, 760));
    EXPECT_EQ(drawn(*menu).back(), label(label60.substr(0, kept) + "...", 497, 80 + labelOffset(96)));
    menu->setLabelAlign(4);
    menu->clearItemList();
    menu->add("Alpha");
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, "Alpha", &w, &h);
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 497 + 760 - w, 80 + (96 - h) / 2));
}

TEST_F(DrawerRowsTest, ARowsOwnIconStandsWhereTheCommonOneWould) {
    const std::unique_ptr<KestroSurface> common(newPicture(20, 30, 0xFF00FF00));
    const std::unique_ptr<KestroSurface> own(newPicture(50, 97, 0xFFFF0000));
    menu->insertItem(new TextMenuItem("Alpha", own.get(), nullptr, false));
    menu->add("Beta");
    takeLog();
    TextureNames names;
    names.name(own.get(), "own");
    names.name(common.get(), "common");
    DrawingLog log;
    menu->draw();
    const Drawing calls = log.take();
    ASSERT_EQ(calls.size(), 7u);
    EXPECT_EQ(calls[2], "'own' all -> 95,80 50x97 on W"); // half of -1 is 0
    EXPECT_EQ(calls[3], label("Alpha", 147, 80 + labelOffset(96)));
    EXPECT_EQ(calls[6], label("Beta", 95, 176 + labelOffset(96)));
    menu->setRowIcon(common.get());
    menu->draw();
    const Drawing withCommon = log.take();
    EXPECT_EQ(withCommon[2], "'common' all -> 95,113 20x30 on W");
    EXPECT_EQ(withCommon[3].find("'own'"), std::string::npos);
    EXPECT_EQ(withCommon.size(), 8u);
}

TEST_F(DrawerRowsTest, AnIconMovesTheLabelAlsoWithoutNumbers) {
    const std::unique_ptr<KestroSurface> icon(newPicture(40, 31, 0xFFFF0000));
    menu->add("Alpha");
    menu->setRowIcon(icon.get());
    menu->setShowNumber(false);
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 72, 80 + labelOffset(96)));
}
