#include "core/dialog_window.h"
#include "core/popup_window.h"
#include "support/key_events.h"
#include "support/theme_picture_test.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

/// Dialogs and pop-ups over a page, with the theme that ships.
class FloatWindowPictureTest : public ThemePictureTest {
protected:
    void TearDown() override {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        ThemePictureTest::TearDown();
    }

    DialogWindow question() const {
        return {std::string(word("Delete this game?", "删除这个游戏？")),
                std::string(word("Bread and Magic", "面包与魔法")), false, nullptr, nullptr};
    }

    DialogWindow explanation() const {
        return {std::string(word("The game cannot start", "无法启动游戏")),
                std::string(word("The program for files of the\nkind \"gb\" is not installed.",
                                 "没有安装能打开\n“gb”文件的程序。")),
                true, nullptr, nullptr};
    }

    static void moveFocusToCancel(DialogWindow& dialog) {
        pressCode(7);
        EXPECT_EQ(dialog.eventHandling(), -1);
        ASSERT_EQ(dialog.getFocus(), 0);
    }

    /// Takes the theme's pictures of dialogs away.
    static void removeDialogPictures(const std::vector<std::string>& names) {
        const fs::path shipped = fs::read_symlink("skin");
        fs::remove("skin");
        fs::create_directory("skin");
        for (const auto& entry : fs::directory_iterator(shipped)) {
            const std::string name = entry.path().filename();
            if (std::find(names.begin(), names.end(), name) == names.end())
                fs::create_symlink(entry.path(), "skin/" + name);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, FloatWindowPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(FloatWindowPictureTest, OneLineWithConfirmFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog");
}

TEST_P(FloatWindowPictureTest, SeveralLinesWithCancelFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-lines-cancel");
}

TEST_P(FloatWindowPictureTest, OneLineWithCancelFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = question();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-cancel");
}

TEST_P(FloatWindowPictureTest, WithAAndBExchangedOnlyTheHintsBeneathChange) {
    gTestHost.table[19] = 1;
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-lines-swapped");
}

TEST_P(FloatWindowPictureTest, WithoutAPanel) {
    removeDialogPictures({"pop-bg.png"});
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog-no-panel");
}

TEST_P(FloatWindowPictureTest, SeveralLinesWithoutAPanelAndButtons) {
    removeDialogPictures({"pop-bg.png", "btn-bg-f.png", "btn-bg-n.png"});
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-lines-no-pictures");
}

TEST_P(FloatWindowPictureTest, OnARotatedScreen) {
    openThemed(1);
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog-rotated");
}

TEST_P(FloatWindowPictureTest, APopUpMenu) {
    const auto page = gamesPage();
    auto* const menu = new TextMenu("skin/pop-menu-f.png", "skin/pop-menu-n.png", 4, 0);
    SDL_Rect rect{380, 200, 520, 320};
    menu->updateRectAndNum(rect, 4);
    menu->setShowNumber(false);
    menu->setShowListNumber(false);
    for (const char* const label : {word("Add to favourites", "加入收藏"), word("Details", "详细信息"),
                                    word("Remove from recents", "从最近列表移除"), word("Delete", "删除")})
        menu->insertItem(
            static_cast<TextMenuItemProvider*>(new TextMenuItem(label, nullptr, nullptr, false)));
    PopUpWindow popup(-1, menu, "skin/pop-menu.png");
    showOver(*page, popup);
    expectPage("popup");
}
