#include "hostkit/theme.h"

#include "core/host.h"
#include "gfx/surface_cache.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"
#include "support/skin_files_test.h"

#include <filesystem>
#include <set>

class ThemeTest : public SkinFilesTest {
protected:
    void TearDown() override {
        hostkit::useTheme("");
        SkinFilesTest::TearDown();
    }
};

TEST_F(ThemeTest, TheDefaultThemeLiesInTheWorkingFolder) {
    hostkit::useTheme("");
    EXPECT_STREQ(gThemePath, "./");
    EXPECT_EQ(hostkit::themeFolder(), "");
    EXPECT_EQ(hostkit::savedTheme(), nullptr);
}

TEST_F(ThemeTest, AThemesPathEndsInASlash) {
    for (const char* folder : {"/themes/dusk", "/themes/dusk/"}) {
        hostkit::useTheme(folder);
        EXPECT_STREQ(gThemePath, "/themes/dusk/");
        EXPECT_EQ(hostkit::themeFolder(), "/themes/dusk/");
        EXPECT_STREQ(hostkit::savedTheme(), "/themes/dusk/");
    }
    hostkit::useTheme("");
    EXPECT_STREQ(gThemePath, "./");
}

TEST_F(ThemeTest, AChangeLoadsTheSkinAnewAndForgetsTheIcons) {
    writePictures("./", 10);
    writePictures("other/", 40);
    hostkit::useTheme("");
    init_shared_skin();
    const int number = hostkit::themeNumber();
    ASSERT_NE(gIconVideo, nullptr);
    const int width = gIconVideo->getWidth();
    ASSERT_NE(getIconFromCache("skin/ic-folder.png"), nullptr);
    takeLog();

    hostkit::changeTheme(folder() + "/other");
    EXPECT_EQ(gIconVideo->getWidth(), width + 30);
    EXPECT_EQ(getIconFromCache("skin/ic-folder.png")->getWidth(), 41);
    EXPECT_EQ(hostkit::themeNumber(), number + 1);

    hostkit::changeTheme(hostkit::themeFolder());
    EXPECT_EQ(gThemePath, folder() + "/other/");
    EXPECT_EQ(gIconVideo->getWidth(), width + 30);
    EXPECT_EQ(hostkit::themeNumber(), number + 2);
    takeLog();
    uninit_shared_skin();
}

TEST_F(ThemeTest, AReloadBringsTheSameThemeAnew) {
    writePictures("./", 10);
    writePictures("other/", 40);
    hostkit::useTheme("", folder() + "/other");
    init_shared_skin();
    const int number = hostkit::themeNumber();
    const int width = gIconVideo->getWidth();
    const KestroSurface* const icon = getIconFromCache("skin/ic-folder.png");
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(gIconCache.get("skin/ic-folder.png"), icon);
    takeLog();

    hostkit::reloadTheme();
    EXPECT_EQ(gIconCache.get("skin/ic-folder.png"), nullptr);
    EXPECT_EQ(gIconVideo->getWidth(), width);
    EXPECT_EQ(hostkit::themeNumber(), number + 1);
    EXPECT_EQ(hostkit::themeFolder(), folder() + "/other/");
    EXPECT_EQ(hostkit::savedTheme(), nullptr);
    takeLog();
    uninit_shared_skin();
}

TEST_F(ThemeTest, EveryReloadSpellsTheThemesPathAnew) {
    writePictures("other/", 40);
    hostkit::useTheme(folder() + "/other");
    std::set<std::string> spellings{gThemePath};
    for (int i = 0; i < 8; ++i) {
        hostkit::reloadTheme();
        EXPECT_TRUE(std::filesystem::equivalent(gThemePath, folder() + "/other")) << gThemePath;
        EXPECT_TRUE(spellings.insert(gThemePath).second) << gThemePath;
    }
    hostkit::changeTheme(folder());
    hostkit::changeTheme(folder() + "/other");
    EXPECT_NE(gThemePath, folder() + "/other/") << "a list that has seen no reload would keep its pictures";
    hostkit::useTheme(folder() + "/other");
    EXPECT_EQ(gThemePath, folder() + "/other/");
    takeLog();
    uninit_shared_skin();
}
