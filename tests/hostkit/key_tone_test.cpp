#include "hostkit/key_tone.h"

#include "core/host.h"
#include "hostkit/key_table.h"
#include "support/kestro_test.h"
#include "system/system_state.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <filesystem>

enum { volumeIndex = 0 };

class KitKeyToneTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0);
        SetKeyShm(gShmInfo, volumeIndex, 20);
        gEnableKeyTone = 1;
    }

    void TearDown() override {
        hostkit::stopKeyTone();
        EXPECT_EQ(gKeyChunk, nullptr);
        hostkit::gKeyTable.close();
        hostkit::removeKeyTable(hostkit::keyTableName());
        gEnableKeyTone = 1;
        SDL_Quit();
        KestroTest::TearDown();
    }

    /// A sound of that many samples, 16 bits, mono, at the mixer's rate.
    static void writeSound(const std::string& path, uint32_t samples) {
        const auto word = [](uint32_t value, int bytes) {
            std::string text;
            for (int i = 0; i < bytes; ++i)
                text += static_cast<char>(value >> 8 * i);
            return text;
        };
        writeFile(path, "RIFF" + word(36 + 2 * samples, 4) + "WAVEfmt " + word(16, 4) + word(1, 2) +
                            word(1, 2) + word(44100, 4) + word(88200, 4) + word(2, 2) + word(16, 2) + "data" +
                            word(2 * samples, 4) + std::string(2 * samples, '\x10'));
    }

    static constexpr uint32_t frameBytes = 4; // stereo
};

TEST_F(KitKeyToneTest, ATwentiethOfTheVolumeIsAStep) {
    hostkit::startKeyTone();
    ASSERT_NE(gKeyChunk, nullptr);
    for (const auto& [volume, loudness] :
         {std::pair{0, 0}, {1, 6}, {10, 64}, {20, 128}, {-3, 0}, {99, 128}}) {
        SetKeyShm(gShmInfo, volumeIndex, volume);
        hostkit::applyKeyToneVolume();
        EXPECT_EQ(Mix_VolumeChunk(gKeyChunk, -1), loudness) << volume;
    }
}

TEST_F(KitKeyToneTest, TheSwitchSilencesItWhileItStaysLoaded) {
    gEnableKeyTone = 0;
    hostkit::startKeyTone();
    ASSERT_NE(gKeyChunk, nullptr);
    EXPECT_EQ(Mix_VolumeChunk(gKeyChunk, -1), 0);
    gEnableKeyTone = 1;
    hostkit::applyKeyToneVolume();
    EXPECT_EQ(Mix_VolumeChunk(gKeyChunk, -1), 128);
}

TEST_F(KitKeyToneTest, TheBuiltInToneLastsThirtyMilliseconds) {
    hostkit::startKeyTone();
    ASSERT_NE(gKeyChunk, nullptr);
    EXPECT_EQ(gKeyChunk->alen, 44100 * 30 / 1000 * frameBytes);
}

TEST_F(KitKeyToneTest, TheThemesToneComesBeforeTheCommonOne) {
    writeSound("theme/sound/key-tone.wav", 500);
    writeSound("sound/key-tone.wav", 700);
    gThemePath = "theme/";
    hostkit::startKeyTone();
    ASSERT_NE(gKeyChunk, nullptr);
    EXPECT_EQ(gKeyChunk->alen, 500 * frameBytes);
    std::filesystem::remove_all("theme");
    hostkit::startKeyTone();
    EXPECT_EQ(gKeyChunk->alen, 700 * frameBytes);
    gThemePath = nullptr;
    hostkit::startKeyTone();
    EXPECT_EQ(gKeyChunk->alen, 700 * frameBytes);
}

TEST_F(KitKeyToneTest, AFileThatIsNoSoundGivesWayToTheBuiltInTone) {
    writeFile("sound/key-tone.wav", "no sound");
    hostkit::startKeyTone();
    ASSERT_NE(gKeyChunk, nullptr);
    EXPECT_EQ(gKeyChunk->alen, 44100 * 30 / 1000 * frameBytes);
}

TEST_F(KitKeyToneTest, WithoutASoundDeviceThereIsNoTone) {
    setenv("SDL_AUDIODRIVER", "nonsense", 1);
    hostkit::startKeyTone();
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    EXPECT_EQ(gKeyChunk, nullptr);
    hostkit::applyKeyToneVolume();
    hostkit::stopKeyTone();
}

TEST_F(KitKeyToneTest, FilesAreClosedAgain) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    for (const bool isSound : {false, true}) {
        if (isSound)
            writeSound("sound/key-tone.wav", 500);
        else
            writeFile("sound/key-tone.wav", "no sound");
        hostkit::startKeyTone();
        const auto before = openFiles();
        hostkit::startKeyTone();
        EXPECT_EQ(openFiles(), before) << isSound;
    }
}

TEST_F(KitKeyToneTest, StoppedTheSoundDeviceIsClosedHoweverOftenItWasStarted) {
    hostkit::startKeyTone();
    hostkit::startKeyTone();
    EXPECT_NE(Mix_QuerySpec(nullptr, nullptr, nullptr), 0);
    hostkit::stopKeyTone();
    EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0);
}

TEST_F(KitKeyToneTest, AHostsOwnToneIsLeftToIt) {
    hostkit::startKeyTone();
    Mix_Chunk own{};
    gKeyChunk = &own;
    hostkit::stopKeyTone();
    EXPECT_EQ(gKeyChunk, &own);
    gKeyChunk = nullptr;
}
