#pragma once

#include <SDL.h>

namespace kestro {

/// Whether the surface has an alpha channel and every pixel in it is opaque. False for what cannot be told
/// quickly: surfaces of other than 32 bits, with a colour key or encoded, and null.
bool isOpaque(const SDL_Surface* surface);

/// SDL_RenderCopy of a texture whose pixels are all opaque. Where blending changes nothing it is off
/// meanwhile, as plain pixels are copied much faster; SDL asks for blending for every picture with an alpha
/// channel.
int copyOpaque(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src, const SDL_Rect* dst);

} // namespace kestro
