#include "bench/support/bare_page.h"
#include "bench/support/comparison.h"
#include "bench/support/list_page.h"
#include "bench/support/stage.h"
#include "gfx/screen.h"
#include "shell/skin.h"

#include <string>
#include <utility>

/// Times a page beside the same one in bare calls. What SDL queues is drawn within the time.
static void compareWithBare(const std::string& operation, bench::ListPage& page, double goal) {
    const auto draw = [&] { page.draw(); };
    draw();
    const bench::BarePage bare(draw);
    if (bench::pixelsOf(draw) != bench::pixelsOf([&] { bare.draw(); }))
        bench::giveUp(operation + ": the two pages differ");
    const auto finished = [](const auto& drawn) {
        drawn();
        SDL_RenderFlush(gRenderer);
    };
    bench::compare(operation, {"kestro", [&] { finished(draw); }},
                   {"bare SDL calls", [&] { finished([&] { bare.draw(); }); }}, goal);
}

static void compareOwnWork(const std::string& operation, bench::ListPage& page) {
    const SDL_Rect onePixel{0, 0, 1, 1};
    page.draw();
    SDL_RenderSetClipRect(gRenderer, &onePixel);
    compareWithBare(operation, page, 5);
    SDL_RenderSetClipRect(gRenderer, nullptr);
}

static void compareAll(const std::string& skin) {
    for (const auto& [script, labels] :
         {std::pair("Latin", &bench::latinLabels), std::pair("Chinese", &bench::chineseLabels)}) {
        bench::ListPage page(*labels);
        const std::string name = std::string("list page, ") + script + ", " + skin;
        compareWithBare(name, page, 0.85);
        compareOwnWork(name + ", clipped to a pixel", page);
    }
}

int main() {
    {
        const bench::Stage stage(bench::opaqueSkinFolder());
        compareAll("opaque rows");
    }
    const bench::Stage stage(bench::runFolder());
    compareAll("theme's rows");
}
