#include "shell/bars.h"

#include "core/window.h"
#include "shell/bar_layout.h"
#include "shell/skin.h"
#include "support/bars_test.h"
#include "support/plain_window.h"
#include "support/surfaces.h"

#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

// Hosts are compiled against these.
static_assert(std::is_same_v<decltype(&KestroWindow::drawStatBar), int (KestroWindow::*)(int)>);
static_assert(
    std::is_same_v<decltype(&draw_stat_icon_item_left), int (*)(KestroSurface*, int, int, const char*)>);
static_assert(std::is_same_v<decltype(gListNumOfStatBarOffsetY), int>);

class StatBarTest : public BarsTest {
protected:
    PlainWindow window{-1, 0};

    std::vector<std::string> drawnBar(int offset = 0) {
        return drawn([=] { return window.drawStatBar(offset); });
    }

    /// The lines for a hint whose icon is `w` x 44 pixels, on a bar that begins at `y`.
    static std::vector<std::string> hint(const std::string& name, int w, const std::string& label, int x,
                                         int y = 650) {
        return {picture(name, x, y + (70 - 44) / 2 + 2, w, 44),
                text(gStatFont, label, hintColor, x + w + 10, y + (70 - lineHeight(gStatFont)) / 2 + 2)};
    }

    static int widthOf(int iconWidth, const std::string& label) {
        return iconWidth + 10 + textWidth(gStatFont, label);
    }

    static std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts) {
        std::vector<std::string> all;
        for (const auto& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }
};

TEST_F(StatBarTest, SaysWhatABAndMenuDo) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "OPEN", 30), hint("tips-B", 44, "BACK", second),
                                  hint("tips-MENU2", 64, "MENU", third)}));
    EXPECT_EQ(result, third + widthOf(64, "MENU") + 24);
}

TEST_F(StatBarTest, WithAAndBExchangedBOpens) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    for (const int set : {1, -1, 77}) {
        gTestHost.table[19] = set;
        EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "OPEN", 30), hint("tips-A", 44, "BACK", second),
                                      hint("tips-MENU2", 64, "MENU", third)}));
    }
}

TEST_F(StatBarTest, TheExchangeIsLookedUpOnceADrawing) {
    drawnBar();
    EXPECT_THAT(gTestHost.reads, ElementsAre(19));
}

TEST_F(StatBarTest, AMissingIconLeavesNoGap) {
    removePictures({"tips-A"});
    reloadSkin();
    const int second = 30 + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "BACK", 30), hint("tips-MENU2", 64, "MENU", second)}));
    EXPECT_EQ(result, second + widthOf(64, "MENU") + 24);
    gTestHost.table[19] = 1;
    const int after = 30 + widthOf(44, "OPEN") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "OPEN", 30), hint("tips-MENU2", 64, "MENU", after)}));
}

TEST_F(StatBarTest, WithoutTheMenuIconItEndsAfterTheSecondHint) {
    removePictures({"tips-MENU2"});
    reloadSkin();
    const int second = 30 + widthOf(44, "OPEN") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "OPEN", 30), hint("tips-B", 44, "BACK", second)}));
    EXPECT_EQ(result, second + widthOf(44, "BACK") + 24);
}

TEST_F(StatBarTest, WithoutAnyIconItIsEmpty) {
    uninit_shared_skin();
    EXPECT_THAT(drawnBar(), IsEmpty());
    EXPECT_EQ(result, 30);
}

TEST_F(StatBarTest, TheOffsetMovesItDown) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(-600),
              joined({hint("tips-A", 44, "OPEN", 30, 50), hint("tips-B", 44, "BACK", second, 50),
                      hint("tips-MENU2", 64, "MENU", third, 50)}));
}

TEST_F(StatBarTest, ItsWordsAreTheLanguages) {
    useLanguage({{4, "打开"}, {5, "返回"}, {6, "no"}, {7, "菜单"}});
    const int second = 30 + widthOf(44, "打开") + 24;
    const int third = second + widthOf(44, "返回") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "打开", 30), hint("tips-B", 44, "返回", second),
                                  hint("tips-MENU2", 64, "菜单", third)}));
}

class HintTest : public BarsTest {};

TEST_F(HintTest, WithoutAnIconNothingIsDrawn) {
    EXPECT_THAT(drawn([] { return draw_stat_icon_item_left(nullptr, 10, 20, "word"); }), IsEmpty());
    EXPECT_EQ(result, 0);
}

TEST_F(HintTest, StandsInTheMiddleOfTheBarAndALittleLower) {
    const int labelTop = 100 + (70 - lineHeight(gStatFont)) / 2 + 2;
    for (const auto& [height, top] :
         {std::pair{20, 127}, {21, 126}, {70, 102}, {71, 102}, {73, 101}, {80, 97}}) {
        const KestroSurfacePtr icon = solidPicture(31, height, 0xFFFFFFFF);
        EXPECT_THAT(
            drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, "word"); }),
            ElementsAre("copy all -> 5," + std::to_string(top) + " 31x" + std::to_string(height) + " on W",
                        text(gStatFont, "word", hintColor, 46, labelTop)));
        EXPECT_EQ(result, 31 + 10 + textWidth(gStatFont, "word"));
    }
}

TEST_F(HintTest, WithoutAWordTheIconAndTheGapCount) {
    const KestroSurfacePtr icon = solidPicture(31, 20, 0xFFFFFFFF);
    for (const char* const none : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, none); }).size(), 1u);
        EXPECT_EQ(result, 41);
    }
}

TEST_F(HintTest, WithoutAFontOnlyTheIconIsDrawn) {
    const KestroSurfacePtr icon = solidPicture(31, 20, 0xFFFFFFFF);
    uninit_shared_skin();
    EXPECT_EQ(drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, "word"); }).size(), 1u);
    EXPECT_EQ(result, 41);
}

TEST(BarLayoutTest, ThePositionOfAListStartsAt671) {
    EXPECT_EQ(gListNumOfStatBarOffsetY, 671);
}
