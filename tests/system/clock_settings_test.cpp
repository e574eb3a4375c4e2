#include "support/settings_test.h"
#include "system/clock_settings.h"

#include <climits>

namespace {

struct ClockAtLoad {
    const char* zone = getTimeZone();
    int syncTime = getSyncTimeFromNetworkFlag(), clock24 = get24HourClockFlag();
};
const ClockAtLoad sClockAtLoad;

class ClockSettingsTest : public SettingsTest {
protected:
    static std::string stored(const std::string& zone) {
        setTimeZone(zone.c_str());
        return getTimeZone() ? getTimeZone() : "(null)";
    }
};

} // namespace

TEST(ClockSettings, AreNetworkTimeIn24HoursWithoutAZoneAtLoad) {
    EXPECT_EQ(sClockAtLoad.zone, nullptr);
    EXPECT_EQ(sClockAtLoad.syncTime, 1);
    EXPECT_EQ(sClockAtLoad.clock24, 1);
}

TEST_F(ClockSettingsTest, ZoneNameIsStoredAsItIs) {
    EXPECT_EQ(stored("Asia/Tokyo"), "Asia/Tokyo");
    EXPECT_EQ(stored("UTC"), "UTC");
    EXPECT_EQ(stored("/usr/share/zoneinf/UTC"), "/usr/share/zoneinf/UTC");
}

TEST_F(ClockSettingsTest, OfAPathOnlyWhatIsInsideTheZoneFolderIsStored) {
    EXPECT_EQ(stored("/usr/share/zoneinfo/Europe/Paris"), "Europe/Paris");
    EXPECT_EQ(stored("/mnt/card/usr/share/zoneinfo/UTC"), "UTC");
}

TEST_F(ClockSettingsTest, OneCharacterAfterTheZoneFolderIsDroppedWhateverItIs) {
    EXPECT_EQ(stored("/usr/share/zoneinfoZAsia/Tokyo"), "Asia/Tokyo");
    EXPECT_EQ(stored("/usr/share/zoneinfo//UTC"), "/UTC");
}

TEST_F(ClockSettingsTest, OnlyTheFirstZoneFolderCounts) {
    EXPECT_EQ(stored("/usr/share/zoneinfo/usr/share/zoneinfo/UTC"), "usr/share/zoneinfo/UTC");
    EXPECT_EQ(stored("/usr/share/zoneinfo//usr/share/zoneinfo/UTC"), "/usr/share/zoneinfo/UTC");
}

TEST_F(ClockSettingsTest, ZoneFolderItselfIsNoZone) {
    stored("UTC");
    EXPECT_EQ(stored("/usr/share/zoneinfo"), "(null)");
    stored("UTC");
    EXPECT_EQ(stored("/usr/share/zoneinfo/"), "(null)");
}

TEST_F(ClockSettingsTest, EmptyNameIsNoZone) {
    stored("UTC");
    EXPECT_EQ(stored(""), "(null)");
}

TEST_F(ClockSettingsTest, NullChangesNothing) {
    stored("UTC");
    setTimeZone(nullptr);
    EXPECT_STREQ(getTimeZone(), "UTC");
}

TEST_F(ClockSettingsTest, NameIsCutTo256Bytes) {
    for (const size_t length : {255u, 256u, 257u, 100'000u}) {
        EXPECT_EQ(stored(std::string(length, 'z')), std::string(std::min<size_t>(length, 256), 'z'));
        EXPECT_EQ(stored("/usr/share/zoneinfo/" + std::string(length, 'y')),
                  std::string(std::min<size_t>(length, 256), 'y'));
    }
}

TEST_F(ClockSettingsTest, ShortNameLeavesNothingOfALongOne) {
    stored(std::string(300, 'z'));
    EXPECT_EQ(stored("UTC"), "UTC");
}

TEST_F(ClockSettingsTest, NameMayBeTheStoredOneOrAPartOfIt) {
    stored("Asia/Tokyo");
    setTimeZone(getTimeZone());
    EXPECT_STREQ(getTimeZone(), "Asia/Tokyo");
    setTimeZone(getTimeZone() + 5);
    EXPECT_STREQ(getTimeZone(), "Tokyo");
    stored(std::string(256, 'z'));
    setTimeZone(getTimeZone() + 1);
    EXPECT_EQ(getTimeZone(), std::string(255, 'z'));
}

TEST_F(ClockSettingsTest, FlagsKeepAnyValueAsItIs) {
    for (const int value : {0, 1, 2, -1, INT_MAX, INT_MIN}) {
        setSyncTimeFromNetworkFlag(value);
        EXPECT_EQ(getSyncTimeFromNetworkFlag(), value);
        set24HourClockFlag(value);
        EXPECT_EQ(get24HourClockFlag(), value);
    }
    setSyncTimeFromNetworkFlag(5);
    set24HourClockFlag(6);
    EXPECT_EQ(getSyncTimeFromNetworkFlag(), 5);
}
