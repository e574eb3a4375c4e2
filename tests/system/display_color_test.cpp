#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/display_color.h"

#include <climits>
#include <filesystem>
#include <ostream>

namespace {

struct Level {
    const char* name;
    void (*set)(int);
    int (*get)();
    void (*restore)();
    int smallest;
    int largest;
    int initial;
    const char* driver;
    int (*written)(int level);
    int atLoad;
};

int tenfold(int level) {
    return level * 10;
}

int fromMiddle(int level) {
    return (level - 10) * 5;
}

const Level levels[] = {
    {"Saturation", setSaturation, getSaturation, restoreSaturation, 0, 10, 5, "enhance_saturation", tenfold,
     getSaturation()},
    {"Temperature", setColorTemperature, getColorTemperature, restoreColorTemperature, 0, 20, 10,
     "color_temperature", fromMiddle, getColorTemperature()},
    {"Contrast", setContrast, getContrast, restoreContrast, 1, 10, 5, "enhance_contrast", tenfold,
     getContrast()},
    {"Brightness", setColorBrightness, getColorBrightness, restoreColorBrightness, 1, 10, 5, "enhance_bright",
     tenfold, getColorBrightness()},
};

void PrintTo(const Level& level, std::ostream* out) {
    *out << level.name;
}

std::string nameOf(const testing::TestParamInfo<Level>& info) {
    return info.param.name;
}

class DisplayColorTest : public SettingsTest, public testing::WithParamInterface<Level> {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        std::filesystem::create_directories(onDevice("/sys/devices/virtual/disp/disp/attr"));
    }
    std::string driverFile() const {
        return onDevice("/sys/devices/virtual/disp/disp/attr/") + GetParam().driver;
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Levels, DisplayColorTest, testing::ValuesIn(levels), nameOf);

TEST_P(DisplayColorTest, HasItsDefaultAtLoad) {
    EXPECT_EQ(GetParam().atLoad, GetParam().initial);
}

TEST_P(DisplayColorTest, IsStoredAndWrittenAtEveryLevel) {
    for (int level = GetParam().smallest; level <= GetParam().largest; ++level) {
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), level);
        EXPECT_EQ(readFile(driverFile()), std::to_string(GetParam().written(level)));
    }
}

TEST_P(DisplayColorTest, IsClampedBelow) {
    for (const int level : {GetParam().smallest - 1, -3, INT_MIN}) {
        GetParam().set(GetParam().largest);
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), GetParam().smallest) << level;
        EXPECT_EQ(readFile(driverFile()), std::to_string(GetParam().written(GetParam().smallest))) << level;
    }
}

TEST_P(DisplayColorTest, IsClampedAbove) {
    for (const int level : {GetParam().largest + 1, 25, INT_MAX}) {
        GetParam().set(GetParam().smallest);
        GetParam().set(level);
        EXPECT_EQ(GetParam().get(), GetParam().largest) << level;
        EXPECT_EQ(readFile(driverFile()), std::to_string(GetParam().written(GetParam().largest))) << level;
    }
}

TEST_P(DisplayColorTest, IsRestoredToItsDefault) {
    GetParam().set(GetParam().largest);
    GetParam().restore();
    EXPECT_EQ(GetParam().get(), GetParam().initial);
    EXPECT_EQ(readFile(driverFile()), std::to_string(GetParam().written(GetParam().initial)));
}

TEST_P(DisplayColorTest, ReplacesWhatTheDriverFileHeld) {
    writeFile(driverFile(), "a longer text than any level");
    GetParam().set(GetParam().largest);
    EXPECT_EQ(readFile(driverFile()), std::to_string(GetParam().written(GetParam().largest)));
}

TEST_P(DisplayColorTest, IsStoredWithoutADriver) {
    std::filesystem::remove_all(onDevice("/sys"));
    GetParam().set(GetParam().largest);
    EXPECT_EQ(GetParam().get(), GetParam().largest);
    EXPECT_FALSE(std::filesystem::exists(onDevice("/sys")));
    EXPECT_EQ(takeLog(), "");
}

TEST_P(DisplayColorTest, IsWrittenToItsOwnDriverFileOnly) {
    OpenedPaths paths;
    GetParam().set(GetParam().largest);
    EXPECT_THAT(paths.take(), testing::ElementsAre(driverFile()));
}

TEST_P(DisplayColorTest, LeavesTheOtherLevelsAlone) {
    for (const Level& level : levels)
        level.set(7);
    GetParam().set(3);
    for (const Level& level : levels)
        EXPECT_EQ(level.get(), level.set == GetParam().set ? 3 : 7) << level.name;
}

namespace {
class DisplayDriverTest : public SettingsTest {
protected:
    std::string written(const std::string& driver, void (*set)(int), int level) const {
        const std::string file = onDevice("/sys/devices/virtual/disp/disp/attr/" + driver);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        set(level);
        return readFile(file);
    }
};
} // namespace

TEST_F(DisplayDriverTest, ReceivesTheseTexts) {
    EXPECT_EQ(written("color_temperature", setColorTemperature, 25), "50");
    EXPECT_EQ(getColorTemperature(), 20);
    EXPECT_EQ(written("color_temperature", setColorTemperature, -3), "-50");
    EXPECT_EQ(getColorTemperature(), 0);
    EXPECT_EQ(written("color_temperature", setColorTemperature, 10), "0");
    EXPECT_EQ(written("color_temperature", setColorTemperature, 9), "-5");
    EXPECT_EQ(written("enhance_contrast", setContrast, 0), "10");
    EXPECT_EQ(getContrast(), 1);
    EXPECT_EQ(written("enhance_saturation", setSaturation, 0), "0");
    EXPECT_EQ(written("enhance_saturation", setSaturation, 10), "100");
    EXPECT_EQ(written("enhance_bright", setColorBrightness, 0), "10");
    EXPECT_EQ(written("enhance_bright", setColorBrightness, 10), "100");
}
