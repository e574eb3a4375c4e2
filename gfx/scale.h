#pragma once

#include "core/export.h"

/// @file
/// Pixel scalers over buffers of the caller. None allocates, but they take up to 50 KB of the stack for
/// tables of columns; all may run on any thread; source and destination must not overlap. Null buffers and
/// sizes of 0 write nothing. The results are the same to the bit on every machine.
///
/// The eighth argument differs on purpose: for bitmap_scale it is a gap after each output row, for
/// bitmap_scale_bresenham the length of an output row, and bitmap_scale_bilinear ignores it.

/// Bilinear scaling of srcW x srcH pixels of 32 bits into dstW x dstH, rows packed. `swapRB` other than 0
/// exchanges bits 16 to 23 and 0 to 7 of every pixel. The weights are single-precision and the sums are
/// truncated, so that pure white comes out as 254 in some bytes. Returns `dst`.
KESTRO_API unsigned int* resizeBilinear_cpu(unsigned int* src, unsigned int* dst, int srcW, int srcH,
                                            int dstW, int dstH, int swapRB);

/// The same, after a log line with the sizes.
KESTRO_API unsigned int* resizeBilinear_cpu_argb(unsigned int* src, unsigned int* dst, int srcW, int srcH,
                                                 int dstW, int dstH, int swapRB);

/// Bilinear scaling of the w x h pixels that begin at (x, y). The rows that follow the first are taken
/// `w` pixels apart, whatever `srcStride` says: right only where the two are equal.
KESTRO_API void bitmap_scale_bilinear(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW,
                                      unsigned dstH, unsigned srcStride, unsigned ignored, unsigned int* src,
                                      unsigned int* dst);

/// Nearest-neighbour scaling, in 16.16 fixed point, of the w x h pixels at (x, y) of a source with
/// `srcStride` pixels a row. `dstGap` pixels are left out after every output row.
KESTRO_API void bitmap_scale(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                             unsigned srcStride, unsigned dstGap, unsigned int* src, unsigned int* dst);

/// Error-term scaling of the w x h pixels at (x, y). `dstStride` is the length of an output row in pixels,
/// 0 for dstW.
KESTRO_API void bitmap_scale_bresenham(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW,
                                       unsigned dstH, unsigned srcStride, unsigned dstStride,
                                       unsigned int* src, unsigned int* dst);

/// Error-term scaling in the manner of Bresenham's line: pixels are picked by integer steps, and two
/// neighbours are averaged where the error passes a threshold. Pitches are in bytes and are rounded down
/// to whole pixels. The average of two opaque pixels has alpha 0x7F, as the carry out of the top byte is
/// lost.
KESTRO_API void sdl_rs90_scale_frame32_bresenham_horz(unsigned int* dst, unsigned dw, unsigned dh,
                                                      unsigned dstPitchBytes, unsigned int* src, unsigned sw,
                                                      unsigned sh, unsigned srcPitchBytes);

/// The same for RGB565 pixels.
KESTRO_API void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dw, unsigned dh,
                                                      unsigned dstPitchBytes, unsigned short* src,
                                                      unsigned sw, unsigned sh, unsigned srcPitchBytes);
