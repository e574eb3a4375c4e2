#include "menu/dir_browser.h"

#include "support/dir_test.h"
#include "support/entry_repeater.h"

#include <filesystem>
#include <new>
#include <sys/stat.h>

namespace fs = std::filesystem;

class CountNumberTest : public DirTest {
protected:
    static std::vector<std::string> filtered;

    void SetUp() override {
        DirTest::SetUp();
        filtered.clear();
    }

    static bool onlyText(const char* name, const char* path) {
        filtered.push_back(std::string(name) + " " + path);
        const std::string text = name;
        return text.size() > 4 && text.substr(text.size() - 4) == ".txt";
    }
};

std::vector<std::string> CountNumberTest::filtered;

TEST_F(CountNumberTest, CountsFiles) {
    make({"base/a", "base/b", "base/.hidden"});
    EXPECT_EQ(CountNumber("base", nullptr), 3);
}

TEST_F(CountNumberTest, AFolderThatHoldsSomethingCountsOneMore) {
    make({"base/a", "base/dir/b", "base/dir/c"});
    EXPECT_EQ(CountNumber("base", nullptr), 4);
    make({"base/dir/deeper/d"});
    EXPECT_EQ(CountNumber("base", nullptr), 6);
}

TEST_F(CountNumberTest, AFolderThatHoldsNothingCountsNothing) {
    make({"base/empty/", "base/nested/empty/", "base/nested/.hidden/file"});
    EXPECT_EQ(CountNumber("base", nullptr), 0);
    make({"base/a"});
    EXPECT_EQ(CountNumber("base", nullptr), 1);
}

TEST_F(CountNumberTest, FoldersThatBeginWithADotAreLeftOut) {
    make({"base/.dir/a", "base/..dir/b", "base/c"});
    EXPECT_EQ(CountNumber("base", nullptr), 1);
    EXPECT_EQ(CountNumber("base/.dir", nullptr), 1); // the top may be one
}

TEST_F(CountNumberTest, TheFilterChoosesFilesByNameAndPath) {
    make({"base/a.txt", "base/b.png", "base/dir/c.txt", "base/other/d.png"});
    EXPECT_EQ(CountNumber("base", onlyText), 3);
    EXPECT_THAT(filtered, testing::UnorderedElementsAre("a.txt base/a.txt", "b.png base/b.png",
                                                        "c.txt base/dir/c.txt", "d.png base/other/d.png"));
}

TEST_F(CountNumberTest, TheBrowserNeverFilters) {
    make({"base/a.png"});
    DirBrowser withFilter(onlyText, makeRow);
    EXPECT_EQ(withFilter.LoadDir("base", nullptr)->size(), 1u);
    EXPECT_TRUE(filtered.empty());
    takeLog();
}

TEST_F(CountNumberTest, WhatCannotBeOpenedCountsZero) {
    make({"file"});
    EXPECT_EQ(CountNumber("missing", nullptr), 0);
    EXPECT_EQ(CountNumber("file", nullptr), 0);
    EXPECT_EQ(CountNumber("", nullptr), 0);
}

TEST_F(CountNumberTest, OnlyFilesAndFoldersCount) {
    make({"base/file", "other/x"});
    ASSERT_EQ(mkfifo("base/pipe", 0600), 0);
    fs::create_symlink("/dev/null", "base/device");
    fs::create_symlink("nowhere", "base/dangling");
    EXPECT_EQ(CountNumber("base", nullptr), 1);
    fs::create_symlink("file", "base/tofile");
    EXPECT_EQ(CountNumber("base", nullptr), 2);
    fs::create_symlink("../other", "base/todir");
    EXPECT_EQ(CountNumber("base", nullptr), 4);
}

TEST_F(CountNumberTest, LinksThatLeadBackUpAreNotWalked) {
    make({"base/a", "base/dir/b"});
    fs::create_symlink("..", "base/dir/up1");
    fs::create_symlink("../../base", "base/dir/up2");
    fs::create_symlink(".", "base/here1");
    fs::create_symlink(".", "base/here2");
    fs::create_symlink(folder() + "/base/dir", "base/dir/self");
    EXPECT_EQ(CountNumber("base", nullptr), 3);
    EXPECT_EQ(CountNumber("base/", nullptr), 3);
}

TEST_F(CountNumberTest, TwoLinksToTheSameFolderBothCount) {
    make({"base/real/a"});
    fs::create_symlink("real", "base/link1");
    fs::create_symlink("real", "base/link2");
    EXPECT_EQ(CountNumber("base", nullptr), 6);
}

TEST_F(CountNumberTest, ATreeOf500LevelsIsCounted) {
    std::string path = "base";
    for (int level = 0; level < 500; ++level)
        path += "/d";
    make({path + "/file"});
    EXPECT_EQ(CountNumber("base", nullptr), 501);
}

TEST_F(CountNumberTest, LongPathsAreCountedWhole) {
    // Each level is as long as a name can be: far more than the top's path and 256 bytes.
    const std::string name(255, 'n');
    make({"base/" + name + "/" + name + "/" + name + "/" + name});
    EXPECT_EQ(CountNumber("base", nullptr), 4);
}

TEST_F(CountNumberTest, WithoutMemoryItGivesMinusOne) {
    make({"base/a", "base/dir/b"});
    // The memory ends during the count, deep in the tree as well as at its top.
    const auto exhausted = [](const char*, const char*) -> bool { throw std::bad_alloc(); };
    EXPECT_EQ(CountNumber("base", exhausted), -1);
    EXPECT_EQ(CountNumber("base/dir", exhausted), -1);
}

TEST_F(CountNumberTest, AFullFolderIsCountedWhole) {
    make({"base/file"});
    const EntryRepeater repeater(100000);
    EXPECT_EQ(CountNumber("base", nullptr), 100000);
}
