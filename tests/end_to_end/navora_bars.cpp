#include "end_to_end/navora_run.h"

#include <sys/stat.h>

/// The bars, on a device whose state the tests change.
class NavoraBarsTest : public NavoraTest {
protected:
    static constexpr SDL_Rect state{960, 0, 320, 80};

    NavoraBarsTest() {
        mDevice.addFolder("mnt/UDISK");
        mFolder.addFile("a.txt");
        setBattery("50");
    }

    void setBattery(const std::string& level) {
        mDevice.addFolder("sys/class/power_supply/axp2202-battery");
        mDevice.addFile("sys/class/power_supply/axp2202-battery/capacity", level + "\n");
    }

    Picture barShot(const std::string& keys) {
        return shot(mFolder.path(), keys, {"--device-root", mDevice.path()});
    }

    SampleFolder mDevice;
};

static const char* const sPages[] = {"", "a", "a,a", "down,a", "down,down,a", "r", "up,a"};

TEST_F(NavoraBarsTest, TheSameStateIsOnEveryPageAndFollowsTheDevice) {
    const Picture half = barShot("").part(state);
    for (const char* keys : sPages)
        EXPECT_EQ(barShot(keys).part(state), half) << keys;
    setBattery("3");
    const Picture low = barShot("").part(state);
    EXPECT_NE(low, half);
    for (const char* keys : sPages)
        EXPECT_EQ(barShot(keys).part(state), low) << keys;
}

TEST_F(NavoraBarsTest, TheSameHintsAreOnEveryPage) {
    const Picture hints = barShot("").part(layout::hints);
    EXPECT_GT(hints.colors(), 10);
    for (const char* keys : sPages)
        EXPECT_EQ(barShot(keys).part(layout::hints), hints) << keys;
}

TEST_F(NavoraBarsTest, AHintTellsWhereTheThirdFaceButtonHasOptions) {
    mFolder.addFolder("b");
    const Picture none = barShot("").part(layout::options);
    const Picture hint = barShot("a,down").part(layout::options);
    EXPECT_NE(hint, none);
    EXPECT_EQ(barShot("a,down,x,down,a").part(layout::options), hint) << "and makes it a favourite";
    EXPECT_EQ(barShot("down,a").part(layout::options), hint);
    EXPECT_EQ(barShot("r,right,right,right,right,right,right").part(layout::options), hint);
    for (const char* keys : {"a", "down,down,a", "a,down,a", "r", "up,a"})
        EXPECT_EQ(barShot(keys).part(layout::options), none) << keys;
}

TEST_F(NavoraBarsTest, TheTimeIsOnEveryPage) {
    for (const char* keys : sPages)
        EXPECT_GT(timedShot(mFolder.path(), keys).part({1000, 20, 119, 40}).colors(), 30) << keys;
}

TEST_F(NavoraBarsTest, WifiIsAskedOnceForAPicture) {
    constexpr SDL_Rect icon{1082, 19, 33, 32}; // at the right of the clock, which has moved
    for (const char* folder : {"proc/301", "tmp", "bin"})
        mDevice.addFolder(folder);
    mDevice.addFile("proc/301/cmdline", "/usr/sbin/wpa_supplicant");
    const auto iconAt = [&](const std::string& strength) {
        mDevice.addFile("bin/wpa_cli", "#!/bin/sh\necho wpa_state=COMPLETED\necho RSSI=" + strength + "\n");
        EXPECT_EQ(chmod(mDevice.path("bin/wpa_cli").c_str(), 0755), 0);
        return timedShot(mFolder.path(), "", {"--device-root", mDevice.path()}).part(icon);
    };
    const Picture strong = iconAt("-50");
    EXPECT_GT(strong.colors(), 10);
    EXPECT_NE(iconAt("-100"), strong);
    EXPECT_EQ(iconAt("-50"), strong);
}
