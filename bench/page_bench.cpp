#include "bench/support/bare_page.h"
#include "bench/support/comparison.h"
#include "bench/support/stage.h"
#include "gfx/screen.h"
#include "menu/text_menu.h"
#include "shell/skin.h"

#include <memory>
#include <string>
#include <vector>

using Labels = std::vector<std::string>;

static const Labels latin = {"Mountain Panorama",
                             "The Long Winding Road Across Seven Sleepy Hills",
                             "Paper Kite and Other Stories",
                             "Creatures of the Deep Blue Sea",
                             "Harbour Lights at Midnight",
                             "A Train That Never Stops"};

static const Labels chinese = {"超级小球大冒险之奇幻旅程", "月光森林里的秘密花园与沉睡的巨人",
                               "星际快车：最后一班列车",   "深海探险队与失落的古城传说",
                               "纸风筝的夏天和雨后的彩虹", "沙漠之晨：骆驼商队的远征"};

/// A page of rows over the theme's background.
class Page {
public:
    explicit Page(const Labels& labels) : mMenu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0) {
        for (const std::string& label : labels)
            mMenu.insertItem(
                static_cast<TextMenuItemProvider*>(new TextMenuItem(label.c_str(), nullptr, nullptr, false)));
    }

    void draw() {
        gBackground->render(nullptr, nullptr, true, nullptr);
        mMenu.draw();
    }

private:
    TextMenu mMenu;
};

/// Times a page beside the same one in bare calls. What SDL queues is drawn within the time.
static void compareWithBare(const std::string& operation, Page& page, double goal) {
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

static void compareOwnWork(const std::string& operation, Page& page) {
    const SDL_Rect onePixel{0, 0, 1, 1};
    page.draw();
    SDL_RenderSetClipRect(gRenderer, &onePixel);
    compareWithBare(operation, page, 5);
    SDL_RenderSetClipRect(gRenderer, nullptr);
}

static void compareAll(const std::string& skin) {
    for (const auto& [script, labels] : {std::pair("Latin", &latin), std::pair("Chinese", &chinese)}) {
        Page page(*labels);
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
