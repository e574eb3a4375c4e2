#pragma once

#include "core/export.h"
#include "gfx/surface.h"

#include <SDL.h>

/// The screen's renderer, for hosts that draw by SDL themselves. Null while no screen is open. Owned by
/// the screen.
extern KESTRO_API SDL_Renderer* gRenderer;

/// Opens the screen: a logical area of width x height pixels. With `rotate` other than 0 the display is
/// mounted on its side: the window is height x width, and every frame is turned by 270 degrees onto it.
/// `bpp` is only logged. An open screen is closed first. Returns whether there is a screen now; the log
/// says which part is missing. Main thread, like everything here.
KESTRO_API bool ScreenInit(int width, int height, int bpp, int rotate);

/// Shows the frame that was drawn. Nothing is cleared. Returns 0.
KESTRO_API int ScreenUpdateAndFlip();

/// Closes the screen, and empties the icon and the text cache, whose textures die with it. Surfaces that
/// still exist may be deleted later. Returns 0. Harmless without a screen.
KESTRO_API int ScreenUninit();

/// Makes `s` the target of all drawing; null means the screen. `s` stays the caller's; deleting it sets
/// the target back to the screen.
KESTRO_API void SetRenderTarget(KestroSurface* s);

/// The surface last given to SetRenderTarget.
KESTRO_API KestroSurface* GetRenderTarget();

/// The current frame as a new surface of the window's size, as the display sees it: on a rotated screen
/// it lies on its side. Owned by the caller. Null on failure.
KESTRO_API KestroSurface* ScreenSnapshot();

/// Left from direct frame-buffer output, and kept for hosts that still call it: asks for a display that is
/// not there and logs the failure.
KESTRO_API void lcd_fb_flip();

/// Left from direct frame-buffer output too. Does nothing.
KESTRO_API void lcd_fb_wait_for_vsync();
