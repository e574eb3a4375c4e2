#include "core/frame_rate.h"

#include "core/clock.h"
#include "core/frame_rate_internal.h"

#include <algorithm>
#include <unistd.h>

static constexpr int lowestFps = 6;
static constexpr int defaultFps = 10;
static constexpr int defaultBoostFps = 30;

static struct {
    int fps = defaultFps;
    int boostFps = defaultBoostFps;
    int boostLeft = 0; // milliseconds
} sRate;

int setKestroWindowFps(int fps, int boostFps) {
    sRate.fps = fps >= lowestFps ? fps : defaultFps;
    sRate.boostFps = boostFps >= lowestFps ? boostFps : defaultBoostFps;
    return sRate.fps;
}

void touchBoostFps(int ms) {
    sRate.boostLeft = ms < 1 ? 0 : std::max(ms, sRate.boostLeft);
}

namespace kestro {

void paceFrame(uint64_t frameStart) {
    const bool boosted = sRate.boostLeft >= 1;
    const int period = 1000 / (boosted ? sRate.boostFps : sRate.fps);
    const uint64_t elapsed = systemms() - frameStart;
    if (elapsed < static_cast<uint64_t>(period))
        usleep(static_cast<useconds_t>((static_cast<uint64_t>(period) - elapsed) * 1000));
    if (boosted)
        sRate.boostLeft = std::max(sRate.boostLeft - period, 0);
}

} // namespace kestro
