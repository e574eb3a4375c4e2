#include "services/power_status.h"
#include "support/kestro_test.h"
#include "support/opened_paths.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr char capacity[] = "/sys/class/power_supply/axp2202-battery/capacity";
constexpr char online[] = "/sys/class/power_supply/axp2202-usb/online";
constexpr char status[] = "/sys/class/power_supply/axp2202-battery/status";

class PowerStatusTest : public KestroTest {
protected:
    int levelOf(const std::string& content) {
        writeFile(onDevice(capacity), content);
        return readBatteryADC();
    }
    bool onlineWith(const std::string& content) {
        writeFile(onDevice(online), content);
        return isUsbOnline();
    }
    bool chargingWith(const std::string& content) {
        writeFile(onDevice(status), content);
        return ischarging();
    }
};

} // namespace

TEST_F(PowerStatusTest, MissingFilesAreLevel0AndNoPower) {
    EXPECT_EQ(readBatteryADC(), 0);
    EXPECT_FALSE(isUsbOnline());
    EXPECT_FALSE(ischarging());
}

TEST_F(PowerStatusTest, LevelIsTheNumberInTheFile) {
    EXPECT_EQ(levelOf("100\n"), 100);
    EXPECT_EQ(levelOf("0\n"), 0);
    EXPECT_EQ(levelOf("7"), 7);
    EXPECT_EQ(levelOf("055\n"), 55) << "in base 10";
    EXPECT_EQ(levelOf("0x20\n"), 0);
}

TEST_F(PowerStatusTest, LevelIsNotClamped) {
    EXPECT_EQ(levelOf("250\n"), 250);
    EXPECT_EQ(levelOf("-3\n"), -3);
}

TEST_F(PowerStatusTest, NonsenseIsLevel0) {
    for (const char* text : {"abc", "", "\n", "\n88\n", "%", "\xff\xfe"})
        EXPECT_EQ(levelOf(text), 0) << text;
    EXPECT_EQ(levelOf(std::string(1, '\0') + "88"), 0);
}

TEST_F(PowerStatusTest, NumberEndsWhereTheDigitsEnd) {
    EXPECT_EQ(levelOf("42%\n"), 42);
    EXPECT_EQ(levelOf(" 42\n"), 42);
    EXPECT_EQ(levelOf("42.9\n"), 42);
}

TEST_F(PowerStatusTest, LevelIsReadFromFifteenCharactersOfOneLine) {
    EXPECT_EQ(levelOf("              7"), 7) << "the fifteenth";
    EXPECT_EQ(levelOf("              77"), 7) << "and not the sixteenth";
    EXPECT_EQ(levelOf("               7"), 0);
    EXPECT_EQ(levelOf("5\n6\n"), 5);
    EXPECT_EQ(levelOf(std::string(1 << 20, ' ') + "9"), 0);
}

TEST_F(PowerStatusTest, UsbIsOnlineExactlyWhenTheFileBeginsWith1) {
    EXPECT_TRUE(onlineWith("1\n"));
    EXPECT_TRUE(onlineWith("1"));
    EXPECT_TRUE(onlineWith("12\n")) << "only the first character counts";
    for (const char* text : {"0\n", "2\n", " 1\n", "\n1\n", "", "yes\n", "-1\n"})
        EXPECT_FALSE(onlineWith(text)) << text;
    EXPECT_TRUE(onlineWith(std::string(1 << 20, '1')));
}

TEST_F(PowerStatusTest, BatteryChargesExactlyWhenTheStatusBeginsWithCharging) {
    EXPECT_TRUE(chargingWith("Charging\n"));
    EXPECT_TRUE(chargingWith("Charging"));
    EXPECT_TRUE(chargingWith("Charging fast\n"));
    for (const char* text : {"charging\n", "Not charging\n", "Full\n", "Discharging\n", "Chargin",
                             " Charging\n", "\nCharging\n", "", "CHARGING\n", "Unknown\n"})
        EXPECT_FALSE(chargingWith(text)) << text;
    EXPECT_FALSE(chargingWith(std::string(1 << 20, 'C')));
}

TEST_F(PowerStatusTest, FolderInTheFilesPlaceIsNoStatus) {
    for (const char* path : {capacity, online, status})
        fs::create_directories(onDevice(path));
    EXPECT_EQ(readBatteryADC(), 0);
    EXPECT_FALSE(isUsbOnline());
    EXPECT_FALSE(ischarging());
}

TEST_F(PowerStatusTest, FilesThatMustNotBeReadAreNoStatus) {
    writeFile(onDevice(capacity), "50\n");
    writeFile(onDevice(online), "1\n");
    writeFile(onDevice(status), "Charging\n");
    OpenedPaths paths;
    for (const char* path : {capacity, online, status})
        paths.refuse(onDevice(path));
    EXPECT_EQ(readBatteryADC(), 0);
    EXPECT_FALSE(isUsbOnline());
    EXPECT_FALSE(ischarging());
}

TEST_F(PowerStatusTest, EveryCallReadsTheFilesAfresh) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(levelOf("20\n"), 20);
        EXPECT_EQ(levelOf("21\n"), 21);
        EXPECT_TRUE(onlineWith("1\n"));
        EXPECT_FALSE(onlineWith("0\n"));
        EXPECT_TRUE(chargingWith("Charging\n"));
        EXPECT_FALSE(chargingWith("Full\n"));
    }
    fs::remove_all(onDevice("/sys"));
    EXPECT_EQ(readBatteryADC(), 0);
}

TEST_F(PowerStatusTest, FilesAreClosedAgain) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    levelOf("1\n");
    onlineWith("1\n");
    chargingWith("");
    const auto before = openFiles();
    for (int i = 0; i < 10; ++i) {
        readBatteryADC();
        isUsbOnline();
        ischarging();
    }
    EXPECT_EQ(openFiles(), before);
}

TEST_F(PowerStatusTest, WithoutARootTheFilesAreTheDevicesOwn) {
    unsetenv("KESTRO_DEVICE_ROOT");
    OpenedPaths paths;
    for (const char* path : {capacity, online, status})
        paths.refuse(path);
    readBatteryADC();
    isUsbOnline();
    ischarging();
    EXPECT_THAT(paths.take(), testing::ElementsAre(capacity, online, status));
}
