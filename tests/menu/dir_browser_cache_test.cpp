#include "support/dir_test.h"
#include "support/entry_repeater.h"

#include <cstring>

/// What the browser keeps, with folders of any number of rows.
class DirCacheTest : public DirTest {
protected:
    /// Rows of the test that are alive.
    static int alive;

    void SetUp() override {
        DirTest::SetUp();
        alive = 0;
        make({"base/a/file", "base/b/file", "base/c/file", "base/d/file", "base/e/file"});
        browser.LoadDir("base", nullptr);
        browser.freeCache();
        takeLog();
    }

    class CountedRow : public TextMenuItem {
    public:
        explicit CountedRow(const char* name) : TextMenuItem(name, nullptr, nullptr, false) { ++alive; }
        ~CountedRow() override { --alive; }
    };

    /// Enters base/NAME, which has `rows` files.
    std::vector<void*>* enter(const char* name, int rows) {
        const EntryRepeater repeater(rows);
        onEntry = [](const char* entry, const char*, int kind) {
            return kind == 101 ? new CountedRow(entry) : nullptr;
        };
        std::vector<void*>* const items = browser.ChildDir(pathOf(name).c_str());
        onEntry = nullptr;
        takeLog();
        return items;
    }

    static std::string pathOf(const char* name) { return std::string("base/") + name; }

    /// The names of the folders that are kept. Asking changes which was used last, so ask in that order.
    std::string kept(const char* names) {
        std::string found;
        for (; *names; ++names)
            if (browser.getMenu(pathOf(std::string(1, *names).c_str()).c_str()))
                found += *names;
        takeLog();
        return found;
    }
};

int DirCacheTest::alive;

TEST_F(DirCacheTest, AFolderHasAtMost20000Rows) {
    EXPECT_EQ(enter("a", 19999)->size(), 19999u);
    EXPECT_EQ(enter("b", 20000)->size(), 20000u);
    EXPECT_EQ(enter("c", 20001)->size(), 20000u);
    EXPECT_EQ(enter("d", 100000)->size(), 20000u);
}

TEST_F(DirCacheTest, BeyondTheLastRowTheFactoryIsNotAsked) {
    const EntryRepeater repeater(30000);
    browser.ChildDir("base/a");
    EXPECT_THAT(takeLog(), testing::HasSubstr("loaddir base/a 20000\n"));
    EXPECT_EQ(calls.size(), 20000u + 5); // the base's entries were asked for before
}

TEST_F(DirCacheTest, RefusedEntriesDoNotCountAsRows) {
    const EntryRepeater repeater(25000);
    int asked = 0;
    onEntry = [&asked](const char* name, const char*, int) { return ++asked % 2 ? nullptr : plainRow(name); };
    EXPECT_EQ(browser.ChildDir("base/a")->size(), 12500u);
    EXPECT_EQ(asked, 25000 + 1); // the way up is one
    takeLog();
}

TEST_F(DirCacheTest, NothingIsTrimmedUpTo40000Rows) {
    enter("a", 20000);
    enter("b", 20000);
    EXPECT_EQ(browser.getItemNum(), 40000u);
    enter("c", 1);
    EXPECT_EQ(browser.getItemNum(), 40001u);
    EXPECT_EQ(kept("abc"), "abc");
    EXPECT_EQ(alive, 40001);
}

TEST_F(DirCacheTest, AboveThatTheFolderUsedLongestAgoGoes) {
    enter("a", 20000);
    enter("b", 20000);
    enter("c", 1);
    enter("d", 2);
    EXPECT_EQ(browser.getItemNum(), 20003u);
    EXPECT_EQ(alive, 20003);
    EXPECT_EQ(kept("abcd"), "bcd");
}

TEST_F(DirCacheTest, AFoundFolderCountsAsUsedLast) {
    enter("a", 20000);
    enter("b", 19999);
    enter("c", 2);
    browser.getMenu("base/a");
    enter("d", 1);
    EXPECT_EQ(kept("abcd"), "acd");
    takeLog();
}

