#include "end_to_end/navora_run.h"

/// The last row of the settings leads to it.
class NavoraAboutTest : public NavoraTest {
protected:
    NavoraAboutTest() { mDevice.addFolder("mnt/UDISK"); }

    Picture settingsShot(const std::string& keys, std::vector<std::string> moreOptions = {}) {
        moreOptions.insert(moreOptions.end(), {"--device-root", mDevice.path()});
        return shot(mFolder.path(), "up,a," + keys, moreOptions);
    }

    Picture about(const std::vector<std::string>& moreOptions = {}) {
        return settingsShot("up,a", moreOptions);
    }

    SampleFolder mDevice;

    static constexpr SDL_Rect sVersion{560, 176, 680, 48};
    static constexpr SDL_Rect sBattery{560, 282, 680, 48};
    static constexpr SDL_Rect sFreeSpace{560, 388, 680, 48};
    static constexpr SDL_Rect sLicence{560, 494, 680, 48};
};

TEST_F(NavoraAboutTest, TellsWhatThereIsToKnow) {
    const Picture page = about();
    for (const SDL_Rect& fact : {sVersion, sFreeSpace, sLicence})
        EXPECT_GT(page.part(fact).colors(), 20) << fact.y;
    EXPECT_NE(about({"--lang", "ch.lang"}).part({560, 140, 680, 36}), page.part({560, 140, 680, 36}));
    EXPECT_EQ(settingsShot("up,a,menu"), settingsShot("up"));
}

TEST_F(NavoraAboutTest, TheBatteryIsThatOfTheDevice) {
    const Picture none = about().part(sBattery);
    mDevice.addFolder("sys/class/power_supply/axp2202-battery");
    mDevice.addFile("sys/class/power_supply/axp2202-battery/capacity", "42\n");
    const Picture some = about().part(sBattery);
    EXPECT_NE(some, none);
    mDevice.addFile("sys/class/power_supply/axp2202-battery/status", "Charging\n");
    EXPECT_NE(about().part(sBattery), some);
}
