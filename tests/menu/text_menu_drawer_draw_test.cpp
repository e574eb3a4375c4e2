#include "menu/text_menu_drawer.h"

#include "shell/bar_layout.h"
#include "shell/skin.h"
#include "support/list_drawing_test.h"

#include <memory>

class DrawerDrawTest : public ListDrawingTest {
protected:
    /// A menu with these labels; what is logged is taken.
    void open(const std::vector<const char*>& labels, int rowsPerPage = 6, int rowGap = 0) {
        menu.reset(newMenu(rowsPerPage, rowGap));
        for (const char* label : labels)
            menu->add(label);
        takeLog();
    }
};

TEST_F(DrawerDrawTest, DrawsBackgroundNumberAndLabelOfEachRow) {
    open({"Alpha", "Beta", "Gamma"});
    menu->setCursor(1);
    EXPECT_THAT(drawn(*menu),
                testing::ElementsAre(background("normal", 80), number("0001", 0, 80, 96),
                                     label("Alpha", 95, 80 + labelOffset(96)), background("selected", 176),
                                     number("0002", 0, 176, 96), label("Beta", 95, 176 + labelOffset(96)),
                                     background("normal", 272), number("0003", 0, 272, 96),
                                     label("Gamma", 95, 272 + labelOffset(96))));
}

TEST_F(DrawerDrawTest, RowsOfAHostsOwnClassAreAskedForTheirLabel) {
    class OwnRow : public TextMenuItem {
    public:
        OwnRow() : TextMenuItem("Beta", nullptr, nullptr, false) {}
        std::string getLabel() override { return "Own"; }
    };
    open({"Alpha"});
    menu->insertItem(static_cast<TextMenuItemProvider*>(new OwnRow));
    takeLog();
    EXPECT_EQ(drawn(*menu).back(), label("Own", 95, 176 + labelOffset(96)));
}

TEST_F(DrawerDrawTest, RowsStandGapsApartInTheArea) {
    open({"Alpha", "Beta"}, 6, 10);
    SDL_Rect rect{100, 50, 800, 400};
    menu->updateRectAndNum(rect, 4);
    ASSERT_EQ(menu->getItemHeight(), 92);
    EXPECT_THAT(drawn(*menu),
                testing::ElementsAre(
                    "'selected' 0,0 800x92 -> 110,50 1260x96 on W", number("0001", 100, 50, 92),
                    label("Alpha", 195, 50 + labelOffset(92)), "'normal' 0,0 800x92 -> 110,152 1260x96 on W",
                    number("0002", 100, 152, 92), label("Beta", 195, 152 + labelOffset(92))));
}

TEST_F(DrawerDrawTest, NumbersAreThoseOfTheRowsAlsoOnLaterPages) {
    open({"a", "b", "c", "d", "e", "f", "g", "h"});
    menu->setCursor(7);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 18u);
    EXPECT_EQ(calls[1], number("0003", 0, 80, 96));
    EXPECT_EQ(calls[2], label("c", 95, 80 + labelOffset(96)));
    EXPECT_EQ(calls[15], background("selected", 560));
    EXPECT_EQ(calls[16], number("0008", 0, 560, 96));
}

TEST_F(DrawerDrawTest, WithoutNumbersLabelsBeginFurtherLeft) {
    open({"Alpha"});
    menu->setShowNumber(false);
    EXPECT_THAT(drawn(*menu),
                testing::ElementsAre(background("selected", 80), label("Alpha", 30, 80 + labelOffset(96))));
    SDL_Rect rect{100, 50, 800, 576};
    menu->updateRectAndNum(rect, 6);
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 130, 50 + labelOffset(96)));
}

TEST_F(DrawerDrawTest, OtherAlignmentsPlaceTheLabelInTheRowsFullHeight) {
    open({"Alpha"});
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, "Alpha", &w, &h);
    const int middle = 80 + (96 - h) / 2;
    const struct {
        int align, x, y;
    } cases[] = {{1, 95 + (1160 - w) / 2, middle},
                 {2, 95 + 1160 - w, 80},
                 {3, 95, middle},
                 {4, 95 + 1160 - w, middle},
                 {7, 95 + 1160 - w, 80}};
    for (const auto& [align, x, y] : cases) {
        menu->setLabelAlign(align);
        EXPECT_EQ(drawn(*menu).back(), label("Alpha", x, y)) << align;
    }
    menu->setShowNumber(false);
    menu->setLabelAlign(4);
    EXPECT_EQ(drawn(*menu).back(), label("Alpha", 30 + 1220 - w, middle));
}

