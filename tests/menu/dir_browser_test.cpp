#include "menu/dir_browser.h"

#include "support/dir_test.h"

#include <filesystem>
#include <map>

namespace fs = std::filesystem;
using testing::ElementsAre;

class DirBrowserTest : public DirTest {
protected:
    /// The log line of reading a folder.
    static std::string loaded(const std::string& path, int rows) {
        return "loaddir " + path + " " + std::to_string(rows) + "\n";
    }

    static std::string addressed(const char* what, const std::string& path, const void* list) {
        char text[64];
        snprintf(text, sizeof text, "%p", list);
        return std::string(what) + " " + path + " return " + text + "\n";
    }
};

TEST_F(DirBrowserTest, StartsEmpty) {
    EXPECT_TRUE(browser.isBaseDir());
    EXPECT_EQ(browser.getCurrentDir(), nullptr);
    EXPECT_EQ(browser.getItemNum(), 0u);
    EXPECT_EQ(browser.getMenu("base"), nullptr);
    EXPECT_EQ(browser.ParentDir(), nullptr);
    browser.clearSpace();
    browser.freeCache();
}

TEST_F(DirBrowserTest, ReadsTheBaseWithoutAStart) {
    make({"base/file", "base/dir/"});
    const std::vector<void*>* const items = browser.LoadDir("base", nullptr);
    EXPECT_EQ(takeLog(), loaded("base", 2));
    EXPECT_THAT(labels(items), ElementsAre("dir", "file"));
    EXPECT_STREQ(browser.getCurrentDir(), "base");
    EXPECT_TRUE(browser.isBaseDir());
    EXPECT_EQ(browser.getItemNum(), 2u);
}

TEST_F(DirBrowserTest, AStartThatLiesElsewhereGivesTheBase) {
    make({"base/file", "other/file2"});
    for (const char* const start : {"other", "", "bas", "/base2/x"}) {
        EXPECT_THAT(labels(browser.LoadDir("base/", start)), ElementsAre("file")) << start;
        EXPECT_EQ(takeLog(), loaded("base/", 1));
        EXPECT_STREQ(browser.getCurrentDir(), "base/");
        EXPECT_TRUE(browser.isBaseDir());
    }
}

TEST_F(DirBrowserTest, TellsTheFactoryNamePathAndKind) {
    make({"base/file", "base/dir/"});
    browser.LoadDir("base", nullptr);
    std::map<std::string, FactoryCall> byName;
    for (const FactoryCall& call : calls)
        byName[call.name] = call;
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(byName["file"].path, "base/file");
    EXPECT_EQ(byName["file"].kind, 101);
    EXPECT_EQ(byName["dir"].path, "base/dir");
    EXPECT_EQ(byName["dir"].kind, 102);
    takeLog();
}

TEST_F(DirBrowserTest, ANullRowLeavesTheEntryOut) {
    make({"base/keep", "base/drop", "base/dropped/"});
    onEntry = [](const char* name, const char*, int) { return *name == 'd' ? nullptr : plainRow(name); };
    EXPECT_THAT(labels(browser.LoadDir("base", nullptr)), ElementsAre("keep"));
    EXPECT_EQ(calls.size(), 3u);
    EXPECT_EQ(takeLog(), loaded("base", 1));
}

TEST_F(DirBrowserTest, WithoutFactoryThereAreNoRows) {
    make({"base/file"});
    DirBrowser bare(nullptr, nullptr);
    EXPECT_TRUE(bare.LoadDir("base", nullptr)->empty());
    EXPECT_EQ(takeLog(), loaded("base", 0));
}

TEST_F(DirBrowserTest, HiddenFoldersAreLeftOutAndHiddenFilesAreNot) {
    make({"base/.dir/", "base/.file", "base/..more/", "base/...x", "base/sub/.hidden/", "base/sub/..two/",
          "base/sub/.file", "base/sub/a"});
    EXPECT_THAT(labels(browser.LoadDir("base", nullptr)), ElementsAre("...x", ".file", "sub"));
    EXPECT_THAT(labels(browser.ChildDir("base/sub")), ElementsAre("..", "..two", ".file", "a"));
    for (const FactoryCall& call : calls)
        if (call.name == "..") {
            EXPECT_EQ(call.path, "base/sub/..");
            EXPECT_EQ(call.kind, 102);
        }
    takeLog();
}

