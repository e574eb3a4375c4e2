#include "end_to_end/window_run.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace fs = std::filesystem;

static const std::string sSample = NAVORA_RUN_FOLDER "/sample";
static constexpr SDL_Rect sPanel{656, 90, 584, 552};

/// A device as tools/device makes it.
class ToolDevice {
public:
    ToolDevice() { change("init"); }

    const std::string& path() const { return mFolder.path(); }
    SampleFolder& folder() { return mFolder; }

    void change(const std::string& command) const {
        const std::string call = NAVORA_SOURCES "/tools/device --root " + path() + " " + command;
        EXPECT_EQ(system(call.c_str()), 0) << command;
    }

    /// Every file of it, by its name, but those that a launcher writes by itself: the Wi-Fi client's scratch
    /// file, and the colours of the display.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> all;
        const auto isLaunchers = [](const std::string& name) {
            return name == "tmp/wpa_status.txt" || name.rfind("sys/devices/virtual/disp/", 0) == 0;
        };
        for (const auto& entry : fs::recursive_directory_iterator(path())) {
            const std::string name = entry.path().lexically_relative(path());
            std::ifstream file(entry.path(), std::ios::binary);
            if (entry.is_regular_file() && !isLaunchers(name))
                all[name] = {std::istreambuf_iterator<char>(file), {}};
        }
        return all;
    }

private:
    SampleFolder mFolder;
};

class NavoraDeviceTest : public NavoraOnX {
protected:
    Picture deviceShot(const ToolDevice& device, const std::string& keys = "",
                       std::vector<std::string> options = {}) {
        options.insert(options.end(), {"--device-root", device.path()});
        return shot(sSample, keys, options).without(layout::clock);
    }

    /// That the keys change the first of two new devices as the commands change the second.
    void expectSame(const std::string& keys, const std::vector<std::string>& commands) {
        const ToolDevice byKeys;
        const ToolDevice byCommands;
        deviceShot(byKeys, keys);
        for (const std::string& command : commands)
            byCommands.change(command);
        EXPECT_EQ(byKeys.files(), byCommands.files()) << keys;
    }
};

TEST_F(NavoraDeviceTest, F1ShowsAndHidesThePanelOverThePage) {
    const ToolDevice device;
    const Picture plain = deviceShot(device);
    const Picture panel = deviceShot(device, "f1");
    EXPECT_NE(panel.part(sPanel), plain.part(sPanel));
    EXPECT_EQ(panel.without(sPanel), plain.without(sPanel));
    EXPECT_EQ(deviceShot(device, "f1,f1"), plain);
    EXPECT_EQ(deviceShot(device, "a,f1,b"), panel);
    EXPECT_EQ(deviceShot(device, "f1,down").without(sPanel), deviceShot(device, "down").without(sPanel));
}

// To windows over a page: the menu of a game, and a question about what was played.
static constexpr const char* sPopUp = "a,down,down,down,x";
static constexpr const char* sQuestion = "a,down,down,down,a,b,b,down,down,a,x,up,a";

TEST_F(NavoraDeviceTest, ThePanelIsOverWhateverIsOpen) {
    const ToolDevice device;
    const Picture panel = deviceShot(device, "f1").part(sPanel);
    for (const std::string keys : {sPopUp, sQuestion}) {
        const Picture window = deviceShot(device, keys);
        const Picture both = deviceShot(device, keys + ",f1");
        EXPECT_EQ(both.part(sPanel), panel) << keys;
        EXPECT_EQ(both.without(sPanel), window.without(sPanel)) << keys;
        EXPECT_EQ(deviceShot(device, "f1," + keys), both) << keys;
        EXPECT_EQ(deviceShot(device, "f1," + keys + ",f1"), window) << keys;
    }
}

TEST_F(NavoraDeviceTest, WhatIsOpenShowsTheDeviceBelowAsItIs) {
    for (const std::string keys : {sPopUp, sQuestion}) {
        const Picture after = deviceShot(ToolDevice(), keys + ",f2,f4,f7");
        EXPECT_EQ(after, deviceShot(ToolDevice(), "f2,f4,f7," + keys));
        EXPECT_NE(after, deviceShot(ToolDevice(), keys));
    }
}

TEST_F(NavoraDeviceTest, ThePanelSpeaksTheLanguage) {
    const ToolDevice device;
    const Picture english = deviceShot(device, "f1").part(sPanel);
    for (const char* language : {"ch.lang", "es.lang", "jp.lang", "ko.lang", "pt.lang"})
        EXPECT_NE(deviceShot(device, "f1", {"--lang", language}).part({680, 156, 350, 38}),
                  english.part({24, 66, 350, 38}))
            << language;
}

TEST_F(NavoraDeviceTest, TheOptionShowsThePanelFromTheStart) {
    const ToolDevice device;
    EXPECT_EQ(deviceShot(device, "", {"--device-panel"}), deviceShot(device, "f1"));
    EXPECT_EQ(deviceShot(device, "f1", {"--device-panel"}), deviceShot(device));
}

