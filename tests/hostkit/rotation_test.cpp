#include "hostkit/rotation.h"

#include "gfx/screen.h"
#include "hostkit/theme.h"
#include "shell/skin.h"
#include "support/creation_log.h"
#include "support/skin_files_test.h"

#include <memory>

/// A screen with a skin.
class RotationTest : public SkinFilesTest {
protected:
    void SetUp() override {
        SkinFilesTest::SetUp();
        writePictures("./", 10);
        hostkit::useTheme("");
        ASSERT_TRUE(ScreenInit(1280, 720, 32, 0));
        init_shared_skin();
        takeLog();
    }

    void TearDown() override {
        uninit_shared_skin();
        ScreenUninit();
        hostkit::useTheme("");
        takeLog();
        SkinFilesTest::TearDown();
    }
};

TEST_F(RotationTest, TheScreenIsOpenedAnewTheOtherWay) {
    EXPECT_FALSE(hostkit::screenIsRotated());
    EXPECT_TRUE(hostkit::rotateScreen(true));
    EXPECT_TRUE(hostkit::screenIsRotated());
    const std::unique_ptr<KestroSurface> lying(ScreenSnapshot());
    ASSERT_NE(lying, nullptr);
    EXPECT_EQ(lying->getWidth(), 720);
    EXPECT_EQ(lying->getHeight(), 1280);
    EXPECT_TRUE(hostkit::rotateScreen(false));
    EXPECT_FALSE(hostkit::screenIsRotated());
}

TEST_F(RotationTest, TheSkinIsLoadedForTheNewScreen) {
    const int number = hostkit::themeNumber();
    ASSERT_TRUE(hostkit::rotateScreen(true));
    EXPECT_EQ(hostkit::themeNumber(), number + 1);
    const auto* const icon = dynamic_cast<SDL2KestroSurface*>(gIconVideo);
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(SDL_QueryTexture(icon->getTexture(), nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_NE(gListFontTxt, nullptr);
}

TEST_F(RotationTest, AScreenThatCannotBeTurnedStaysAsItWas) {
    CreationLog creations;
    creations.refuseTallWindows();
    EXPECT_TRUE(hostkit::rotateScreen(true));
    EXPECT_FALSE(hostkit::screenIsRotated());
    EXPECT_NE(gRenderer, nullptr);
    EXPECT_NE(gListFontTxt, nullptr);
}

TEST_F(RotationTest, WithoutAScreenNothingIsRotated) {
    ScreenUninit();
    EXPECT_FALSE(hostkit::screenIsRotated());
}

TEST_F(RotationTest, WithoutADisplayThereIsNoScreenAnyMore) {
    uninit_shared_skin();
    ScreenUninit();
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
    setenv("SDL_VIDEODRIVER", "nonsense", 1);
    EXPECT_FALSE(hostkit::rotateScreen(true));
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    takeLog();
}
