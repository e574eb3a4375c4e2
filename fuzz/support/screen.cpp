#include "fuzz/support/screen.h"

#include "fuzz/support/device.h"
#include "gfx/screen.h"

#include <SDL_ttf.h>

#include <cstdlib>

namespace fuzz {

void openScreen() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    device();
    if (!ScreenInit(64, 36, 32, 0) || TTF_Init() != 0)
        abort();
}

} // namespace fuzz
