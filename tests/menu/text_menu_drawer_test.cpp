#include "menu/text_menu_drawer.h"

#include "shell/skin.h"
#include "support/open_text_menu.h"
#include "support/skinned_test.h"
#include "support/virtual_slot.h"

#include <memory>

class TextMenuDrawerTest : public SkinnedTest {
protected:
    /// A menu with both backgrounds; what is logged is taken.
    std::unique_ptr<OpenTextMenu> newMenu(const char* selected = "skin/bg-list-f.png",
                                          const char* normal = "skin/bg-list-n.png") {
        auto menu = std::make_unique<OpenTextMenu>(selected, normal, 6, 0);
        takeLog();
        return menu;
    }

    static void expectRect(const SDL_Rect& rect, int x, int y, int w, int h) {
        EXPECT_EQ(rect.x, x);
        EXPECT_EQ(rect.y, y);
        EXPECT_EQ(rect.w, w);
        EXPECT_EQ(rect.h, h);
    }

    static void expectColor(SDL_Color got, SDL_Color wanted) {
        EXPECT_EQ(got.r, wanted.r);
        EXPECT_EQ(got.g, wanted.g);
        EXPECT_EQ(got.b, wanted.b);
        EXPECT_EQ(got.a, wanted.a);
    }
};

TEST_F(TextMenuDrawerTest, StartsWithItsInitialValues) {
    gListColorTxt = {1, 2, 3, 4};
    const auto menu = newMenu(nullptr, nullptr);
    EXPECT_EQ(menu->mPiece, "");
    EXPECT_EQ(menu->mSelectedBackground, nullptr);
    EXPECT_EQ(menu->mNormalBackground, nullptr);
    EXPECT_EQ(menu->getRowIcon(), nullptr);
    EXPECT_EQ(menu->mReservedSurface, nullptr);
    EXPECT_EQ(menu->getItemHeight(), 96);
    EXPECT_EQ(menu->getRowGap(), 0);
    EXPECT_TRUE(menu->getShowNumber());
    EXPECT_FALSE(menu->mReservedFlag);
    EXPECT_TRUE(menu->getShowListNumber());
    expectColor(menu->getTextColor(), {1, 2, 3, 4});
    expectColor(menu->getSecondTextColor(), {1, 2, 3, 4});
    EXPECT_FALSE(menu->getShadow());
    EXPECT_EQ(menu->getRowsPerPage(), 6);
    EXPECT_EQ(menu->mThemePath, "");
    EXPECT_EQ(menu->getLeftMargin(), 10);
    EXPECT_EQ(menu->getLabelAlign(), 0);
    expectRect(menu->getRect(), 0, 80, 1280, 580);
    EXPECT_TRUE(menu->getFirstFlag());
    EXPECT_TRUE(menu->getWrap());
    EXPECT_TRUE(menu->getFocus());
    EXPECT_EQ(menu->getKeyword(), "");
}

TEST_F(TextMenuDrawerTest, SharesTheHeightAmongTheRowsAndLogsIt) {
    const struct {
        int rows, gap, height;
    } cases[] = {{6, 0, 96}, {5, 10, 108}, {1, 5, 580}, {0, 10, 0}, {7, 3, 80}, {100, 10, -4}, {-1, 0, -580}};
    for (const auto& [rows, gap, height] : cases) {
        const OpenTextMenu menu(nullptr, nullptr, rows, gap);
        EXPECT_EQ(menu.getItemHeight(), height) << rows;
        EXPECT_EQ(menu.getRowGap(), gap);
        EXPECT_EQ(menu.getRowsPerPage(), rows);
        EXPECT_EQ(takeLog(), "mItemHeight = " + std::to_string(height) +
                                 ", mYSpaceInList = " + std::to_string(gap) + "\n");
    }
}

TEST_F(TextMenuDrawerTest, LoadsEachBackgroundThatHasAName) {
    writePicture("own-f.png", 20, 21, 0xFFFF0000);
    writePicture("own-n.png", 30, 31, 0xFF00FF00);
    const auto both = newMenu("own-f.png", "own-n.png");
    ASSERT_NE(both->mSelectedBackground, nullptr);
    ASSERT_NE(both->mNormalBackground, nullptr);
    EXPECT_EQ(both->mSelectedBackground->getHeight(), 21);
    EXPECT_EQ(both->mNormalBackground->getHeight(), 31);
    const auto selected = newMenu("own-f.png", nullptr);
    EXPECT_NE(selected->mSelectedBackground, nullptr);
    EXPECT_EQ(selected->mNormalBackground, nullptr);
    const auto normal = newMenu(nullptr, "own-n.png");
    EXPECT_EQ(normal->mSelectedBackground, nullptr);
    EXPECT_NE(normal->mNormalBackground, nullptr);
}

