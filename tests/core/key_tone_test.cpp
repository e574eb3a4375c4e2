#include "core/input.h"
#include "support/child_process.h"
#include "support/input_test.h"
#include "support/tone_log.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

class KeyToneTest : public InputTest {
protected:
    void SetUp() override {
        InputTest::SetUp();
        gKeyChunk = &mSound;
    }

    testing::AssertionResult plays(const SDL_Event& event) {
        give(event);
        takeLog();
        const std::vector<std::string> calls = tones.take();
        if (calls.empty())
            return testing::AssertionFailure() << "no tone for type " << event.type;
        const std::vector<std::string> once{"halt -1", "play the key tone on -1, loops 0, ticks -1"};
        if (calls != once)
            ADD_FAILURE() << testing::PrintToString(calls);
        return testing::AssertionSuccess() << "a tone for type " << event.type;
    }

    ToneLog tones;

private:
    Mix_Chunk mSound{};
};

TEST_F(KeyToneTest, EveryJoystickButtonPressPlaysIt) {
    for (const int button : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 14, 255})
        EXPECT_TRUE(plays(buttonDown(button))) << button;
}

TEST_F(KeyToneTest, EveryHatMotionButCentringPlaysIt) {
    for (const int value : {1, 2, 4, 8, 3, 12, 255})
        EXPECT_TRUE(plays(hatMoved(value))) << value;
    EXPECT_FALSE(plays(hatMoved(0)));
}

TEST_F(KeyToneTest, PowerKeyPlaysItWhenPressedFirst) {
    EXPECT_TRUE(plays(keyDown(0x40000066)));
    EXPECT_FALSE(plays(keyDown(SDLK_POWER, true)));
    EXPECT_FALSE(plays(keyUp(SDLK_POWER)));
}

TEST_F(KeyToneTest, OtherKeysAreSilent) {
    for (const SDL_Keycode key : {SDLK_SPACE, SDLK_LCTRL, SDLK_UP, SDLK_DOWN, SDLK_RETURN, SDLK_ESCAPE,
                                  SDLK_TAB, SDLK_F1, SDLK_SLEEP}) {
        EXPECT_FALSE(plays(keyDown(key))) << key;
        EXPECT_FALSE(plays(keyUp(key))) << key;
    }
}

TEST_F(KeyToneTest, EverythingElseIsSilent) {
    clock.advance(1000);
    EXPECT_FALSE(plays(axisMoved(0, 32767)));
    EXPECT_FALSE(plays(buttonUp(1)));
    EXPECT_FALSE(plays(userEvent(5)));
    EXPECT_FALSE(plays(plainEvent(0x653)));
    EXPECT_FALSE(plays(plainEvent(SDL_MOUSEBUTTONDOWN)));
    EXPECT_FALSE(plays(plainEvent(SDL_QUIT)));
}

TEST_F(KeyToneTest, NoSoundIsSilence) {
    gKeyChunk = nullptr;
    EXPECT_FALSE(plays(buttonDown(0)));
}

TEST_F(KeyToneTest, FailureIsLoggedAndTheKeyGoesOn) {
    tones.failWith("no free channel");
    EXPECT_EQ(give(hatMoved(1)), 5);
    EXPECT_EQ(takeLog(),
              "Mix_PlayChunk: no free channel\nset repeat time " + std::to_string(clock.now()) + "\n");
}

/// What really leaves the speaker, written to a file.
class HeardToneTest : public InputTest {
protected:
    static constexpr Sint16 loud = 12'345;

    /// Presses a button with a square sound loaded, until it is over.
    static void playToFile(const char* path) {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", path, 1);
        setenv("SDL_DISKAUDIODELAY", "1", 1);
        SDL_LogSetPriority(SDL_LOG_CATEGORY_AUDIO, SDL_NUM_LOG_PRIORITIES); // it warns of this driver
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0 || Mix_OpenAudio(22'050, AUDIO_S16SYS, 1, 256) != 0)
            exit(1);
        static Sint16 samples[2000];
        std::fill(std::begin(samples), std::end(samples), loud);
        gKeyChunk = Mix_QuickLoad_RAW(reinterpret_cast<Uint8*>(samples), sizeof samples);
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT); // which tell of the sound device
        give(buttonDown(0));
        const Uint32 start = SDL_GetTicks();
        while (Mix_Playing(-1) && SDL_GetTicks() - start < 10'000)
            SDL_Delay(1);
        Mix_CloseAudio();
        Mix_FreeChunk(gKeyChunk);
        gKeyChunk = nullptr;
        SDL_Quit();
    }

    std::vector<Sint16> heard(const char* path) {
        const std::string bytes = readFile(path);
        std::vector<Sint16> samples(bytes.size() / sizeof(Sint16));
        std::copy_n(bytes.data(), samples.size() * sizeof(Sint16), reinterpret_cast<char*>(samples.data()));
        return samples;
    }
};

TEST_F(HeardToneTest, WholeSoundIsHeardOnce) {
    const ChildResult child = inChild([](int) { playToFile("sound.raw"); });
    EXPECT_EQ(child.exitCode, 0);
    std::vector<Sint16> samples = heard("sound.raw");
    const auto begin = std::find(samples.begin(), samples.end(), loud);
    const auto end = std::find_if(begin, samples.end(), [](Sint16 sample) { return sample != loud; });
    EXPECT_EQ(std::distance(begin, end), 2000);
    EXPECT_EQ(std::count(samples.begin(), samples.end(), loud), 2000);
}
