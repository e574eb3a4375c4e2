#include "support/settings_test.h"
#include "system/system_state.h"

#include <climits>

// "mute" and "bgmvol" do not mean what their names say: both look at the volume.

namespace {

class SoundKeysTest : public SettingsTest {
protected:
    /// What the place holds after this file.
    int stored(int index, const std::string& json) const {
        gTestHost.table[index] = -99;
        load(json);
        return gTestHost.table[index];
    }
    int mute(const std::string& json) const { return stored(3, json); }
    int musicVolume(const std::string& json) const { return stored(5, json); }
};

} // namespace

TEST_F(SoundKeysTest, MuteFollowsTheVolumeNotItself) {
    EXPECT_EQ(mute(R"({"vol": 0, "mute": 1})"), 0);
    EXPECT_EQ(mute(R"({"vol": 7, "mute": 0})"), 1);
    EXPECT_EQ(mute(R"({"vol": 7, "mute": 1})"), 1);
    EXPECT_EQ(mute(R"({"vol": 0, "mute": 0})"), 0);
    EXPECT_EQ(mute(R"({"mute": -3.5, "vol": 1})"), 1);
}

TEST_F(SoundKeysTest, MuteFollowsAVolumeOutOfRangeToo) {
    EXPECT_EQ(mute(R"({"vol": 21, "mute": 0})"), 1);
    EXPECT_EQ(mute(R"({"vol": -1, "mute": 0})"), 1);
    EXPECT_EQ(mute(R"({"vol": 0.9, "mute": 1})"), 0);
}

TEST_F(SoundKeysTest, MuteIsZeroWithoutAVolumeThatIsANumber) {
    EXPECT_EQ(mute(R"({"mute": 1})"), 0);
    for (const std::string& volume : notNumbers)
        EXPECT_EQ(mute(R"({"mute": 1, "vol": )" + volume + "}"), 0) << volume;
}

TEST_F(SoundKeysTest, MuteIsZeroWhenItIsNoNumber) {
    for (const std::string& value : notNumbers)
        EXPECT_EQ(mute(R"({"vol": 7, "mute": )" + value + "}"), 0) << value;
    EXPECT_EQ(mute(R"({"vol": 7})"), 0);
}

TEST_F(SoundKeysTest, MusicVolumeIsTakenAsItIsBesideAVolumeInRange) {
    EXPECT_EQ(musicVolume(R"({"vol": 0, "bgmvol": 3})"), 3);
    EXPECT_EQ(musicVolume(R"({"vol": 20, "bgmvol": 3})"), 3);
    EXPECT_EQ(musicVolume(R"({"vol": 20.9, "bgmvol": 3.9})"), 3);
    EXPECT_EQ(musicVolume(R"({"bgmvol": 4, "vol": 5})"), 4);
}

TEST_F(SoundKeysTest, MusicVolumeHasNoRangeOfItsOwn) {
    EXPECT_EQ(musicVolume(R"({"vol": 5, "bgmvol": 21})"), 21);
    EXPECT_EQ(musicVolume(R"({"vol": 5, "bgmvol": -4})"), -4);
    EXPECT_EQ(musicVolume(R"({"vol": 5, "bgmvol": 1e999})"), INT_MAX);
    EXPECT_EQ(musicVolume(R"({"vol": 5, "bgmvol": -1e999})"), INT_MIN);
}

TEST_F(SoundKeysTest, MusicVolumeIsTenBesideAVolumeOutOfRange) {
    load(R"({"vol": 25, "bgmvol": 3})");
    EXPECT_EQ(gTestHost.table[0], 14);
    EXPECT_EQ(gTestHost.table[5], 10);
    EXPECT_EQ(musicVolume(R"({"vol": 21, "bgmvol": 3})"), 10);
    EXPECT_EQ(musicVolume(R"({"vol": -1, "bgmvol": 3})"), 10);
    EXPECT_EQ(musicVolume(R"({"vol": 1e999, "bgmvol": 3})"), 10);
}

TEST_F(SoundKeysTest, MusicVolumeIsTenWithoutAVolume) {
    EXPECT_EQ(musicVolume(R"({"bgmvol": 3})"), 10);
}

TEST_F(SoundKeysTest, MusicVolumeIsTakenBesideAVolumeThatIsNoNumber) {
    for (const std::string& volume : notNumbers)
        EXPECT_EQ(musicVolume(R"({"bgmvol": 3, "vol": )" + volume + "}"), 3) << volume;
}

TEST_F(SoundKeysTest, MusicVolumeIsTenWhenItIsNoNumber) {
    for (const std::string& value : notNumbers)
        EXPECT_EQ(musicVolume(R"({"vol": 5, "bgmvol": )" + value + "}"), 10) << value;
    EXPECT_EQ(musicVolume(R"({"vol": 5})"), 10);
}

TEST_F(SoundKeysTest, BothLookAtTheVolumeOfTheCurrentLanguage) {
    load(R"({"vol": 0, "vol.en.lang": 25, "mute": 1, "bgmvol": 3})");
    EXPECT_EQ(gTestHost.table[3], 1);
    EXPECT_EQ(gTestHost.table[5], 10);
}