TEST_F(NavoraDeviceTest, ThePanelTellsWhatIsOnTheDevice) {
    const ToolDevice device;
    Picture before = deviceShot(device, "f1");
    for (const char* command : {"battery 7", "charger on", "wifi connected 1", "wifi connecting",
                                "wifi hotspot", "wifi off", "bluetooth on", "headphones on"}) {
        device.change(command);
        const Picture after = deviceShot(device, "f1");
        EXPECT_NE(after.part(sPanel), before.part(sPanel)) << command;
        before = after;
    }
}

TEST_F(NavoraDeviceTest, ThePanelFollowsItsKeysAtOnce) {
    for (const char* key : {"f2", "f3", "f4", "f5", "f6", "f7", "f8"}) {
        const ToolDevice device;
        const Picture followed = deviceShot(device, std::string("f1,") + key).part(sPanel);
        EXPECT_EQ(followed, deviceShot(device, "f1").part(sPanel)) << key;
        EXPECT_NE(followed, deviceShot(ToolDevice(), "f1").part(sPanel)) << key;
    }
}

TEST_F(NavoraDeviceTest, TheKeysChangeTheDeviceAsTheCommandsDo) {
    expectSame("f2", {"battery 75"});
    expectSame("f3,f3", {"battery 90"});
    expectSame("f3,f3,f3,f3,f3", {"battery 100"});
    expectSame("f4", {"charger on"});
    expectSame("f4,f4", {"charger on", "charger off"});
    expectSame("f5", {"wifi hotspot"});
    expectSame("f5,f5", {"wifi off"});
    expectSame("f5,f5,f5", {"wifi scanning"});
    expectSame("f5,f5,f5,f5", {"wifi connecting"});
    expectSame("f5,f5,f5,f5,f5", {"wifi connected"});
    expectSame("f6", {"wifi connected 1"});
    expectSame("f6,f6", {"wifi connected 2"});
    expectSame("f5,f6,f6,f6", {"wifi connected 3"});
    expectSame("f7", {"bluetooth on"});
    expectSame("f8", {"headphones on"});
    expectSame("f7,f8,f7,f8", {"bluetooth on", "bluetooth off", "headphones off"});
    expectSame("f9", {"swap-ab on"});
    expectSame("f9,f9", {"swap-ab off"});
    expectSame("f11", {"rotation 1"});
    expectSame("f11,f11", {"rotation 0"});
    expectSame("f10,f10,f10,f10,f10,f10", {"language en"}); // once around the six
    expectSame("f1,f12,up,down", {});
}

TEST_F(NavoraDeviceTest, TheBatteryGoesInStepsOfFiveAndNoFurtherThanItsEnds) {
    const ToolDevice device;
    const auto capacity = [&] { return device.files()["sys/class/power_supply/axp2202-battery/capacity"]; };
    device.change("battery 7");
    deviceShot(device, "f2");
    EXPECT_EQ(capacity(), "5\n");
    deviceShot(device, "f2,f2,f2");
    EXPECT_EQ(capacity(), "0\n");
    device.change("battery 7");
    deviceShot(device, "f3");
    EXPECT_EQ(capacity(), "10\n");
}

TEST_F(NavoraDeviceTest, TheButtonsAreSwappedWhileItRuns) {
    const ToolDevice device;
    const Picture swapped = deviceShot(device, "f9");
    EXPECT_EQ(swapped, deviceShot(device)); // which begins with what F9 has left
    EXPECT_NE(swapped.part(layout::hints), deviceShot(ToolDevice()).part(layout::hints));
    EXPECT_EQ(deviceShot(device, "b,down"), deviceShot(ToolDevice(), "f9,b,down"));
}

TEST_F(NavoraDeviceTest, TheLanguageChangesWhileItRuns) {
    const ToolDevice device;
    const Picture english = deviceShot(device);
    const Picture next = deviceShot(device, "f10");
    EXPECT_NE(rowText(next, 0), rowText(english, 0));
    EXPECT_EQ(next, deviceShot(device));
}

TEST_F(NavoraDeviceTest, TheFirstSettingsThatAreSavedAreNoChangeOfLanguage) {
    ToolDevice device;
    device.folder().addFile("mnt/UDISK/system.json", "{}");
    const std::vector<std::string> chinese{"--lang", "ch.lang"};
    const Picture page = deviceShot(device, "up,a,b,f7", chinese); // the key lets it look at once
    EXPECT_EQ(page, deviceShot(device, "up", chinese));
}

TEST_F(NavoraDeviceTest, TheScreenIsTurnedWhileItRuns) {
    const ToolDevice device;
    const auto games = [&](const std::string& keys, std::vector<std::string> options = {}) {
        options.insert(options.end(), {"--device-root", device.path()});
        return shot(sSample, keys, options);
    };
    constexpr SDL_Rect top{0, 0, 1280, 719};
    constexpr SDL_Rect bottom{0, 1, 1280, 719}; // the first row lies beyond the display's edge
    const Picture upright = games("a,down,down,down");
    const Picture turned = upright.part(bottom).without(layout::clock);
    EXPECT_EQ(games("a,down,down,down,f11").part(top).without(layout::clock), turned);
    EXPECT_EQ(games("f11,a,down,down,down").part(top).without(layout::clock), turned);
    EXPECT_EQ(games("a,down,down,down,f11,f11"), upright);
    EXPECT_EQ(games("a,down,down,down,f11", {"--rotate"}), upright);
}