TEST_F(TextMenuDrawerTest, PrefersTheThemesBackground) {
    writePicture("theme/skin/bg-list-f.png", 50, 51, 0xFFFF0000);
    gThemePath = "theme/";
    const auto menu = newMenu();
    EXPECT_EQ(menu->mSelectedBackground->getHeight(), 51);
    EXPECT_EQ(menu->mNormalBackground->getHeight(), 96);
    EXPECT_EQ(menu->mThemePath, "theme/");
}

TEST_F(TextMenuDrawerTest, ABackgroundThatCannotBeLoadedIsNotDrawn) {
    writeFile("broken.png", "no picture");
    const auto menu = newMenu("missing.png", "broken.png");
    EXPECT_EQ(menu->mSelectedBackground, nullptr);
    EXPECT_EQ(menu->mNormalBackground, nullptr);
    menu->addRows(2);
    EXPECT_EQ(menu->draw(), 0);
    EXPECT_EQ(pixel(1200, 90), 0xFF000000);
}

TEST_F(TextMenuDrawerTest, TakesANewAreaAndReturnsTheHeightLeftForRows) {
    OpenTextMenu menu(nullptr, nullptr, 6, 10);
    takeLog();
    SDL_Rect rect{100, 50, 800, 407};
    EXPECT_EQ(menu.updateRectAndNum(rect, 4), 377);
    EXPECT_EQ(menu.getItemHeight(), 94);
    EXPECT_EQ(menu.getRowsPerPage(), 4);
    EXPECT_EQ(menu.getRowGap(), 10);
    expectRect(menu.getRect(), 100, 50, 800, 407);
    EXPECT_EQ(menu.updateRectAndNum(rect, 1), 407);
    EXPECT_EQ(menu.getItemHeight(), 407);
    EXPECT_EQ(menu.updateRectAndNum(rect, 0), 417);
    EXPECT_EQ(menu.getItemHeight(), 0);
    EXPECT_EQ(menu.getRowsPerPage(), 0);
}

TEST_F(TextMenuDrawerTest, IgnoreSelBGTakesTheSelectedBackgroundAway) {
    const auto menu = newMenu();
    KestroSurface* const normal = menu->mNormalBackground;
    menu->ignoreSelBG(false);
    EXPECT_NE(menu->mSelectedBackground, nullptr);
    menu->ignoreSelBG(true);
    EXPECT_EQ(menu->mSelectedBackground, nullptr);
    EXPECT_EQ(menu->mNormalBackground, normal);
    menu->ignoreSelBG(true);
    menu->ignoreSelBG(false);
    EXPECT_EQ(menu->mSelectedBackground, nullptr);
}

TEST_F(TextMenuDrawerTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::eventHandling), 3);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::select), 4);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::draw), 7);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::xselect), 11);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::refresh), 12);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::pageDown), 18);
    EXPECT_EQ(virtualSlot(&TextMenuDrawer::drawListNum), 19);
}

namespace {

class ThemedRow : public TextMenuItemProvider {
public:
    std::string getLabel() override { return "row"; }
    std::string getThemePath() override { return "of the row"; }
};

class ThemedMenu : public OpenTextMenu {
public:
    using OpenTextMenu::OpenTextMenu;
    const char* getItemThemePath(int index) override { return index == 3 ? "of the list" : nullptr; }
};

} // namespace

TEST_F(TextMenuDrawerTest, AThemePathIsTheListsElseTheRowsElseEmpty) {
    ThemedMenu menu(nullptr, nullptr, 6, 0);
    takeLog();
    ThemedRow themed;
    TextMenuItem plain("plain", nullptr, nullptr, false);
    EXPECT_EQ(menu.getThemePath(&themed, 3), "of the list");
    EXPECT_EQ(menu.getThemePath(nullptr, 3), "of the list");
    EXPECT_EQ(menu.getThemePath(&themed, 2), "of the row");
    EXPECT_EQ(menu.getThemePath(&plain, 2), "");
    EXPECT_EQ(menu.getThemePath(nullptr, 2), "");
    const auto unthemed = newMenu();
    EXPECT_EQ(unthemed->getThemePath(&themed, 3), "of the row");
}