TEST_F(DirBrowserTest, StartsBelowTheBaseWithAWayUp) {
    make({"base/a/b/file"});
    const std::vector<void*>* const items = browser.LoadDir("base", "base/a/b");
    EXPECT_EQ(takeLog(), "dir 0 base\ndir 1 base/a\ndir 2 base/a/b\n" + loaded("base/a/b", 2));
    EXPECT_THAT(labels(items), ElementsAre("..", "file"));
    EXPECT_STREQ(browser.getCurrentDir(), "base/a/b");
    EXPECT_FALSE(browser.isBaseDir());
    EXPECT_EQ(browser.getItemNum(), 2u);
    EXPECT_EQ(browser.getMenu("base/a"), nullptr);
    EXPECT_EQ(browser.getMenu("base"), nullptr);
    EXPECT_EQ(browser.getMenu("base/a/b"), items);
    takeLog();
}

TEST_F(DirBrowserTest, AStartThatIsTheBaseLogsOneLineAndHasNoWayUp) {
    make({"base/file"});
    for (const char* const start : {"base", "base/", "base//"}) {
        EXPECT_THAT(labels(browser.LoadDir("base", start)), ElementsAre("file"));
        EXPECT_EQ(takeLog(), "dir 0 base\n" + loaded(start, 1));
        EXPECT_TRUE(browser.isBaseDir());
    }
}

TEST_F(DirBrowserTest, EmptyComponentsOfTheStartAreNone) {
    make({"base/a/b/file"});
    browser.LoadDir("base", "base//a///b/");
    EXPECT_EQ(takeLog(), "dir 0 base\ndir 1 base/a\ndir 2 base/a/b\n" + loaded("base//a///b/", 2));
    EXPECT_STREQ(browser.getCurrentDir(), "base/a/b");
}

TEST_F(DirBrowserTest, TheBaseIsFoundAnywhereInTheStart) {
    make({"basement/file", "x/base/y/file"});
    browser.LoadDir("base", "basement");
    EXPECT_EQ(takeLog(), "dir 0 base\ndir 1 base/ment\n" + loaded("basement", 2));
    EXPECT_STREQ(browser.getCurrentDir(), "base/ment");
    EXPECT_NE(browser.getMenu("base/ment"), nullptr);
    EXPECT_EQ(browser.getMenu("basement"), nullptr);
    browser.LoadDir("base", "x/base/y");
    EXPECT_EQ(takeLog(), "found menu for base/ment\ndir 0 base\ndir 1 base/y\n" + loaded("x/base/y", 2));
    browser.LoadDir("base", "x/base/base/y");
    EXPECT_EQ(takeLog(), "dir 0 base\ndir 1 base/base\ndir 2 base/base/y\n" + loaded("x/base/base/y", 0));
}

TEST_F(DirBrowserTest, ABaseThatEndsInASlashMakesDoubleOnes) {
    make({"base/a/file"});
    browser.LoadDir("base/", "base/a");
    EXPECT_EQ(takeLog(), "dir 0 base/\ndir 1 base//a\n" + loaded("base/a", 2));
    EXPECT_STREQ(browser.getCurrentDir(), "base//a");
    browser.ParentDir();
    EXPECT_STREQ(browser.getCurrentDir(), "base/");
    takeLog();
}

TEST_F(DirBrowserTest, AFolderThatCannotBeOpenedIsEmptyAndKept) {
    const std::vector<void*>* const items = browser.LoadDir("missing", nullptr);
    ASSERT_NE(items, nullptr);
    EXPECT_TRUE(items->empty());
    EXPECT_EQ(takeLog(), loaded("missing", 0));
    EXPECT_EQ(browser.getMenu("missing"), items);
    EXPECT_EQ(takeLog(), "found menu for missing\n");
}

