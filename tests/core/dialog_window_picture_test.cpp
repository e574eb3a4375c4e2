#include "core/dialog_window.h"
#include "support/key_events.h"
#include "support/theme_picture_test.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

/// Dialogs over a page, with the theme that ships.
class DialogPictureTest : public ThemePictureTest {
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

    /// A dialog of more than its panel holds.
    DialogWindow overlong() const {
        const char* const title = word("Every single one of these games has no program to start it",
                                       "这里的每一个游戏都没有能够启动它的程序，请先安装所需的程序吧");
        const std::string line = word("The program for files of a kind that nobody knows is not installed.",
                                      "没有安装能打开这种文件的程序，也没有人知道哪一个程序能够打开它。");
        return {title, line + "\n" + line + "\n" + line + "\n" + line + "\n", true, nullptr, nullptr};
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

INSTANTIATE_TEST_SUITE_P(Languages, DialogPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(DialogPictureTest, OneLineWithConfirmFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog");
}

TEST_P(DialogPictureTest, SeveralLinesWithConfirmFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-lines");
}

TEST_P(DialogPictureTest, SeveralLinesWithCancelFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-lines-cancel");
}

TEST_P(DialogPictureTest, OneLineWithCancelFocused) {
    const auto page = gamesPage();
    DialogWindow dialog = question();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-cancel");
}

TEST_P(DialogPictureTest, WithAAndBExchangedOnlyTheHintsBeneathChange) {
    gTestHost.table[19] = 1;
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-lines-swapped");
}

TEST_P(DialogPictureTest, WithoutAPanel) {
    removeDialogPictures({"pop-bg.png"});
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog-no-panel");
}

TEST_P(DialogPictureTest, WithoutAPanelWithCancelFocused) {
    removeDialogPictures({"pop-bg.png"});
    const auto page = gamesPage();
    DialogWindow dialog = question();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-no-panel-cancel");
}

TEST_P(DialogPictureTest, SeveralLinesWithoutAPanel) {
    removeDialogPictures({"pop-bg.png"});
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-no-panel-lines");
}

TEST_P(DialogPictureTest, SeveralLinesWithoutAPanelAndButtons) {
    removeDialogPictures({"pop-bg.png", "btn-bg-f.png", "btn-bg-n.png"});
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    showOver(*page, dialog);
    expectPage("dialog-lines-no-pictures");
}

TEST_P(DialogPictureTest, OnARotatedScreen) {
    openThemed(1);
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog-rotated");
}

TEST_P(DialogPictureTest, SeveralLinesOnARotatedScreenWithCancelFocused) {
    openThemed(1);
    const auto page = gamesPage();
    DialogWindow dialog = explanation();
    moveFocusToCancel(dialog);
    showOver(*page, dialog);
    expectPage("dialog-rotated-lines-cancel");
}

TEST_P(DialogPictureTest, WithAAndBExchangedOnARotatedScreenWithoutAPanel) {
    removeDialogPictures({"pop-bg.png"});
    gTestHost.table[19] = 1;
    openThemed(1);
    const auto page = gamesPage();
    DialogWindow dialog = question();
    showOver(*page, dialog);
    expectPage("dialog-rotated-no-panel-swapped");
}

TEST_P(DialogPictureTest, TooMuchTextRunsOutOfThePanel) {
    const auto page = gamesPage();
    DialogWindow dialog = overlong();
    showOver(*page, dialog);
    expectPage("dialog-overlong");
}

TEST_P(DialogPictureTest, WithoutTextsThereAreButtonsOnly) {
    const auto page = gamesPage();
    DialogWindow dialog("", "", true, nullptr, nullptr);
    showOver(*page, dialog);
    expectPage("dialog-empty");
}
