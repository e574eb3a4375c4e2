#include "hostkit/key_tone.h"

#include "core/host.h"
#include "system/system_state.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace hostkit {

static struct {
    bool open = false;
    Mix_Chunk* chunk = nullptr;
    std::vector<Sint16> samples; // of the built-in tone
} sTone;

/// A short, soft drop: a sine that swells for 3 ms and is gone after 30.
static double toneAt(double seconds) {
    static constexpr double length = 0.030;
    static constexpr double attack = 0.003;
    static constexpr double pitch = 880.0;
    const double swell = seconds < attack ? seconds / attack : 1.0;
    const double left = 1.0 - seconds / length;
    return left <= 0.0 ? 0.0 : 0.18 * swell * left * left * std::sin(2.0 * M_PI * pitch * seconds);
}

static Mix_Chunk* synthesized() {
    int frequency = 0;
    int channels = 0;
    Uint16 format = 0;
    if (!Mix_QuerySpec(&frequency, &format, &channels) || format != AUDIO_S16SYS)
        return nullptr;
    sTone.samples.clear();
    for (int frame = 0; frame < frequency * 30 / 1000; ++frame)
        sTone.samples.insert(sTone.samples.end(), static_cast<size_t>(channels),
                             static_cast<Sint16>(toneAt(static_cast<double>(frame) / frequency) * 32767.0));
    return Mix_QuickLoad_RAW(reinterpret_cast<Uint8*>(sTone.samples.data()),
                             static_cast<Uint32>(sTone.samples.size() * sizeof(Sint16)));
}

/// Closes the file by itself: the mixer forgets to when the file holds no sound.
static Mix_Chunk* loadFile(const std::string& path) {
    SDL_RWops* const file = SDL_RWFromFile(path.c_str(), "rb");
    if (!file)
        return nullptr;
    Mix_Chunk* const chunk = Mix_LoadWAV_RW(file, 0);
    SDL_RWclose(file);
    return chunk;
}

static Mix_Chunk* load() {
    for (const char* const folder : {gThemePath, "./"})
        if (folder)
            if (Mix_Chunk* const chunk = loadFile(std::string(folder) + "sound/key-tone.wav"))
                return chunk;
    return synthesized();
}

void startKeyTone() {
    stopKeyTone();
    sTone.open = Mix_OpenAudio(44100, AUDIO_S16SYS, 2, 512) == 0;
    if (!sTone.open)
        return;
    gKeyChunk = sTone.chunk = load();
    applyKeyToneVolume();
}

void applyKeyToneVolume() {
    constexpr int volumeIndex = 0;
    constexpr int loudest = 20;
    const int volume = gEnableKeyTone ? std::clamp(GetKeyShm(gShmInfo, volumeIndex), 0, loudest) : 0;
    if (sTone.chunk)
        Mix_VolumeChunk(sTone.chunk, MIX_MAX_VOLUME * volume / loudest);
}

void stopKeyTone() {
    if (!sTone.open)
        return;
    Mix_HaltChannel(-1);
    if (gKeyChunk == sTone.chunk)
        gKeyChunk = nullptr;
    Mix_FreeChunk(sTone.chunk);
    Mix_CloseAudio();
    sTone.chunk = nullptr;
    sTone.open = false;
}

} // namespace hostkit
