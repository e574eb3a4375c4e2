#include "hostkit/session.h"

#include "core/host.h"
#include "gfx/screen.h"
#include "hostkit/close_request.h"
#include "hostkit/key_table.h"
#include "hostkit/theme.h"
#include "shell/skin.h"
#include "support/child_process.h"
#include "support/screen_test.h"
#include "support/system_log.h"
#include "system/features.h"

#include <SDL.h>
#include <SDL_image.h>

#include <filesystem>
#include <utility>

using hostkit::Session;
using hostkit::SessionOptions;
using testing::HasSubstr;
using testing::Not;

/// What a session starts with, gives up and takes back.
class SessionStartTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        std::filesystem::create_symlink(TEST_FONT, "regular.ttf");
        SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
    }

    void TearDown() override {
        hostkit::removeKeyTable(hostkit::keyTableName());
        hostkit::useTheme("");
        SDL_ResetHint(SDL_HINT_RENDER_DRIVER);
        takeLog();
        KestroTest::TearDown();
    }
};

TEST_F(SessionStartTest, ReadsWhatTheDeviceHas) {
    for (const int has : {1, 0}) {
        const std::string text = std::to_string(has);
        writeFile(onDevice("/mnt/SDCARD/features.json"), "{\"bluetooth\": " + text + ", \"suspend\": 1}");
        const Session session;
        EXPECT_EQ(isBluetoothEanbled(), has);
    }
}

TEST_F(SessionStartTest, AHostsOwnTableIsLeftToIt) {
    hostkit::KeyTable own;
    void* const kit = std::exchange(gShmInfo, &own);
    {
        const Session session;
        EXPECT_EQ(hostkit::gKeyTable.state(), hostkit::KeyTable::State::closed);
    }
    gShmInfo = kit;
}

TEST_F(SessionStartTest, WithoutASoundDeviceItIsSilent) {
    setenv("SDL_AUDIODRIVER", "nonsense", 1);
    {
        const Session session;
        EXPECT_TRUE(session.isOpen()) << session.problem();
        EXPECT_EQ(gKeyChunk, nullptr);
    }
    setenv("SDL_AUDIODRIVER", "dummy", 1);
}

TEST_F(SessionStartTest, AcceleratedDrawingThatNobodySeesIsForWhoAsks) {
    const ChildResult child = inChild([](int report) {
        skipLeakCheck();
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        const Session session;
        writeTo(report, session.isOpen() ? SDL_GetCurrentVideoDriver() : session.problem());
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.report, "offscreen");
}

TEST_F(SessionStartTest, WithoutAnAcceleratedRendererItDrawsInSoftware) {
    unsetenv("SDL_RENDER_DRIVER");
    SDL_ResetHint(SDL_HINT_RENDER_DRIVER);
    {
        const Session session; // on the dummy driver, which has no other
        EXPECT_TRUE(session.isOpen()) << session.problem();
        SDL_RendererInfo renderer{};
        EXPECT_EQ(SDL_GetRendererInfo(gRenderer, &renderer), 0);
        EXPECT_STREQ(renderer.name, "software");
    }
    setenv("SDL_RENDER_DRIVER", "software", 1);
}

TEST_F(SessionStartTest, ItsLogGoesToTheSystemLogWhereThatIsAskedFor) {
    const ChildResult child = inChild([](int report) {
        noteSystemLogIn(report);
        SessionOptions options;
        options.useSyslog = true;
        options.hidden = true;
        const Session session(options);
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_THAT(child.report, HasSubstr("[ScreenInit 1280x720 32, rotate=0\n]"));
    EXPECT_THAT(takeLog(), Not(HasSubstr("ScreenInit")));
}

TEST_F(SessionStartTest, GivenUpTheScreenIsFreeForOthers) {
    Session session;
    session.giveUpScreen();
    EXPECT_EQ(SDL_WasInit(SDL_INIT_EVERYTHING), 0u);
    EXPECT_EQ(IMG_Init(0), 0);
    EXPECT_EQ(gRenderer, nullptr);
    EXPECT_EQ(gListFontTxt, nullptr);
    EXPECT_EQ(gKeyChunk, nullptr);
    EXPECT_TRUE(session.isOpen());
}

TEST_F(SessionStartTest, TakenBackItIsAsBefore) {
    SessionOptions options;
    options.rotate = true;
    options.theme = folder() + "/other";
    Session session(options);
    session.giveUpScreen();
    takeLog();
    EXPECT_TRUE(session.takeBackScreen()) << session.problem();
    EXPECT_THAT(takeLog(), HasSubstr("ScreenInit 1280x720 32, rotate=1\n"));
    EXPECT_NE(gRenderer, nullptr);
    EXPECT_NE(gListFontTxt, nullptr);
    EXPECT_NE(gKeyChunk, nullptr);
    EXPECT_NE(SDL_WasInit(SDL_INIT_GAMECONTROLLER), 0u);
    EXPECT_EQ(gThemePath, folder() + "/other/");
    hostkit::requestClose();
    EXPECT_TRUE(hostkit::closeRequested()) << "the close button is watched again";
}

TEST_F(SessionStartTest, AScreenThatCannotBeTakenBackIsAProblem) {
    Session session;
    session.giveUpScreen();
    setenv("SDL_VIDEODRIVER", "nonsense", 1);
    EXPECT_FALSE(session.takeBackScreen());
    EXPECT_TRUE(session.lacksDisplay());
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    EXPECT_FALSE(session.takeBackScreen()) << "what was a problem remains one";
    EXPECT_EQ(gRenderer, nullptr);
}