TEST_F(NavoraDeviceTest, NoPageLosesItsPicturesWhenTheScreenIsTurned) {
    const ToolDevice device;
    for (const auto& [before, after] : {std::pair("down", ""),
                                        {"up,a,down", ""},
                                        {"up,a,down", ",b"},
                                        {"r,right,a", ""},
                                        {sPopUp, ""},
                                        {sPopUp, ",b"},
                                        {sQuestion, ""},
                                        {sQuestion, ",b"},
                                        {"a,down,down,a", ""},
                                        {"a,down,down,a", ",b"},
                                        {"a,down,down,a", ",b,b"}}) {
        const std::string keys = before;
        EXPECT_EQ(deviceShot(device, keys + ",f11,f11" + after), deviceShot(device, keys + after))
            << keys + after;
    }
}

TEST_F(NavoraDeviceTest, SettingsThatAreNoneStayAsTheyAre) {
    ToolDevice device;
    device.folder().addFile("mnt/UDISK/system.json", "nonsense");
    const auto before = device.files();
    EXPECT_EQ(deviceShot(device, "f9,f10"), deviceShot(device));
    EXPECT_EQ(device.files(), before);
}

TEST_F(NavoraDeviceTest, OnARealDeviceOrTheUsersOwnThereIsNoPanelAndNoKey) {
    const auto real = [&](const std::string& keys, const std::vector<std::string>& options = {}) {
        std::vector<std::string> command{NAVORA, "--shot", mResults.path("real.bmp"), "--keys", keys};
        command.insert(command.end(), options.begin(), options.end());
        const std::vector<std::string> environment{"KESTRO_DEVICE_ROOT=",
                                                   "XDG_DATA_HOME=" + mResults.path("data")};
        auto launcher = std::make_unique<Process>(command, environment, "");
        launcher->wait();
        return launcher;
    };
    real("f12");
    const Picture plain = readPicture(mResults.path("real.bmp"));
    ASSERT_EQ(plain.width, 1280);
    real("f1,f2,f4,f9,f10,f11");
    EXPECT_EQ(readPicture(mResults.path("real.bmp")).without(layout::clock), plain.without(layout::clock));
    const auto refused = real("", {"--device-panel"});
    EXPECT_EQ(refused->wait(), 2);
    EXPECT_EQ(refused->errors(), "navora: --device-panel needs --device-root; navora --help tells more\n");
}

TEST_F(NavoraDeviceTest, TheKeyboardsFunctionKeysWorkInTheWindow) {
    const ToolDevice device;
    const XDisplay display("1280x720");
    const auto navora = start(display, {"--device-root", device.path()});
    EXPECT_TRUE(comesToShow(display, deviceShot(device)));
    EXPECT_EQ(display.press("F1"), 0);
    EXPECT_TRUE(comesToShow(display, deviceShot(device, "f1")));
    EXPECT_EQ(display.press("F2"), 0);
    const auto battery = [&] { return device.files()["sys/class/power_supply/axp2202-battery/capacity"]; };
    EXPECT_TRUE(eventually([&] { return battery() == "75\n"; }));
    EXPECT_TRUE(comesToShow(display, deviceShot(device, "f1")));
    EXPECT_EQ(display.press("F1"), 0);
    EXPECT_TRUE(comesToShow(display, deviceShot(device)));
    navora->signal(SIGTERM);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
}

TEST_F(NavoraDeviceTest, WhatOthersChangeOnTheDeviceIsFollowed) {
    const ToolDevice device;
    const XDisplay display("1280x720");
    const auto navora = start(display, {"--device-root", device.path(), "--device-panel"});
    const auto follows = [&](const std::string& command) {
        device.change(command);
        return comesToShow(display, deviceShot(device, "", {"--device-panel"}));
    };
    EXPECT_TRUE(comesToShow(display, deviceShot(device, "f1")));
    EXPECT_TRUE(follows("battery 7"));
    EXPECT_TRUE(follows("language ch"));
    EXPECT_TRUE(follows("swap-ab on"));
    const Picture upright = deviceShot(device, "f1");
    device.change("rotation 1");
    EXPECT_TRUE(eventually([&] { return !looksLike(display.capture(), upright, 100); }));
    device.change("rotation 0");
    EXPECT_TRUE(comesToShow(display, upright));
    EXPECT_EQ(display.press("Down"), 0); // the new window has the keyboard
    EXPECT_TRUE(comesToShow(display, deviceShot(device, "f1,down")));
    navora->signal(SIGTERM);
    EXPECT_EQ(navora->wait(), 0) << navora->errors();
}
