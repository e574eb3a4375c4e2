#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/current_language.h"
#include "system/features.h"

#include <climits>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

struct FeaturesAtLoad {
    int bluetooth = isBluetoothEanbled(), suspend = isSuspendEnabled(),
        batteryTemperature = isBatteryTempEnabled();
};
const FeaturesAtLoad sFeaturesAtLoad;

class FeaturesTest : public SettingsTest {
protected:
    std::string cardFile() const { return onDevice("/mnt/SDCARD/features.json"); }
    std::string systemFile() const { return onDevice("/usr/kestro/features.json"); }
    std::string marker() const { return onDevice("/tmp/stay_awake"); }

    void load(const std::string& json) const {
        writeFile(cardFile(), json);
        loadSystemFunction();
    }

    static void expectFeatures(int bluetooth, int suspend, int batteryTemperature) {
        EXPECT_EQ(isBluetoothEanbled(), bluetooth);
        EXPECT_EQ(isSuspendEnabled(), suspend);
        EXPECT_EQ(isBatteryTempEnabled(), batteryTemperature);
    }
};

} // namespace

TEST(Features, AreSuspendOnlyAtLoad) {
    EXPECT_EQ(sFeaturesAtLoad.bluetooth, 0);
    EXPECT_EQ(sFeaturesAtLoad.suspend, 1);
    EXPECT_EQ(sFeaturesAtLoad.batteryTemperature, 0);
}

TEST_F(FeaturesTest, AreTakenAsTheFileGivesThem) {
    load(R"({"bluetooth": 2, "suspend": 3, "battemp": -4})");
    expectFeatures(2, 3, -4);
    load(R"({"bluetooth": 1.9, "suspend": 1e999, "battemp": -1e999})");
    expectFeatures(1, INT_MAX, INT_MIN);
}

TEST_F(FeaturesTest, StayWhereTheFileHasNoNumber) {
    load(R"({"bluetooth": 2, "suspend": 3, "battemp": 4})");
    load("{}");
    expectFeatures(2, 3, 4);
    for (const std::string& value : notNumbers)
        load(R"({"bluetooth": )" + value + R"(, "suspend": )" + value + R"(, "battemp": )" + value + "}");
    expectFeatures(2, 3, 4);
    EXPECT_FALSE(fs::exists(marker()));
}

TEST_F(FeaturesTest, CanBeTakenOneByOne) {
    load(R"({"battemp": 1})");
    expectFeatures(0, 1, 1);
    load(R"({"bluetooth": 1})");
    expectFeatures(1, 1, 1);
}

TEST_F(FeaturesTest, ComeFromTheCardFirst) {
    writeFile(systemFile(), R"({"bluetooth": 5, "battemp": 6})");
    load(R"({"bluetooth": 7})");
    expectFeatures(7, 1, 0);
}

TEST_F(FeaturesTest, ComeFromTheSystemWithoutAFileOnTheCard) {
    writeFile(systemFile(), R"({"bluetooth": 5, "battemp": 6})");
    loadSystemFunction();
    expectFeatures(5, 1, 6);
}

TEST_F(FeaturesTest, StayWithoutAFile) {
    load(R"({"bluetooth": 2, "suspend": 3, "battemp": 4})");
    fs::remove(cardFile());
    loadSystemFunction();
    expectFeatures(2, 3, 4);
}

TEST_F(FeaturesTest, AreLookedForInTheseTwoPlaces) {
    OpenedPaths paths;
    loadSystemFunction();
    EXPECT_THAT(paths.take(), testing::ElementsAre(cardFile(), systemFile()));
}