TEST_F(DrawerDrawTest, AnUnfocusedListShowsNoSelection) {
    open({"Alpha", "Beta"});
    menu->setFocus(false);
    menu->setShadow(true);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 6u);
    EXPECT_EQ(calls[0], background("normal", 80));
    EXPECT_EQ(calls[3], background("normal", 176));
}

TEST_F(DrawerDrawTest, TheShadowIsOnlyTheCurrentRows) {
    open({"Alpha", "Beta"});
    menu->setShadow(true);
    const int y = 80 + labelOffset(96);
    EXPECT_THAT(drawn(*menu), testing::ElementsAre(background("selected", 80), number("0001", 0, 80, 96),
                                                   label("Alpha", 96, y + 2), label("Alpha", 95, y),
                                                   background("normal", 176), number("0002", 0, 176, 96),
                                                   label("Beta", 95, 176 + labelOffset(96))));
}

TEST_F(DrawerDrawTest, WithoutASelectedBackgroundTheCurrentRowHasNone) {
    open({"Alpha", "Beta"});
    menu->ignoreSelBG(true);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0], number("0001", 0, 80, 96));
    EXPECT_EQ(calls[2], background("normal", 176));
}

TEST_F(DrawerDrawTest, WithoutANormalBackgroundOnlyTheCurrentRowHasOne) {
    menu = std::make_unique<OpenTextMenu>("skin/bg-list-f.png", nullptr, 6, 0);
    menu->addRows(2);
    takeLog();
    menu->setShowListNumber(false);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0], background("selected", 80));
    EXPECT_EQ(calls[3], number("0002", 0, 176, 96));
}

TEST_F(DrawerDrawTest, ABackgroundLowerThanTheRowStandsInItsMiddle) {
    writePicture("skin/bg-list-f.png", 500, 41, 0xFF305090);
    open({"Alpha"});
    EXPECT_EQ(drawn(*menu).front(), "'selected' 0,0 1280x96 -> 10,107 500x41 on W");
}

TEST_F(DrawerDrawTest, ABackgroundHigherThanTheRowKeepsItsHeight) {
    writePicture("skin/bg-list-f.png", 500, 141, 0xFF305090);
    open({"Alpha"});
    EXPECT_EQ(drawn(*menu).front(), "'selected' 0,0 1280x96 -> 10,80 500x141 on W");
}

TEST_F(DrawerDrawTest, TheLeftMarginMovesOnlyTheBackground) {
    open({"Alpha"});
    menu->setLeftMargin(-7);
    const Drawing calls = drawn(*menu);
    EXPECT_EQ(calls[0], "'selected' 0,0 1280x96 -> -7,80 1260x96 on W");
    EXPECT_EQ(calls[2], label("Alpha", 95, 80 + labelOffset(96)));
}

TEST_F(DrawerDrawTest, LabelsHaveTheListsTextColour) {
    open({"Alpha", "Beta"});
    menu->setTextColor({255, 0, 0, 255});
    menu->setSecondTextColor({0, 255, 0, 255});
    const Drawing calls = drawn(*menu);
    EXPECT_EQ(calls[2], text(gListFontTxt, "Alpha", {255, 0, 0, 255}, 95, 80 + labelOffset(96)));
    EXPECT_EQ(calls[5], text(gListFontTxt, "Beta", {255, 0, 0, 255}, 95, 176 + labelOffset(96)));
}

TEST_F(DrawerDrawTest, ANullRowSaysThatItIsLoading) {
    open({"Alpha"});
    menu->insertItem(nullptr);
    menu->setTextColor({255, 0, 0, 255});
    menu->setLabelAlign(2);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 6u);
    EXPECT_EQ(calls[3], background("normal", 176));
    EXPECT_EQ(calls[4], number("0002", 0, 176, 96));
    EXPECT_EQ(calls[5], text(gListFontTxt, "LOADING...", {255, 0, 0, 255}, 95, 176 + labelOffset(96)));
    useLanguage({{2, "wrong"}, {3, "Moment"}, {4, "wrong"}});
    menu->setShowNumber(false);
    EXPECT_EQ(drawn(*menu).back(), text(gListFontTxt, "Moment", {255, 0, 0, 255}, 30, 176 + labelOffset(96)));
    menu->setShadow(true);
    EXPECT_EQ(drawn(*menu).size(), 5u); // the other row is the current one
    menu->setCursor(1);
    const Drawing current = drawn(*menu);
    ASSERT_EQ(current.size(), 5u);
    EXPECT_EQ(current[3], text(gListFontTxt, "Moment", {255, 0, 0, 255}, 31, 178 + labelOffset(96)));
}

TEST_F(DrawerDrawTest, AnEmptyListDrawsNothingAtAll) {
    open({});
    menu->setShowListNumber(true);
    EXPECT_TRUE(drawn(*menu).empty());
    menu->add("Alpha");
    EXPECT_FALSE(drawn(*menu).empty());
    menu->clearItemList();
    EXPECT_TRUE(drawn(*menu).empty());
}

