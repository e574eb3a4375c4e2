#include "menu/file_browser_menu.h"

#include "support/file_browser_test.h"
#include "support/virtual_slot.h"

using testing::ElementsAre;

class FileBrowserMenuTest : public FileBrowserTest {};

TEST_F(FileBrowserMenuTest, ReadsNothingUntilItIsAskedTo) {
    int asked = 0;
    gTestHost.fileHandler = [&asked](const char*, const char*, int) -> TextMenuItem* {
        ++asked;
        return nullptr;
    };
    FileBrowserMenu fresh("base", nullptr, nullptr, nullptr, 5, 10);
    EXPECT_EQ(takeLog(), "mItemHeight = 108, mYSpaceInList = 10\n");
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(fresh.getListNum(), 0);
    EXPECT_EQ(fresh.getItemByIndex(0), nullptr);
    EXPECT_EQ(fresh.getCurrentDir(), nullptr);
    EXPECT_EQ(fresh.getRowsPerPage(), 5);
    EXPECT_EQ(fresh.draw(), 0);
    EXPECT_EQ(fresh.select(), -1);
}

TEST_F(FileBrowserMenuTest, OpensTheBaseWithoutAStart) {
    for (const char* const start : {static_cast<const char*>(nullptr), ""}) {
        FileBrowserMenu fresh("base", start, nullptr, nullptr, 6, 0);
        takeLog();
        const std::vector<void*>* const items = fresh.LoadDir();
        EXPECT_EQ(takeLog(), "loaddir base 4\n");
        EXPECT_EQ(static_cast<int>(items->size()), fresh.getListNum());
        EXPECT_EQ(fresh.getItemByIndex(0)->getLabel(), "a");
        EXPECT_STREQ(fresh.getCurrentDir(), "base");
    }
}

TEST_F(FileBrowserMenuTest, OpensTheStart) {
    open("base/a");
    EXPECT_THAT(labels(), ElementsAre("..", "1", "2", "3", "b"));
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
}

TEST_F(FileBrowserMenuTest, KeepsCopiesOfItsFolders) {
    std::string base = "base";
    std::string start = "base/a";
    menu = std::make_unique<OpenFileBrowser>(base.c_str(), start.c_str(), nullptr, nullptr, 6, 0);
    base = start = "gone";
    menu->LoadDir();
    EXPECT_THAT(takeLog(), testing::HasSubstr("dir 0 base\ndir 1 base/a\nloaddir base/a 5\n"));
}

TEST_F(FileBrowserMenuTest, StartsOverWhenItIsLoadedAgain) {
    open("base/a");
    press(2);
    menu->LoadDir();
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    EXPECT_EQ(menu->getListNum(), 5);
    takeLog();
}

TEST_F(FileBrowserMenuTest, RowsComeFromTheHostAndItsFilterIsNotAsked) {
    std::vector<std::string> seen;
    gTestHost.fileFilter = [](const char*, const char*) {
        ADD_FAILURE() << "the filter was asked";
        return false;
    };
    gTestHost.fileHandler = [&seen](const char* name, const char* path, int kind) -> TextMenuItem* {
        seen.push_back(std::string(name) + " " + path + " " + std::to_string(kind));
        return nullptr;
    };
    open();
    EXPECT_THAT(seen, testing::UnorderedElementsAre("a base/a 102", "empty base/empty 102",
                                                    "file base/file 101", "many base/many 102"));
    EXPECT_EQ(menu->getListNum(), 0);
}

TEST_F(FileBrowserMenuTest, ARowByIndexIsNullBeyondTheEnds) {
    open();
    ListMenu& base = *menu;
    EXPECT_NE(base.getItemByIndex(0), nullptr);
    EXPECT_NE(base.getItemByIndex(3), nullptr);
    for (const int index : {-1, 4, menu->getListNum(), INT32_MIN, INT32_MAX})
        EXPECT_EQ(base.getItemByIndex(index), nullptr) << index;
}

TEST_F(FileBrowserMenuTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&FileBrowserMenu::eventHandling), 3);
    EXPECT_EQ(virtualSlot(&FileBrowserMenu::getItemByIndex), 5);
    EXPECT_EQ(virtualSlot(&FileBrowserMenu::draw), 7);
    EXPECT_EQ(virtualSlot(&FileBrowserMenu::getListNum), 8);
}

TEST_F(FileBrowserMenuTest, ShowsAChosenFolderFromItsFirstRow) {
    open();
    menu->setCursor(3);
    pressCode(26, "base/a");
    EXPECT_EQ(static_cast<ListMenu&>(*menu).eventHandling(), 26);
    EXPECT_THAT(takeLog(), testing::MatchesRegex("change dir base/a\nloaddir base/a 5\n"
                                                 "childdir base/a return 0x[0-9a-f]+\n"
                                                 "change dir return 26\n"));
    EXPECT_THAT(labels(), ElementsAre("..", "1", "2", "3", "b"));
    EXPECT_EQ(menu->getCursor(), 0);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
}

