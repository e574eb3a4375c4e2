#include "end_to_end/window_run.h"

#include <gmock/gmock.h>

#include <csignal>

using ::testing::HasSubstr;

static const char* const sSample = NAVORA_RUN_FOLDER "/sample";

class NavoraWindowTest : public NavoraOnX {};

TEST_F(NavoraWindowTest, AnswersTheKeyboardAndLeavesByEscape) {
    const XDisplay display("1280x720");
    const auto navora = start(display);
    EXPECT_TRUE(comesToShow(display, shot(sSample)));
    for (const auto& [key, keysUpToNow] :
         std::vector<std::pair<std::string, std::string>>{{"Up", "up"},
                                                          {"space", "up,a"},
                                                          {"Down", "up,a,down"},
                                                          {"Down", "up,a,down,down"},
                                                          {"Right", "up,a,down,down,right"},
                                                          {"Left", "up,a,down,down"},
                                                          {"Control_L", "up"},
                                                          {"Down", ""},
                                                          {"space", "a"},
                                                          {"Down", "a,down"},
                                                          {"Down", "a,down,down"},
                                                          {"space", "a,down,down,a"},
                                                          {"Control_L", "a,down,down"},
                                                          {"Escape", ""}}) {
        EXPECT_EQ(display.press(key), 0);
        EXPECT_TRUE(comesToShow(display, shot(sSample, keysUpToNow))) << key << " to " << keysUpToNow;
    }
    EXPECT_TRUE(navora->isRunning());
    EXPECT_EQ(display.press("Escape"), 0);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
}

TEST_F(NavoraWindowTest, ScriptedKeysComeBeforeTheKeyboards) {
    const XDisplay display("1280x720");
    const auto navora = start(display, {"--keys", "a,down,down,a"});
    EXPECT_TRUE(comesToShow(display, shot(sSample, "a,down,down,a")));
    EXPECT_EQ(display.press("Escape"), 0);
    EXPECT_TRUE(comesToShow(display, shot(sSample, "a,down,down")));
    EXPECT_EQ(display.press("Escape"), 0);
    EXPECT_TRUE(comesToShow(display, shot(sSample)));
    EXPECT_EQ(display.press("Escape"), 0);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
}

TEST_F(NavoraWindowTest, OnARotatedDisplayThePageLiesOnItsSide) {
    const XDisplay display("720x1280");
    const auto navora = start(display, {"--rotate", "--keys", "a,down,down,down"});
    // Turned back, the picture has lost the row that lies beyond the display's edge.
    const SDL_Rect seen{0, 0, 1280, 719};
    const Picture page = gamesShot(sSample, "down,down,down").part({0, 1, 1280, 719}).without(layout::clock);
    EXPECT_TRUE(eventually([&] {
        return looksLike(display.capture().turned().part(seen).without(layout::clock), page, tolerance);
    }));
    navora->signal(SIGTERM);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
}

TEST_F(NavoraWindowTest, WithoutAcceleratedRendererTheSoftwareRendererServes) {
    const XDisplay display("1280x720", {"-extension", "GLX"});
    const auto navora = start(display);
    EXPECT_TRUE(comesToShow(display, shot(sSample)));
    EXPECT_EQ(display.press("Escape"), 0);
    EXPECT_EQ(navora->wait(), 0);
    EXPECT_THAT(navora->errors(), HasSubstr("navora: no accelerated renderer ("));
    EXPECT_THAT(navora->errors(), HasSubstr("; trying the software renderer\n"));
}
