#include "end_to_end/navora_run.h"

class NavoraShotTest : public NavoraTest {};

TEST_F(NavoraShotTest, ShowsSomethingWorthSeeing) {
    const Picture page = gamesShot(NAVORA_RUN_FOLDER "/sample", "down,down,down");
    EXPECT_GT(page.colors(), 500);
    EXPECT_EQ(cursorRow(page), 3);
    EXPECT_GT(page.part(layout::thumbnail).colors(), 50);
    EXPECT_GT(page.part(layout::hints).colors(), 10);
}

TEST_F(NavoraShotTest, IsTheSameEveryTime) {
    const std::string sample = NAVORA_RUN_FOLDER "/sample";
    for (const char* keys : {"a,down,a,down,b,down,down,a", "up,a,down,down,right"})
        EXPECT_EQ(shot(sample, keys), shot(sample, keys));
}

TEST_F(NavoraShotTest, RotatedItShowsTheSamePageUpright) {
    // The display is mounted so that one row of the page lies beyond its edge.
    const Picture page = gamesShot(NAVORA_RUN_FOLDER "/sample", "down,down,down");
    const Picture rotated = gamesShot(NAVORA_RUN_FOLDER "/sample", "down,down,down", {"--rotate"});
    EXPECT_EQ(rotated.part({0, 0, 1280, 719}).without(layout::clock),
              page.part({0, 1, 1280, 719}).without(layout::clock));
}

TEST_F(NavoraShotTest, OnesOnTheWayAreThoseOfTheirKeys) {
    const std::string sample = NAVORA_RUN_FOLDER "/sample";
    EXPECT_EQ(shot(sample, "shot,a,down,down,down,shot,x,shot,b,shot,shot,down"),
              shot(sample, "a,down,down,down,down"));
    const Picture list = shot(sample, "a,down,down,down"); // which leaves the others
    const auto page = [&](int number) {
        return readPicture(mResults.path("page-" + std::to_string(number) + ".bmp")).without(layout::clock);
    };
    EXPECT_EQ(page(2), list);
    EXPECT_EQ(page(4), list);
    EXPECT_EQ(page(5), list);
    EXPECT_EQ(page(1), shot(sample));
    EXPECT_EQ(page(3), shot(sample, "a,down,down,down,x"));
}

TEST_F(NavoraShotTest, AThemeReplacesPicturesOfTheSkin) {
    SampleFolder theme;
    theme.addFolder("skin");
    theme.addPicture("skin/bg.png", 1280, 720, 0x4080C0);
    const Picture page = gamesShot(mFolder.path(), "", {"--theme", theme.path()});
    EXPECT_EQ(page.at(5, 5), 0x4080C0u);
    EXPECT_EQ(page, gamesShot(mFolder.path(), "", {"--theme", theme.path() + "/"}));
    EXPECT_NE(gamesShot(mFolder.path()).at(5, 5), 0x4080C0u);
}

TEST_F(NavoraShotTest, TheDeviceRootStandsForTheDevice) {
    SampleFolder device;
    EXPECT_EQ(cursorRow(shot(mFolder.path(), "down", {"--device-root", device.path()})), 1);
    device.addFolder("tmp");
    device.addFile("tmp/osdd_show_up"); // the on-screen display takes all keys
    EXPECT_EQ(cursorRow(shot(mFolder.path(), "down", {"--device-root", device.path()})), 0);
}

TEST_F(NavoraShotTest, WithoutAPictureTheKeysOnlyStart) {
    const Outcome run = runNavora({"--keys", "down,up,a,menu,menu"}, {"SDL_VIDEODRIVER=dummy"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors.rfind("navora: no accelerated renderer (", 0), 0u) << run.errors;
    EXPECT_NE(run.errors.find("; trying the software renderer\n"), std::string::npos) << run.errors;
    EXPECT_NE(run.output.find("quit navora\n"), std::string::npos) << run.output;
}
