#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
    // Exact pixels, no display and no sound, unless a test asks for something else.
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    // Mesa's llvmpipe may wait for its own threads for ever when a display is closed while they draw.
    setenv("LP_NUM_THREADS", "0", 1);
    unsetenv("KESTRO_DEVICE_ROOT");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
