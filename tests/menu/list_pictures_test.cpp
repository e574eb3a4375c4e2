#include "support/list_picture_test.h"
#include "support/open_text_menu.h"

#include <memory>

class ListPicturesTest : public ListPictureTest {
protected:
    std::unique_ptr<OpenTextMenu> menu;

    void SetUp() override {
        ListPictureTest::SetUp();
        menu = std::make_unique<OpenTextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
        takeLog();
    }

    void TearDown() override {
        menu.reset();
        ListPictureTest::TearDown();
    }

    void addTrees() {
        for (const std::string& tree : trees())
            menu->add(tree.c_str());
    }

    TextMenuItem* addTwoLines(const char* label, const char* second) {
        TextMenuItem* const row = menu->add(label);
        row->setSubLabel(second);
        row->setSubLabelPresent(true);
        return row;
    }

    /// Rows whose labels match the search "an" at the start, in the middle, at the end and whole, one that
    /// matches in its extra text, and one that does not match. In Chinese they match by "sn", the initials
    /// of two characters.
    void addMatches(int align) {
        menu->setKeyword(word("an", "sn"));
        menu->setLabelAlign(align);
        menu->add(word("Another day", "少年之歌"));
        menu->add(word("Grand tour", "美少年之歌"));
        menu->add(word("Caravan", "我的少年"));
        menu->add(word("AN", "少年"));
        menu->add(word("Bridge", "大桥"))->setExtraText(word("Span", "石牛"));
        menu->add(word("Other", "其他"));
    }
};

TEST_P(ListPicturesTest, FirstPage) {
    const std::vector<std::string> names = trees();
    menu->add(names[0].c_str());
    menu->add(names[1].c_str());
    menu->add(
        word("A name that is far too long for its row and has to be cut near the right edge of it, here",
             "一个长得无法放进一行里的名字，所以它在接近这一行的右边缘的地方被省略号截断了，真的很长很长"));
    menu->insertItem(nullptr);
    for (size_t i = 2; i < names.size(); ++i)
        menu->add(names[i].c_str());
    menu->setShadow(true);
    menu->setCursor(1);
    menu->draw();
    expectPage("list-first");
}

TEST_P(ListPicturesTest, MiddlePage) {
    addTrees();
    menu->setCursor(9);
    menu->draw();
    expectPage("list-middle");
}

TEST_P(ListPicturesTest, LastPage) {
    addTrees();
    menu->setCursor(19);
    menu->draw();
    expectPage("list-last");
}

TEST_P(ListPicturesTest, WithoutNumbers) {
    addTrees();
    menu->setShowNumber(false);
    menu->setShowListNumber(false);
    menu->draw();
    expectPage("list-plain");
}

TEST_P(ListPicturesTest, WithIconsAndAThumbnail) {
    writePicture("icon1.png", 64, 64, 0xFFE08030, 12);
    writePicture("icon2.png", 96, 48, 0xFF50C060, 12);
    writePicture("thumb.png", 400, 300, 0xFFC04070, 40);
    const std::unique_ptr<KestroSurface> own(newPicture(40, 40, 0xFF8080FF));
    const std::vector<std::string> names = trees();
    menu->add(names[0].c_str())->setImagePath("icon1.png");
    menu->add(names[1].c_str())->setImagePath("icon2.png");
    menu->insertItem(new TextMenuItem(names[2].c_str(), own.get(), nullptr, false));
    menu->add(names[3].c_str());
    static_cast<TextMenuItem*>(menu->getItemByIndex(1))->setSecondImagePath("thumb.png");
    menu->setCursor(1);
    menu->draw();
    takeLog();
    expectPage("list-icons");
}

TEST_P(ListPicturesTest, WithACommonIcon) {
    const std::unique_ptr<KestroSurface> icon(newPicture(56, 56, 0xFFE0C030));
    addTrees();
    menu->setRowIcon(icon.get());
    menu->draw();
    expectPage("list-common-icon");
}

TEST_P(ListPicturesTest, WithTwoLines) {
    const std::vector<std::string> names = trees();
    addTwoLines(names[0].c_str(), word("Grows by the water", "生长在水边"));
    addTwoLines(names[1].c_str(), word("White bark", "白色的树皮"));
    menu->add(names[2].c_str());
    addTwoLines(names[3].c_str(), word("Hard wood", "木质坚硬"));
    menu->setShadow(true);
    menu->draw();
    expectPage("list-two-lines");
}

TEST_P(ListPicturesTest, MatchesAtTheTopLeft) {
    addMatches(0);
    menu->draw();
    expectPage("list-align-0");
}

TEST_P(ListPicturesTest, MatchesInTheMiddle) {
    addMatches(1);
    menu->draw();
    expectPage("list-align-1");
}

TEST_P(ListPicturesTest, MatchesAtTheTopRight) {
    addMatches(2);
    menu->draw();
    expectPage("list-align-2");
}

TEST_P(ListPicturesTest, MatchesAtTheLeft) {
    addMatches(3);
    menu->draw();
    expectPage("list-align-3");
}

TEST_P(ListPicturesTest, MatchesAtTheRight) {
    addMatches(4);
    menu->draw();
    expectPage("list-align-4");
}

TEST_P(ListPicturesTest, WithoutFocus) {
    addTrees();
    menu->setFocus(false);
    menu->draw();
    expectPage("list-unfocused");
}

TEST_P(ListPicturesTest, WithoutRows) {
    menu->draw();
    expectPage("list-empty");
}

INSTANTIATE_TEST_SUITE_P(Languages, ListPicturesTest, testing::Values("en", "ch"));
