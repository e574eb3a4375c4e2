#include "navora/key_tone.h"

#include "core/host.h"
#include "system/system_state.h"

#include <SDL.h>

#include <cmath>
#include <vector>

static std::vector<Sint16> sSamples;

Mix_Chunk* gKeyChunk = nullptr;

namespace navora {

/// A short, soft drop: a sine that swells for 3 ms and is gone after 30.
static double toneAt(double seconds) {
    static constexpr double length = 0.030;
    static constexpr double attack = 0.003;
    static constexpr double pitch = 880.0;
    const double swell = seconds < attack ? seconds / attack : 1.0;
    const double left = 1.0 - seconds / length;
    return left <= 0.0 ? 0.0 : 0.18 * swell * left * left * std::sin(2.0 * M_PI * pitch * seconds);
}

static void synthesize(int frequency, int channels) {
    const int frames = frequency * 30 / 1000;
    for (int frame = 0; frame < frames; ++frame) {
        const double value = toneAt(static_cast<double>(frame) / frequency);
        sSamples.insert(sSamples.end(), static_cast<size_t>(channels), static_cast<Sint16>(value * 32767.0));
    }
}

void startKeyTone() {
    int frequency = 0;
    int channels = 0;
    Uint16 format = 0;
    if (Mix_OpenAudio(44100, AUDIO_S16SYS, 2, 512) != 0)
        return;
    if (!Mix_QuerySpec(&frequency, &format, &channels) || format != AUDIO_S16SYS)
        return;
    synthesize(frequency, channels);
    gKeyChunk = Mix_QuickLoad_RAW(reinterpret_cast<Uint8*>(sSamples.data()),
                                  static_cast<Uint32>(sSamples.size() * sizeof(Sint16)));
    applyKeyToneVolume();
}

void applyKeyToneVolume() {
    constexpr int loudest = 20; // of the volume setting
    const int volume = gEnableKeyTone ? GetKeyShm(gShmInfo, 0) : 0;
    if (gKeyChunk)
        Mix_VolumeChunk(gKeyChunk, MIX_MAX_VOLUME * volume / loudest);
}

void stopKeyTone() {
    Mix_HaltChannel(-1);
    Mix_FreeChunk(gKeyChunk);
    gKeyChunk = nullptr;
    Mix_CloseAudio();
}

} // namespace navora
