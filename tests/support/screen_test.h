#pragma once

#include "gfx/screen.h"
#include "support/kestro_test.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

/// A test with an open screen of 640 x 480 logical pixels, on the dummy driver with the software renderer.
/// Its log lines are taken already. The screen is black, and closed again at the end.
class ScreenTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens the screen anew and takes the lines that this logs.
    void openScreen(int width, int height, int rotate);

    /// Shuts SDL down under the open screen, as a host may. SDL leaves the renderer behind then, which
    /// nobody can free any more; it stays known here, so that a leak checker does not take it for ours.
    static void quitSdl();

    /// The colour 0xAARRGGBB of a pixel of what SDL draws to just now: the window, as a rule.
    static Uint32 pixel(int x, int y);

    /// The whole of what SDL draws to just now. The caller frees it.
    static SDL_Surface* frame();

    /// The tests' font at `points`; closed at the end of the test.
    TTF_Font* font(int points);

    /// Compares what SDL draws to just now with tests/golden/NAME.png, exactly, or allowing each channel to
    /// be off by `tolerance`. On a difference it fails and leaves NAME-wanted.png, NAME-got.png and
    /// NAME-difference.png in failed-pictures/ of the build folder. With KESTRO_UPDATE_GOLDEN=1 in the
    /// environment it writes the picture instead, and fails, so that nobody takes that run for a test;
    /// a comparison with tolerance never writes.
    static void expectPicture(const std::string& name, int tolerance = 0);

private:
    std::vector<TTF_Font*> mFonts;
};

/// Keeps the address sanitizer from counting what is left at the end of this process. For OpenGL's drivers:
/// they leave memory behind, and are unloaded before it could be told by their names.
void skipLeakCheck();

/// The same on SDL's offscreen driver with an accelerated renderer: OpenGL, without a display.
class AcceleratedScreenTest : public ScreenTest {
protected:
    void SetUp() override;
    void TearDown() override;
};

/// A surface of w x h pixels filled with `color` (0xAARRGGBB), ARGB8888. The caller frees it.
SDL_Surface* filledSurface(int w, int h, Uint32 color);
