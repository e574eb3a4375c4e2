#include "gfx/scale.h"

#include "core/log.h"

unsigned int* resizeBilinear_cpu_argb(unsigned int* src, unsigned int* dst, int srcW, int srcH, int dstW,
                                      int dstH, int swapRB) {
    tprintf("resizeBilinear_cpu_argb:%dx%d->%dx%d\n", srcW, srcH, dstW, dstH);
    return resizeBilinear_cpu(src, dst, srcW, srcH, dstW, dstH, swapRB);
}

void bitmap_scale_bilinear(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                           unsigned srcStride, unsigned, unsigned int* src, unsigned int* dst) {
    if (!src)
        return;
    resizeBilinear_cpu_argb(&src[x + srcStride * y], dst, static_cast<int>(w), static_cast<int>(h),
                            static_cast<int>(dstW), static_cast<int>(dstH), 0);
}

void bitmap_scale_bresenham(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                            unsigned srcStride, unsigned dstStride, unsigned int* src, unsigned int* dst) {
    if (!src)
        return;
    sdl_rs90_scale_frame32_bresenham_horz(dst, dstW, dstH, (dstStride ? dstStride : dstW) * 4,
                                          &src[x + srcStride * y], w, h, srcStride * 4);
}
