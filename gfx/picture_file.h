#pragma once

#include "core/export.h"

#include <SDL.h>

/// The picture file `path` as SDL_image decodes it, in whatever pixel format that gives, as a new surface in
/// memory that the caller frees with SDL_FreeSurface. It needs no screen. The theme is not asked: a relative
/// path begins in the working folder.
///
/// Returns null for a null path, for what cannot be read or is no picture (SDL_GetError tells why), and for a
/// file whose header claims more than 16384 pixels a side or 64 megapixels: that is refused with a log line,
/// before memory of that size is taken. So is one of more than 4 megapixels that claims to hold 10,000 of
/// them in every byte, unless it is a drawing, and a JPEG file that goes over the picture more than 100
/// times. Links are followed, but only a regular file is opened: a pipe or a device might keep the caller
/// waiting for ever.
///
/// Any thread, several at once too, but not while another one is in IMG_Quit. A thread that SDL has not
/// started calls SDL_TLSCleanup at its end, or SDL's error text of that thread stays behind.
KESTRO_API SDL_Surface* decodePictureFile(const char* path);
