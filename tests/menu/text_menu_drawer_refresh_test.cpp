#include "support/open_text_menu.h"
#include "support/skinned_test.h"

#include <unistd.h>

/// Themes "a/" and "b/", whose pictures for lists are 40 and 50 pixels high.
class DrawerRefreshTest : public SkinnedTest {
protected:
    void SetUp() override {
        SkinnedTest::SetUp();
        writePicture("a/skin/bg-list-f.png", 10, 40, 0xFFFF0000);
        writePicture("a/skin/bg-list-n.png", 10, 40, 0xFF00FF00);
        writePicture("b/skin/bg-list-f.png", 10, 50, 0xFF0000FF);
        writePicture("b/skin/bg-list-n.png", 10, 50, 0xFFFFFFFF);
        writePicture("other-f.png", 10, 30, 0xFF123456);
        writePicture("other-n.png", 10, 31, 0xFF654321);
    }
};

TEST_F(DrawerRefreshTest, DoesNothingInTheSameTheme) {
    gThemePath = "a/";
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    KestroSurface* const selected = menu.mSelectedBackground;
    KestroSurface* const normal = menu.mNormalBackground;
    const std::string sameText = "a/";
    gThemePath = sameText.c_str();
    menu.refresh();
    EXPECT_EQ(menu.mSelectedBackground, selected);
    EXPECT_EQ(menu.mNormalBackground, normal);
    EXPECT_EQ(selected->getHeight(), 30);
    gThemePath = nullptr;
}

TEST_F(DrawerRefreshTest, LoadsTheListsPicturesOfTheNewThemeWhateverNamesWereGiven) {
    gThemePath = "a/";
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    gThemePath = "b/";
    menu.refresh();
    ASSERT_NE(menu.mSelectedBackground, nullptr);
    ASSERT_NE(menu.mNormalBackground, nullptr);
    EXPECT_EQ(menu.mThemePath, "b/");
    menu.addRows(2);
    menu.setShowNumber(false);
    menu.draw();
    EXPECT_EQ(pixel(15, 80 + 23 + 2), 0xFF0000FF);
    EXPECT_EQ(pixel(15, 176 + 23 + 2), 0xFFFFFFFF);
}

TEST_F(DrawerRefreshTest, ABackgroundThatWasNullStaysNull) {
    OpenTextMenu selectedOnly("other-f.png", nullptr, 6, 0);
    OpenTextMenu normalOnly(nullptr, "other-n.png", 6, 0);
    takeLog();
    gThemePath = "b/";
    selectedOnly.refresh();
    normalOnly.refresh();
    ASSERT_NE(selectedOnly.mSelectedBackground, nullptr);
    EXPECT_EQ(selectedOnly.mSelectedBackground->getHeight(), 50);
    EXPECT_EQ(selectedOnly.mNormalBackground, nullptr);
    EXPECT_EQ(normalOnly.mSelectedBackground, nullptr);
    ASSERT_NE(normalOnly.mNormalBackground, nullptr);
    EXPECT_EQ(normalOnly.mNormalBackground->getHeight(), 50);
}

TEST_F(DrawerRefreshTest, FollowsEveryChangeOnce) {
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    for (const char* const theme : {"a/", "b/", "a/"}) {
        gThemePath = theme;
        menu.refresh();
        KestroSurface* const loaded = menu.mSelectedBackground;
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->getHeight(), *theme == 'a' ? 40 : 50);
        menu.refresh();
        EXPECT_EQ(menu.mSelectedBackground, loaded);
    }
}

TEST_F(DrawerRefreshTest, AThemeWithoutThePicturesFallsBackToTheOwnOnes) {
    gThemePath = "a/";
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    gThemePath = "missing/";
    menu.refresh();
    ASSERT_NE(menu.mSelectedBackground, nullptr);
    EXPECT_EQ(menu.mSelectedBackground->getHeight(), 96);
    EXPECT_THAT(takeLog(), testing::HasSubstr("missing/"));
}

TEST_F(DrawerRefreshTest, APictureThatIsNowhereLeavesNothingForGood) {
    gThemePath = "a/";
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    unlink("skin/bg-list-f.png");
    gThemePath = "missing/";
    menu.refresh();
    EXPECT_EQ(menu.mSelectedBackground, nullptr);
    EXPECT_NE(menu.mNormalBackground, nullptr);
    gThemePath = "b/";
    menu.refresh();
    EXPECT_EQ(menu.mSelectedBackground, nullptr);
    EXPECT_EQ(menu.mNormalBackground->getHeight(), 50);
    takeLog();
}

TEST_F(DrawerRefreshTest, LeavingTheThemeCountsAsAChange) {
    gThemePath = "a/";
    OpenTextMenu menu("other-f.png", "other-n.png", 6, 0);
    takeLog();
    gThemePath = nullptr;
    menu.refresh();
    EXPECT_EQ(menu.mThemePath, "");
    EXPECT_EQ(menu.mSelectedBackground->getHeight(), 96);
    takeLog();
}
