#include "core/dialog_window.h"
#include "core/popup_window.h"
#include "support/key_events.h"
#include "support/theme_picture_test.h"

#include <memory>

/// Pop-up menus over a page, with the theme that ships.
class PopUpPictureTest : public ThemePictureTest {
protected:
    void TearDown() override {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ThemePictureTest::TearDown();
    }

    /// A list of four rows where the theme's frame leaves room for them.
    static TextMenu* listOf(const std::vector<const char*>& labels) {
        auto* const menu = new TextMenu("skin/pop-menu-f.png", "skin/pop-menu-n.png", 4, 0);
        SDL_Rect rect{380, 200, 520, 320};
        menu->updateRectAndNum(rect, 4);
        menu->setShowNumber(false);
        menu->setShowListNumber(false);
        for (const char* const label : labels)
            menu->insertItem(
                static_cast<TextMenuItemProvider*>(new TextMenuItem(label, nullptr, nullptr, false)));
        return menu;
    }

    TextMenu* gameMenu() const {
        return listOf({word("Add to favourites", "加入收藏"), word("Details", "详细信息"),
                       word("Remove from recents", "从最近列表移除"), word("Delete", "删除")});
    }

    static void press(PopUpWindow& popup, int code) {
        pressCode(code);
        EXPECT_EQ(popup.eventHandling(), code);
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, PopUpPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(PopUpPictureTest, AMenu) {
    const auto page = gamesPage();
    PopUpWindow popup(-1, gameMenu(), "skin/pop-menu.png");
    showOver(*page, popup);
    expectPage("popup");
}

TEST_P(PopUpPictureTest, AMenuWithItsLastRowSelected) {
    const auto page = gamesPage();
    PopUpWindow popup(-1, gameMenu(), "skin/pop-menu.png");
    for (int i = 0; i < 3; ++i)
        press(popup, 6);
    showOver(*page, popup);
    expectPage("popup-last");
}

TEST_P(PopUpPictureTest, AMenuOnARotatedScreen) {
    openThemed(1);
    const auto page = gamesPage();
    PopUpWindow popup(-1, gameMenu(), "skin/pop-menu.png");
    press(popup, 6);
    showOver(*page, popup);
    expectPage("popup-rotated");
}

TEST_P(PopUpPictureTest, MoreAndLongerRowsThanFit) {
    const auto page = gamesPage();
    PopUpWindow popup(-1,
                      listOf({word("Add to favourites", "加入收藏"), word("Details", "详细信息"),
                              word("Remove from the list of all that was played of late",
                                   "从最近玩过的所有游戏的列表当中移除这一个游戏"),
                              "", word("Rename", "重命名"), word("Delete", "删除")}),
                      "skin/pop-menu.png");
    for (int i = 0; i < 4; ++i)
        press(popup, 6);
    showOver(*page, popup);
    expectPage("popup-overlong");
}

TEST_P(PopUpPictureTest, WithoutABackgroundOnlyTheRowsStandOut) {
    const auto page = gamesPage();
    PopUpWindow popup(-1, gameMenu(), nullptr);
    showOver(*page, popup);
    expectPage("popup-no-background");
}

TEST_P(PopUpPictureTest, WithoutAListThePageIsDarkenedOnly) {
    const auto page = gamesPage();
    PopUpWindow popup(-1, nullptr, "skin/pop-menu.png");
    showOver(*page, popup);
    expectPage("popup-no-list");
}

TEST_P(PopUpPictureTest, OverADialogTheDialogIsDarkenedToo) {
    const auto page = gamesPage();
    DialogWindow dialog(word("Delete this game?", "删除这个游戏？"), word("Bread and Magic", "面包与魔法"),
                        false, nullptr, nullptr);
    showOver(*page, dialog);
    PopUpWindow popup(-1, gameMenu(), "skin/pop-menu.png");
    showOver(dialog, popup);
    expectPage("popup-over-dialog");
}
