#include "end_to_end/window_run.h"

#include <csignal>
#include <tuple>

/// Ways to ask the launcher to end, and the windows to ask in.
class NavoraClosingTest : public NavoraOnX,
                          public ::testing::WithParamInterface<std::tuple<std::string, std::string>> {
protected:
    static std::string keysTo(const std::string& page) {
        if (page == "Home")
            return "up";
        if (page == "Settings")
            return "up,a,down";
        return page == "Games" ? "a,down,down" : "a,down,down,a";
    }

    static void requestEnd(const std::string& way, const XDisplay& display, const Process& navora) {
        if (way == "CloseButton")
            EXPECT_TRUE(display.requestClose());
        else
            navora.signal(way == "SIGTERM" ? SIGTERM : SIGINT);
    }
};

TEST_P(NavoraClosingTest, EndsCleanly) {
    const auto& [way, page] = GetParam();
    const std::string keys = keysTo(page);
    const XDisplay display("1280x720");
    const auto navora = start(display, {"--keys", keys});
    ASSERT_TRUE(comesToShow(display, shot(NAVORA_RUN_FOLDER "/sample", keys)));
    requestEnd(way, display, *navora);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
    EXPECT_NE(navora->output().find("a is 1003, quit navora\n"), std::string::npos) << navora->output();
    EXPECT_NE(navora->output().find("deinit check_repeat_thread\n"), std::string::npos) << navora->output();
}

INSTANTIATE_TEST_SUITE_P(Navora, NavoraClosingTest,
                         ::testing::Combine(::testing::Values("CloseButton", "SIGTERM", "SIGINT"),
                                            ::testing::Values("Home", "Games", "Details", "Settings")),
                         [](const auto& test) { return std::get<0>(test.param) + std::get<1>(test.param); });
