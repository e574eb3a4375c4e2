// How many instructions some operations take: counted by callgrind, under which tools/count-instructions runs
// this, they are the same whatever else the machine does.

#include "bench/support/list_page.h"
#include "bench/support/stage.h"
#include "gfx/scale.h"
#include "gfx/scale_internal.h"
#include "gfx/screen.h"

#include <valgrind/callgrind.h>

#include <vector>

/// Counts what `work` takes once it has been done before.
template <class Work>
static void count(const char* operation, Work work) {
    work();
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(operation);
}

/// The scalers as every processor can run them, on the size of a thumbnail.
static void countScalers() {
    constexpr int srcW = 640;
    constexpr int srcH = 480;
    constexpr int dstW = 300;
    constexpr int dstH = 169;
    std::vector<uint32_t> src(srcW * srcH);
    for (size_t i = 0; i < src.size(); ++i)
        src[i] = static_cast<uint32_t>(i) * 2654435761u;
    std::vector<uint32_t> dst(dstW * dstH);
    count("bilinear, plain", [&] { bilinearPlain({src.data(), dst.data(), srcW, srcH, dstW, dstH, false}); });
    count("nearest", [&] { bitmap_scale(0, 0, srcW, srcH, dstW, dstH, srcW, 0, src.data(), dst.data()); });

    std::vector<unsigned> at(dstW);
    std::vector<uint32_t> blend(dstW);
    for (unsigned i = 0; i < dstW; ++i) {
        at[i] = i * srcW / dstW;
        blend[i] = i % 2 == 0 ? 0 : UINT32_MAX;
    }
    count("error-term, plain, one row", [&] {
        errorTermPlain(src.data(), {at.data(), blend.data(), at.size()}, dst.data());
    });
}

/// What the library adds to SDL's copying: nearly nothing is copied within one pixel.
static void countPages() {
    const bench::Stage stage(bench::runFolder());
    const SDL_Rect onePixel{0, 0, 1, 1};
    SDL_RenderSetClipRect(gRenderer, &onePixel);
    bench::ListPage latin(bench::latinLabels);
    bench::ListPage chinese(bench::chineseLabels);
    const auto draw = [](bench::ListPage& page) {
        page.draw();
        SDL_RenderFlush(gRenderer);
    };
    count("list page, Latin, clipped to a pixel", [&] { draw(latin); });
    count("list page, Chinese, clipped to a pixel", [&] { draw(chinese); });
}

int main() {
    countScalers();
    countPages();
}