TEST_F(FeaturesTest, OfABrokenFileOnTheCardDoNotComeFromTheSystem) {
    writeFile(systemFile(), R"({"bluetooth": 5})");
    load("{");
    expectFeatures(0, 1, 0);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(FeaturesTest, StayWhenTheFileIsEmptyOrTooBig) {
    load("");
    EXPECT_EQ(takeLog(), "features.json invalid size 0\n");
    load(R"({"bluetooth": 5})" + std::string(131072, ' '));
    EXPECT_EQ(takeLog(), "features.json invalid size 131088\n");
    expectFeatures(0, 1, 0);
}

TEST_F(FeaturesTest, StayWhenTheFileIsAFolder) {
    fs::create_directories(cardFile());
    writeFile(systemFile(), R"({"bluetooth": 5})");
    loadSystemFunction();
    EXPECT_EQ(takeLog(), "features.json invalid size -1\n");
    expectFeatures(0, 1, 0);
}

TEST_F(FeaturesTest, StayForJsonOfAnotherShape) {
    for (const char* json : {"[]", "[1]", "5", "null", "\"bluetooth\""})
        load(json);
    load(std::string(10'000, '['));
    expectFeatures(0, 1, 0);
}

TEST_F(FeaturesTest, AreReadBesideBytesThatAreNoUtf8) {
    load("{\"\xFF\xFE\": 1, \"\xC3\": \"\xED\xA0\x80\", \"battemp\": 2}");
    expectFeatures(0, 1, 2);
}

TEST_F(FeaturesTest, AreThoseOfTheCurrentLanguage) {
    setSystemLanguage("ch.lang");
    load(R"({"bluetooth": 1, "bluetooth.ch.lang": 9})");
    expectFeatures(9, 1, 0);
}

TEST_F(FeaturesTest, WithoutSuspendingKeepTheDeviceAwakeByAMarker) {
    load(R"({"suspend": 0})");
    expectFeatures(0, 0, 0);
    EXPECT_TRUE(fs::exists(marker()));
}

TEST_F(FeaturesTest, WithSuspendingLeaveNoMarker) {
    load(R"({"suspend": 1})");
    load(R"({"suspend": -1})");
    EXPECT_FALSE(fs::exists(marker()));
}

TEST_F(FeaturesTest, OfAFractionThatIsZeroKeepTheDeviceAwakeToo) {
    load(R"({"suspend": 0.5})");
    expectFeatures(0, 0, 0);
    EXPECT_TRUE(fs::exists(marker()));
}

TEST_F(FeaturesTest, TouchTheMarkerByTheDevicesOwnProgram) {
    const std::string program = onDevice("/bin/touch");
    const std::string noted = folder() + "/noted";
    writeFile(program, "#!/bin/sh\necho \"$#:$1\" > '" + noted + "'\n");
    fs::permissions(program, fs::perms::owner_all);
    load(R"({"suspend": 0})");
    EXPECT_EQ(readFile(noted), "1:" + marker() + "\n");
}

TEST_F(FeaturesTest, BluetoothFlagNeedsADeviceThatHasIt) {
    gTestHost.table[16] = 1;
    load(R"({"bluetooth": 0})");
    EXPECT_EQ(getBluetoothFlag(&gTestHost), 0);
    load(R"({"bluetooth": 1})");
    EXPECT_EQ(getBluetoothFlag(&gTestHost), 1);
    load(R"({"bluetooth": -3})");
    EXPECT_EQ(getBluetoothFlag(&gTestHost), 1);
}

TEST_F(FeaturesTest, BluetoothFlagIsSetOnlyWhenTheTableHoldsExactlyOne) {
    load(R"({"bluetooth": 1})");
    for (const int value : {0, 2, -1, INT_MAX}) {
        gTestHost.table[16] = value;
        EXPECT_EQ(getBluetoothFlag(&gTestHost), 0) << value;
    }
}

TEST_F(FeaturesTest, BluetoothFlagLooksIntoTheTableThatTheCallerNames) {
    TestHost other;
    other.table[16] = 1;
    load(R"({"bluetooth": 1})");
    EXPECT_EQ(getBluetoothFlag(&other), 1);
    EXPECT_EQ(getBluetoothFlag(&gTestHost), 0);
}
