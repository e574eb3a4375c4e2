#include "shell/skin.h"
#include "support/durability_log.h"
#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/display_color.h"
#include "system/features.h"
#include "system/system_state.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

// Where the settings' files are looked for, and that they are closed again.

namespace {

constexpr char state[] = "/mnt/UDISK/system.json";

/// No file of this machine is opened here: all paths are refused.
class DevicePathsTest : public SettingsTest {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        unsetenv("KESTRO_DEVICE_ROOT");
        paths.emplace();
        for (const char* path :
             {state, "/mnt/UDISK/system.json.new", "/mnt/SDCARD/features.json", "/usr/kestro/features.json",
              "/sys/devices/virtual/disp/disp/attr/enhance_saturation",
              "/sys/devices/virtual/disp/disp/attr/color_temperature",
              "/sys/devices/virtual/disp/disp/attr/enhance_contrast",
              "/sys/devices/virtual/disp/disp/attr/enhance_bright"})
            paths->refuse(path);
    }

    void TearDown() override {
        paths.reset();
        setenv("KESTRO_DEVICE_ROOT", (folder() + "/device").c_str(), 1);
        SettingsTest::TearDown();
    }

    std::optional<OpenedPaths> paths;
};

using testing::ElementsAre;

size_t openFiles() {
    return static_cast<size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

class ClosedFilesTest : public SettingsTest {};

} // namespace

TEST_F(DevicePathsTest, OfTheSettings) {
    loadSystemState(&gTestHost, nullptr);
    EXPECT_THAT(paths->take(), ElementsAre(state, "/sys/devices/virtual/disp/disp/attr/enhance_bright",
                                           "/sys/devices/virtual/disp/disp/attr/enhance_contrast",
                                           "/sys/devices/virtual/disp/disp/attr/color_temperature",
                                           "/sys/devices/virtual/disp/disp/attr/enhance_saturation"));
    saveSystemState(&gTestHost, nullptr);
    EXPECT_THAT(paths->take(), ElementsAre(state));
    loadThemeInfo(nullptr);
    EXPECT_THAT(paths->take(), ElementsAre(state));
}

TEST_F(DevicePathsTest, OfOneSetting) {
    EXPECT_EQ(saveOneItemInSystemState("vol", 1), -1);
    EXPECT_THAT(paths->take(), ElementsAre(state, state));
    EXPECT_EQ(takeLog(), "open /mnt/UDISK/system.json fail\n");
}

TEST_F(DevicePathsTest, OfTheFeatures) {
    loadSystemFunction();
    EXPECT_THAT(paths->take(), ElementsAre("/mnt/SDCARD/features.json", "/usr/kestro/features.json"));
}

TEST_F(DevicePathsTest, OfTheDisplay) {
    setSaturation(1);
    EXPECT_THAT(paths->take(), ElementsAre("/sys/devices/virtual/disp/disp/attr/enhance_saturation"));
    setColorTemperature(1);
    EXPECT_THAT(paths->take(), ElementsAre("/sys/devices/virtual/disp/disp/attr/color_temperature"));
    setContrast(1);
    EXPECT_THAT(paths->take(), ElementsAre("/sys/devices/virtual/disp/disp/attr/enhance_contrast"));
    setColorBrightness(1);
    EXPECT_THAT(paths->take(), ElementsAre("/sys/devices/virtual/disp/disp/attr/enhance_bright"));
}

TEST_F(ClosedFilesTest, OfSettingsAndFeaturesUsableOrNot) {
    fs::create_directories(onDevice("/sys/devices/virtual/disp/disp/attr"));
    const size_t before = openFiles();
    for (const char* json : {"", "{", "{}", "[]", R"({"vol": 3, "theme": "."})"})
        for (const bool journal : {false, true}) {
            setSettingsJournal(journal);
            DurabilityLog log;
            char* theme = nullptr;
            load(json);
            loadThemeInfo(&theme);
            free(theme);
            saveOneItemInSystemState("vol", 4);
            saveSystemState(&gTestHost, nullptr);
            writeFile(onDevice("/mnt/SDCARD/features.json"), json);
            loadSystemFunction();
            EXPECT_EQ(openFiles(), before) << json;
        }
    takeLog();
}
