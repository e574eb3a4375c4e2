#include "gfx/fill.h"
#include "gfx/image.h"
#include "gfx/scale.h"
#include "gfx/screen.h"
#include "gfx/surface.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "gfx/transform.h"

#include <type_traits>

// Hosts are compiled against these: a change of a type breaks every host that exists.

template <typename Wanted, typename Given>
constexpr bool is(Given) {
    return std::is_same_v<Wanted, Given>;
}

using Surface = KestroSurface*;
using Byte = unsigned char;

static_assert(is<bool (*)(int, int, int, int)>(ScreenInit));
static_assert(is<int (*)()>(ScreenUpdateAndFlip));
static_assert(is<int (*)()>(ScreenUninit));
static_assert(is<void (*)(Surface)>(SetRenderTarget));
static_assert(is<Surface (*)()>(GetRenderTarget));
static_assert(is<Surface (*)()>(ScreenSnapshot));
static_assert(is<void (*)()>(lcd_fb_flip));
static_assert(is<void (*)()>(lcd_fb_wait_for_vsync));
static_assert(std::is_same_v<decltype(gRenderer), SDL_Renderer*>);

static_assert(is<SDL_Surface* (*)(int, int)>(create_surface));
static_assert(is<Surface (*)(SDL_Surface*)>(static_cast<Surface (*)(SDL_Surface*)>(CreateSurface)));
static_assert(is<Surface (*)(int, int)>(static_cast<Surface (*)(int, int)>(CreateSurface)));
static_assert(
    is<Surface (*)(void*, int, int, int, int, unsigned, unsigned, unsigned, unsigned)>(CreateFromPixels));
static_assert(is<void (*)(Surface, const char*)>(SaveSurface2BMP));
static_assert(is<void (*)(Surface, SDL_Rect*, Byte, Byte, Byte, Byte)>(FillRect));
static_assert(is<void (*)(Surface, SDL_Rect*, Byte, Byte, Byte, Byte)>(ClearRect));
static_assert(is<void (*)(Surface, SDL_Rect*, Byte, Byte, Byte, Byte, SDL_BlendMode)>(FillRectInternal));

static_assert(is<Surface (*)(const char*, const char*, const char*)>(LoadKestroSurface));
static_assert(is<Surface (*)(const char*, int, int, const char*, bool, bool)>(LoadKestroSurfaceSpecSized));
static_assert(is<Surface (*)(Surface, int, int)>(ScaleSurface));
static_assert(is<Surface (*)(Surface, int)>(RotateSurface));
static_assert(is<Surface (*)(Surface, SDL_Rect*)>(CropSurface));
static_assert(is<int (*)(int, int, int, int, int&, int&)>(getScaledSizeKeepRatio));

using Bilinear = unsigned* (*)(unsigned*, unsigned*, int, int, int, int, int);
using Bitmap = void (*)(unsigned, unsigned, unsigned, unsigned, unsigned, unsigned, unsigned, unsigned,
                        unsigned*, unsigned*);
template <typename Pixel>
using ErrorTerm = void (*)(Pixel*, unsigned, unsigned, unsigned, Pixel*, unsigned, unsigned, unsigned);
static_assert(is<Bilinear>(resizeBilinear_cpu));
static_assert(is<Bilinear>(resizeBilinear_cpu_argb));
static_assert(is<Bitmap>(bitmap_scale_bilinear));
static_assert(is<Bitmap>(bitmap_scale));
static_assert(is<Bitmap>(bitmap_scale_bresenham));
static_assert(is<ErrorTerm<unsigned>>(sdl_rs90_scale_frame32_bresenham_horz));
static_assert(is<ErrorTerm<unsigned short>>(sdl_rs90_scale_frame16_bresenham_horz));

static_assert(is<int (*)(TTF_Font*, SDL_Rect, const char*, SDL_Color, int, bool, bool)>(DrawString));
static_assert(is<int (*)(TTF_Font*, const SDL_Rect&, const char*, const char*, const SDL_Color&, int, bool)>(
    DrawStringLines));
static_assert(is<int (*)(TTF_Font*, const SDL_Rect&, const char*, const char*, int, const SDL_Color&, int,
                         bool)>(DrawStringLinesSpacing));
static_assert(is<int (*)(TTF_Font*, const char*, int, int)>(getTruncateLen));
static_assert(std::is_same_v<decltype(gIconCache), LRUCache>);
static_assert(std::is_same_v<decltype(gTextSurfaceCache), LRUCache>);
