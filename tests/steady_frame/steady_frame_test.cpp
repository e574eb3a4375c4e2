// That a page which stands still takes no memory. A program of its own, since it replaces malloc.
#include "gfx/image.h"
#include "gfx/screen.h"
#include "gfx/text.h"
#include "menu/setting_menu.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"
#include "steady_frame/allocations.h"
#include "support/open_text_menu.h"
#include "support/skinned_test.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

static void PrintTo(const Allocations& allocations, std::ostream* out) {
    *out << allocations.all << " pieces, of which SDL took " << allocations.bySdl;
}

static const Allocations none{};

class SteadyFrameTest : public SkinnedTest {
protected:
    void SetUp() override {
        allocationsDuring([] {}); // before SDL starts
        SkinnedTest::SetUp();
        open();
    }
    void TearDown() override {
        menu.reset();
        SkinnedTest::TearDown();
    }

    std::unique_ptr<TextMenu> menu;

    /// A list without rows.
    void open() {
        menu = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
        takeLog();
    }

    TextMenuItem* add(const std::string& label) {
        auto* const row = new TextMenuItem(label.c_str(), nullptr, nullptr, false);
        menu->insertItem(static_cast<TextMenuItemProvider*>(row));
        return row;
    }

    void addAll(const std::vector<std::string>& labels) {
        for (const std::string& label : labels)
            add(label);
    }

    /// What the third and later frames take.
    Allocations takenInAFrame() {
        const auto frame = [&] {
            EXPECT_EQ(menu->draw(), 0);
            ScreenUpdateAndFlip();
        };
        frame();
        frame();
        return allocationsDuring([&] {
            for (int i = 0; i < 10; ++i)
                frame();
        });
    }
};

TEST_F(SteadyFrameTest, TheCountSeesWhatIsTaken) {
    std::string grown;
    EXPECT_EQ(allocationsDuring([&] { grown.assign(100, 'x'); }), (Allocations{1, 0}));
    EXPECT_EQ(allocationsDuring([] { free(malloc(1)); }), (Allocations{1, 0}));
    EXPECT_EQ(allocationsDuring([] { SDL_free(SDL_malloc(1)); }), (Allocations{1, 1}));
    TTF_Font* const opened = font(20);
    EXPECT_GT(allocationsDuring([&] {
                  DrawString(opened, {}, "new", {1, 2, 3, 4}, 0, false, false);
              }).all,
              0);
}

TEST_F(SteadyFrameTest, LatinRows) {
    addAll({"Mountain Panorama", "Paper Kite and Other Stories", "A", "Creatures of the Deep Blue Sea",
            "Harbour Lights at Midnight", "A Train That Never Stops", "not on the page"});
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, ChineseRows) {
    addAll({"超级小球大冒险之奇幻旅程", "月光森林里的秘密花园与沉睡的巨人", "星际快车：最后一班列车",
            "深海探险队与失落的古城传说", "纸风筝的夏天和雨后的彩虹", "沙漠之晨：骆驼商队的远征"});
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, RowsThatAreCut) {
    for (int i = 0; i < 6; ++i)
        add(std::to_string(i) +
            " The Long Winding Road Across Seven Sleepy Hills and Back Home Again, 又长又远的路");
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, RowsOnTwoLinesWithShadow) {
    menu->setShadow(true);
    for (int i = 0; i < 6; ++i) {
        TextMenuItem* const row = add("A label of more than a few letters " + std::to_string(i));
        row->setSubLabel("A second line that is not short either");
        row->setSubLabelPresent(true);
    }
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, RowsWithIconsAndAThumbnail) {
    writePicture("skin/a-picture-for-every-row.png", 64, 64, 0xFF804020);
    writePicture("a-picture-for-the-current-row.png", 300, 200, 0x80804020);
    for (int i = 0; i < 6; ++i) {
        TextMenuItem* const row = add("row " + std::to_string(i));
        row->setImagePath("skin/a-picture-for-every-row.png");
        row->setSecondImagePath("a-picture-for-the-current-row.png");
    }
    takenInAFrame();
    takeLog();
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, WordsAndRowsThatAreNotThereYet) {
    TextMenuItem* const row = add("");
    row->setLabelId(3);
    menu->insertItem(nullptr);
    EXPECT_EQ(takenInAFrame(), none);
}

TEST_F(SteadyFrameTest, OnARotatedScreen) {
    menu.reset();
    uninit_shared_skin();
    openScreen(1280, 720, 1);
    init_shared_skin();
    open();
    addAll({"Mountain Panorama", "Paper Kite and Other Stories", "月光森林里的秘密花园与沉睡的巨人"});
    const Allocations taken = takenInAFrame();
    EXPECT_EQ(taken.all, taken.bySdl); // SDL turns the frame in memory of its own
}

TEST_F(SteadyFrameTest, CachedIcons) {
    writePicture("skin/ic-sound-with-a-long-name.png", 33, 32, 0xFF804020);
    const auto draw = [] { drawCachedIconCentered({0, 0, 33, 32}, "skin/ic-sound-with-a-long-name.png"); };
    draw();
    draw();
    EXPECT_EQ(allocationsDuring(draw), none);
    takeLog();
}