TEST_F(FileBrowserMenuTest, AFolderThatIsKeptIsNotReadAgain) {
    open();
    press(26, "base/a");
    takeLog();
    EXPECT_EQ(press(2), 26);
    EXPECT_EQ(takeLog(), "found menu for base\n");
    EXPECT_EQ(press(26, "base/a"), 26);
    EXPECT_EQ(takeLog(), "change dir base/a\nfound menu for base/a\nchange dir return 26\n");
}

TEST_F(FileBrowserMenuTest, TheViewIsResetToTheFirstRows) {
    open();
    const struct {
        const char* path;
        const char* restored;
    } cases[] = {{"base/a", "0 0 4"}, {"base/a/b", "0 0 5"}, {"base/many", "0 0 5"}, {"base/empty", "0 0 0"}};
    for (const auto& [path, restored] : cases) {
        menu->restored.clear();
        EXPECT_EQ(press(26, path), 26);
        EXPECT_THAT(menu->restored, ElementsAre(restored)) << path;
    }
    takeLog();
}

TEST_F(FileBrowserMenuTest, ThreeRowsAreVisibleFrom0To2) {
    writeFile("base/two/1", "");
    writeFile("base/two/2", "");
    open();
    press(26, "base/two"); // with the way up
    EXPECT_EQ(menu->getFirstVisible(), 0);
    EXPECT_EQ(menu->getLastVisible(), 2);
    menu->setCursor(1);
    press(26, "base/many");
    EXPECT_EQ(menu->getCursor(), 0);
    EXPECT_EQ(menu->getFirstVisible(), 0);
    EXPECT_EQ(menu->getLastVisible(), 5);
    takeLog();
}

TEST_F(FileBrowserMenuTest, SixRowsAreVisibleWhateverThePageHolds) {
    menu = std::make_unique<OpenFileBrowser>("base", nullptr, nullptr, nullptr, 3, 0);
    menu->LoadDir();
    press(26, "base/many");
    EXPECT_EQ(menu->getLastVisible(), 5);
    menu->draw();
    EXPECT_EQ(menu->getLastVisible(), 5);
    takeLog();
}

TEST_F(FileBrowserMenuTest, AnEmptyFolderLeavesTheOldView) {
    // Not even the way up: the host refuses it.
    const auto handler = gTestHost.fileHandler;
    gTestHost.fileHandler = [handler](const char* name, const char* path, int kind) {
        return *name == '.' ? nullptr : handler(name, path, kind);
    };
    open();
    press(26, "base/many");
    menu->setCursor(9);
    menu->draw();
    menu->restored.clear();
    EXPECT_EQ(press(26, "base/empty"), 26);
    EXPECT_EQ(menu->getListNum(), 0);
    EXPECT_THAT(menu->restored, ElementsAre("0 0 -1"));
    EXPECT_EQ(menu->getCursor(), 9);
    EXPECT_EQ(menu->getFirstVisible(), 4);
    EXPECT_EQ(menu->getLastVisible(), 9);
    EXPECT_EQ(menu->select(), -1);
    takeLog();
}

TEST_F(FileBrowserMenuTest, AFolderThatCannotBeReadIsEmpty) {
    open();
    EXPECT_EQ(press(26, "base/missing"), 26);
    EXPECT_EQ(menu->getListNum(), 0);
    EXPECT_STREQ(menu->getCurrentDir(), "base/missing");
    EXPECT_EQ(press(2), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base");
    EXPECT_EQ(menu->getListNum(), 4);
    takeLog();
}

TEST_F(FileBrowserMenuTest, WalksByTheRowsThemselves) {
    open();
    EXPECT_EQ(choose("a"), 26);
    EXPECT_EQ(choose("b"), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a/b");
    EXPECT_EQ(choose(".."), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base/a");
    EXPECT_EQ(choose("1"), 40);
    EXPECT_EQ(choose(".."), 26);
    EXPECT_STREQ(menu->getCurrentDir(), "base");
    EXPECT_THAT(labels(), ElementsAre("a", "empty", "file", "many"));
    takeLog();
}

TEST_F(FileBrowserMenuTest, DrawsItsRows) {
    open();
    EXPECT_EQ(static_cast<ListMenu&>(*menu).draw(), 0);
    EXPECT_EQ(menu->getLastVisible(), 3);
}

TEST_F(FileBrowserMenuTest, TheDestructorDeletesTheRows) {
    int alive = 0;
    class CountedRow : public TextMenuItem {
    public:
        CountedRow(const char* name, int& count)
            : TextMenuItem(name, nullptr, nullptr, false), mCount(count) {
            ++mCount;
        }
        ~CountedRow() override { --mCount; }

    private:
        int& mCount;
    };
    gTestHost.fileHandler = [&alive](const char* name, const char*, int) {
        return new CountedRow(name, alive);
    };
    open("base/a");
    press(2);
    EXPECT_EQ(alive, 9);
    menu.reset();
    EXPECT_EQ(alive, 0);
    takeLog();
}

TEST_F(FileBrowserMenuTest, NullFoldersCountAsEmpty) {
    FileBrowserMenu nowhere(nullptr, nullptr, nullptr, nullptr, 6, 0);
    takeLog();
    nowhere.LoadDir();
    EXPECT_EQ(takeLog(), "loaddir  0\n");
    EXPECT_EQ(nowhere.getListNum(), 0);
}
