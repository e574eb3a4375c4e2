#include "hostkit/rotation.h"

#include "gfx/screen.h"
#include "hostkit/theme.h"

namespace hostkit {

bool rotateScreen(bool rotate) {
    constexpr int width = 1280;
    constexpr int height = 720;
    if (!ScreenInit(width, height, 32, rotate) && !ScreenInit(width, height, 32, !rotate))
        return false;
    reloadTheme();
    return true;
}

bool screenIsRotated() {
    int width = 0;
    int height = 0;
    if (SDL_Window* const window = gRenderer ? SDL_RenderGetWindow(gRenderer) : nullptr)
        SDL_GetWindowSize(window, &width, &height);
    return height > width;
}

} // namespace hostkit