TEST_F(DirBrowserTest, GoesDownReadingEachFolderOnce) {
    make({"base/a/file"});
    browser.LoadDir("base", nullptr);
    takeLog();
    std::vector<void*>* const items = browser.ChildDir("base/a");
    EXPECT_EQ(takeLog(), loaded("base/a", 2) + addressed("childdir", "base/a", items));
    EXPECT_STREQ(browser.getCurrentDir(), "base/a");
    EXPECT_FALSE(browser.isBaseDir());
    const std::vector<void*>* const up = browser.ParentDir();
    EXPECT_EQ(takeLog(), "found menu for base\n");
    EXPECT_THAT(labels(up), ElementsAre("a"));
    EXPECT_TRUE(browser.isBaseDir());
    EXPECT_EQ(browser.ChildDir("base/a"), items);
    EXPECT_EQ(takeLog(), "found menu for base/a\n");
    EXPECT_FALSE(browser.isBaseDir());
}

TEST_F(DirBrowserTest, GoesUpToFoldersThatItHasNotReadYet) {
    make({"base/a/b/file", "base/top"});
    browser.LoadDir("base", "base/a/b");
    takeLog();
    const std::vector<void*>* const middle = browser.ParentDir();
    EXPECT_EQ(takeLog(), loaded("base/a", 2) + addressed("parentdir", "base/a", middle));
    EXPECT_THAT(labels(middle), ElementsAre("..", "b"));
    const std::vector<void*>* const top = browser.ParentDir();
    EXPECT_EQ(takeLog(), loaded("base", 2) + addressed("parentdir", "base", top));
    EXPECT_THAT(labels(top), ElementsAre("a", "top"));
    EXPECT_TRUE(browser.isBaseDir());
}

TEST_F(DirBrowserTest, AtTheBaseUpStaysThere) {
    make({"base/file"});
    std::vector<void*>* const items = browser.LoadDir("base", nullptr);
    takeLog();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(browser.ParentDir(), items);
        EXPECT_EQ(takeLog(), "found menu for base\n");
        EXPECT_STREQ(browser.getCurrentDir(), "base");
    }
    browser.freeCache();
    EXPECT_THAT(labels(browser.ParentDir()), ElementsAre("file"));
    EXPECT_TRUE(browser.isBaseDir());
    takeLog();
}

TEST_F(DirBrowserTest, AChildNeedNotLieBelowItsParent) {
    make({"base/file", "else/where/file"});
    browser.LoadDir("base", nullptr);
    EXPECT_THAT(labels(browser.ChildDir("else/where")), ElementsAre("..", "file"));
    EXPECT_STREQ(browser.getCurrentDir(), "else/where");
    browser.ParentDir();
    EXPECT_STREQ(browser.getCurrentDir(), "base");
    takeLog();
}

TEST_F(DirBrowserTest, AChildBeforeAnyBaseHasAWayUp) {
    make({"a/file"});
    EXPECT_THAT(labels(browser.ChildDir("a")), ElementsAre("..", "file"));
    EXPECT_STREQ(browser.getCurrentDir(), "a");
    takeLog();
}

TEST_F(DirBrowserTest, NullArgumentsGiveNullAndChangeNothing) {
    make({"base/a/file"});
    browser.LoadDir("base", "base/a");
    takeLog();
    EXPECT_EQ(browser.LoadDir(nullptr, "base"), nullptr);
    EXPECT_EQ(browser.LoadDir(nullptr, nullptr), nullptr);
    EXPECT_EQ(browser.ChildDir(nullptr), nullptr);
    EXPECT_EQ(browser.getMenu(nullptr), nullptr);
    browser.freeMenuItems(nullptr);
    EXPECT_STREQ(browser.getCurrentDir(), "base/a");
    EXPECT_EQ(browser.getItemNum(), 2u);
}