/// The position that stands at the right of the status bar: first the total, then what is before it.
class DrawerPositionTest : public DrawerDrawTest {
protected:
    static Drawing position(const std::string& current, const std::string& total, int y) {
        const SDL_Color color{30, 30, 30, 255};
        const int totalX = 1256 - textWidth(gStatFont, total);
        const int currentX = totalX - textWidth(gStatFont, current + "/");
        return {text(gStatFont, total, color, totalX, y), text(gStatFont, current + "/", color, currentX, y)};
    }

    static Drawing drawnPosition(int current, int total) {
        const TextureNames names;
        DrawingLog log;
        EXPECT_EQ(drawListNumAtStatBar(current, total), 0);
        return log.take();
    }

    void TearDown() override {
        gListNumOfStatBarOffsetY = 671;
        DrawerDrawTest::TearDown();
    }
};

TEST_F(DrawerPositionTest, EndsAtTheRightOfTheStatusBar) {
    EXPECT_EQ(drawnPosition(3, 12), position("3", "12", 671));
    EXPECT_EQ(drawnPosition(20000, 123456789), position("20000", "123456789", 671));
    EXPECT_EQ(drawnPosition(0, 0), position("0", "0", 671));
    EXPECT_EQ(drawnPosition(-1, -2), position("-1", "-2", 671));
}

TEST_F(DrawerPositionTest, FollowsTheHostsOffset) {
    gListNumOfStatBarOffsetY = 5;
    EXPECT_EQ(drawnPosition(3, 12), position("3", "12", 5));
}

TEST_F(DrawerPositionTest, TheListDrawsItAfterItsRows) {
    open({"Alpha", "Beta", "Gamma"});
    menu->setShowListNumber(true);
    menu->setCursor(1);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 11u);
    EXPECT_EQ(Drawing(calls.end() - 2, calls.end()), position("2", "3", 671));
}

TEST_F(DrawerPositionTest, IsAllThatIsDrawnForACursorBeyondTheRows) {
    open({"Alpha"});
    menu->setShowListNumber(true);
    menu->setCursor(9);
    EXPECT_EQ(drawn(*menu), position("10", "1", 671));
    menu->setCursor(INT32_MAX); // which has no next number
    EXPECT_EQ(drawn(*menu), position("2147483647", "1", 671));
}

TEST_F(DrawerPositionTest, NeedsNoFont) {
    uninit_shared_skin();
    EXPECT_TRUE(drawnPosition(3, 12).empty());
}

TEST_F(DrawerDrawTest, ANumberHasFourDigitsInTheMiddleOfItsBox) {
    open({});
    const struct {
        int number;
        const char* shown;
    } cases[] = {{0, "0000"}, {7, "0007"}, {9999, "9999"}, {10000, "9999"}, {2147483647, "9999"}};
    for (const auto& [number, shown] : cases) {
        const TextureNames names;
        DrawingLog log;
        SDL_Rect box{100, 200, 50, 60};
        int w = 0;
        int h = 0;
        TTF_SizeUTF8(gListFontTxt, shown, &w, &h);
        EXPECT_EQ(menu->TextMenuDrawer::drawListNum(number, box, gListFontTxt), w);
        EXPECT_THAT(log.take(), testing::ElementsAre(text(gListFontTxt, shown, {10, 10, 10, 255},
                                                          100 + (50 - w) / 2, 200 + (60 - h) / 2)));
    }
    SDL_Rect box{0, 0, 10, 10};
    EXPECT_EQ(menu->drawListNum(1, box, nullptr), 0);
}

TEST_F(DrawerDrawTest, NumbersGoThroughTheVirtualOperation) {
    class Unnumbered : public OpenTextMenu {
    public:
        using OpenTextMenu::OpenTextMenu;
        int drawListNum(int number, SDL_Rect& rect, TTF_Font* font) override {
            EXPECT_EQ(font, gListFontSubtxt);
            EXPECT_EQ(rect.x, 28);
            EXPECT_EQ(rect.y, 85 + 96 * (number - 1));
            EXPECT_EQ(rect.w, 60);
            EXPECT_EQ(rect.h, 91);
            rect = {};
            return 0;
        }
    };
    Unnumbered list("skin/bg-list-f.png", nullptr, 6, 0);
    takeLog();
    list.add("Alpha");
    list.add("Beta");
    list.setShowListNumber(false);
    EXPECT_THAT(drawn(list),
                testing::ElementsAre(background("selected", 80), label("Alpha", 95, 80 + labelOffset(96)),
                                     label("Beta", 95, 176 + labelOffset(96))));
}