TEST_F(DirCacheTest, AsManyGoAsItTakes) {
    enter("a", 100);
    enter("b", 100);
    enter("c", 20000);
    enter("d", 20000);
    EXPECT_EQ(browser.getItemNum(), 40200u);
    enter("e", 1);
    EXPECT_EQ(browser.getItemNum(), 40001u); // 100 and 100 have gone
    EXPECT_EQ(kept("abcde"), "cde");
}

TEST_F(DirCacheTest, FourFoldersOf15000RowsAreTrimmedToTwo) {
    // Reading never lets it come so far: it trims before. A host that adds rows of its own does.
    std::vector<std::vector<void*>*> lists;
    for (const char* const name : {"a", "b", "c", "d"})
        lists.push_back(enter(name, 1));
    for (std::vector<void*>* const list : lists)
        while (list->size() < 15000)
            list->push_back(new CountedRow("added"));
    EXPECT_EQ(browser.getItemNum(), 60000u);
    enter("e", 3);
    EXPECT_EQ(browser.getItemNum(), 30003u);
    EXPECT_EQ(alive, 30003);
    EXPECT_EQ(kept("abcde"), "cde");
}

TEST_F(DirCacheTest, ASingleFolderIsNeverTrimmed) {
    std::vector<void*>* const list = enter("a", 1);
    while (list->size() < 70000)
        list->push_back(new CountedRow("added"));
    browser.clearSpace();
    EXPECT_EQ(browser.getItemNum(), 70000u);
    enter("b", 1);
    EXPECT_EQ(kept("ab"), "ab");
    EXPECT_EQ(browser.getItemNum(), 70001u);
}

TEST_F(DirCacheTest, GoingUpTrimsToo) {
    enter("a", 20000);
    enter("b", 20000);
    enter("c", 1);
    browser.ParentDir(); // finds b
    EXPECT_STREQ(browser.getCurrentDir(), "base/b");
    browser.ParentDir(); // finds a
    browser.ParentDir(); // reads the base
    EXPECT_STREQ(browser.getCurrentDir(), "base");
    EXPECT_EQ(kept("abc"), "ab"); // c was used longest ago
    EXPECT_EQ(browser.getItemNum(), 40005u);
    takeLog();
}

TEST_F(DirCacheTest, FreeMenuItemsEmptiesTheListAndKeepsIt) {
    std::vector<void*>* const list = enter("a", 10);
    list->push_back(nullptr);
    EXPECT_EQ(alive, 10);
    browser.freeMenuItems(list);
    EXPECT_EQ(alive, 0);
    EXPECT_TRUE(list->empty());
    EXPECT_EQ(browser.getMenu("base/a"), list);
    EXPECT_EQ(browser.getItemNum(), 0u);
    takeLog();
}

TEST_F(DirCacheTest, FreeCacheDropsAllButThePlace) {
    enter("a", 10);
    enter("b", 20);
    browser.freeCache();
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(browser.getItemNum(), 0u);
    EXPECT_EQ(browser.getMenu("base/a"), nullptr);
    EXPECT_STREQ(browser.getCurrentDir(), "base/b");
}

TEST_F(DirCacheTest, ANewTreeDropsAllRows) {
    enter("a", 10);
    enter("b", 20);
    browser.LoadDir("base", nullptr);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(browser.getItemNum(), 5u);
    takeLog();
}

TEST_F(DirCacheTest, TheDestructorDeletesAllRows) {
    {
        DirBrowser other(nullptr, [](const char* name, const char*, int) -> TextMenuItem* {
            return new CountedRow(name);
        });
        other.LoadDir("base", "base/a");
        other.ParentDir();
        EXPECT_EQ(alive, 7);
    }
    EXPECT_EQ(alive, 0);
    takeLog();
}

TEST_F(DirCacheTest, TheFolderThatIsReadAgainGetsItsOwnEntry) {
    enter("a", 1);
    browser.freeCache();
    enter("a", 2);
    EXPECT_EQ(browser.getItemNum(), 2u);
    browser.ChildDir("base/a");
    EXPECT_EQ(browser.getItemNum(), 2u);
    EXPECT_EQ(takeLog(), "found menu for base/a\n");
}
