#include "support/dir_test.h"

#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace fs = std::filesystem;
using testing::ElementsAre;

class DirBadInputTest : public DirTest {
protected:
    std::vector<std::string> labelsOfBase() {
        const auto all = labels(browser.LoadDir("base", nullptr));
        takeLog();
        return all;
    }
};

TEST_F(DirBadInputTest, OnlyFilesAndFoldersAreShown) {
    make({"base/file", "base/dir/"});
    ASSERT_EQ(mkfifo("base/pipe", 0600), 0);
    const int server = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    strcpy(address.sun_path, "base/socket");
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    fs::create_symlink("/dev/null", "base/device");
    EXPECT_THAT(labelsOfBase(), ElementsAre("dir", "file"));
    close(server);
}

TEST_F(DirBadInputTest, LinksCountAsWhatTheyLeadTo) {
    make({"base/file", "other/dir/"});
    fs::create_symlink("../other/dir", "base/todir");
    fs::create_symlink("file", "base/tofile");
    fs::create_symlink("nowhere", "base/dangling");
    fs::create_symlink("loop", "base/loop");
    EXPECT_THAT(labelsOfBase(), ElementsAre("file", "todir", "tofile"));
    for (const FactoryCall& call : calls)
        EXPECT_EQ(call.kind, call.name == "todir" ? 102 : 101) << call.name;
}

TEST_F(DirBadInputTest, AFolderThatMayNotBeReadIsEmpty) {
    make({"base/locked/file"});
    browser.LoadDir("base", nullptr);
    takeLog();
    chmod("base/locked", 0);
    const uid_t user = geteuid();
    if (user == 0) { // who may read everything
        chmod(".", 0755);
        ASSERT_EQ(seteuid(65534), 0);
    }
    const std::vector<void*>* const items = browser.ChildDir("base/locked");
    ASSERT_EQ(seteuid(user), 0);
    chmod("base/locked", 0700);
    ASSERT_NE(items, nullptr);
    EXPECT_TRUE(items->empty());
    EXPECT_THAT(takeLog(), testing::StartsWith("loaddir base/locked 0\nchilddir base/locked return 0x"));
    EXPECT_STREQ(browser.getCurrentDir(), "base/locked");
    EXPECT_EQ(browser.ChildDir("base/locked"), items); // kept, though it could be read now
    EXPECT_EQ(takeLog(), "found menu for base/locked\n");
}

TEST_F(DirBadInputTest, AFolderThatVanishesWhileItIsReadGivesTheRowsThatItHadToldOf) {
    make({"base/gone/1", "base/gone/2", "base/gone/3"});
    onEntry = [](const char* name, const char*, int) {
        fs::remove_all("base/gone");
        return plainRow(name);
    };
    browser.LoadDir("base", "base/gone");
    const size_t rows = browser.getItemNum();
    EXPECT_THAT(takeLog(), testing::EndsWith("loaddir base/gone " + std::to_string(rows) + "\n"));
    EXPECT_GE(rows, 1u);
    EXPECT_LE(rows, 4u); // with the way up: those of which the folder had told the kind
    EXPECT_EQ(calls.size(), rows);
    browser.freeCache();
    EXPECT_TRUE(browser.ParentDir()->empty());
    takeLog();
}

TEST_F(DirBadInputTest, TheLongestNamesArePassedWhole) {
    make({"base/"});
    std::string bad;
    for (int i = 0; i < 255; ++i)
        bad += static_cast<char>(i % 2 ? 0xFF : 0x80);
    const std::string ascii(255, 'x');
    make({"base/" + ascii});
    // Some file systems refuse names that are not UTF-8.
    const int file = open(("base/" + bad).c_str(), O_CREAT | O_WRONLY, 0600);
    const bool takesBad = file >= 0;
    close(file);
    const std::vector<std::string> all = labelsOfBase();
    EXPECT_EQ(all, takesBad ? std::vector<std::string>({ascii, bad}) : std::vector<std::string>({ascii}));
    for (const FactoryCall& call : calls)
        EXPECT_EQ(call.path, "base/" + call.name);
}

TEST_F(DirBadInputTest, ATreeOf500LevelsIsWalkedDownAndUp) {
    std::string path = "base";
    for (int level = 0; level < 500; ++level)
        path += "/d";
    make({path + "/file"});
    EXPECT_THAT(labels(browser.LoadDir("base", path.c_str())), ElementsAre("..", "file"));
    for (int level = 0; level < 500; ++level) {
        EXPECT_FALSE(browser.isBaseDir());
        browser.ParentDir();
    }
    EXPECT_TRUE(browser.isBaseDir());
    browser.freeCache();
    std::string down = "base";
    for (int level = 0; level < 500; ++level)
        EXPECT_EQ(browser.ChildDir((down += "/d").c_str())->size(), 2u);
    EXPECT_EQ(down, path);
    takeLog();
}

TEST_F(DirBadInputTest, APathBeyondTheSystemsLimitIsEmpty) {
    make({"base/file"});
    const std::string tooLong = "base/" + std::string(100000, 'x');
    browser.LoadDir("base", nullptr);
    takeLog();
    EXPECT_TRUE(browser.ChildDir(tooLong.c_str())->empty());
    EXPECT_THAT(takeLog(), testing::StartsWith("loaddir " + tooLong + " 0\n"));
    browser.ParentDir();
    EXPECT_TRUE(browser.LoadDir("base", tooLong.c_str())->empty());
    takeLog();
}

TEST_F(DirBadInputTest, TheCurrentPathMayBePassedBack) {
    make({"base/a/file"});
    browser.LoadDir("base", "base/a");
    browser.freeCache();
    takeLog();
    EXPECT_THAT(labels(browser.LoadDir("base", browser.getCurrentDir())), ElementsAre("..", "file"));
    EXPECT_EQ(takeLog(), "dir 0 base\ndir 1 base/a\nloaddir base/a 2\n");
    EXPECT_EQ(browser.LoadDir(browser.getCurrentDir(), browser.getCurrentDir())->size(), 1u);
    EXPECT_EQ(takeLog(), "dir 0 base/a\nloaddir base/a 1\n");
    browser.freeCache();
    EXPECT_EQ(browser.ChildDir(browser.getCurrentDir())->size(), 2u);
    EXPECT_STREQ(browser.getCurrentDir(), "base/a");
    takeLog();
}

namespace {

/// A row that holds its path, as a host's row may.
class PathRow : public TextMenuItem {
public:
    explicit PathRow(const char* full) : TextMenuItem(full, nullptr, nullptr, false), path(strdup(full)) {}
    ~PathRow() override {
        memset(path, 'X', strlen(path));
        free(path);
    }
    char* path;
};

} // namespace

TEST_F(DirBadInputTest, APathMayBelongToARowThatGoes) {
    make({"base/a/b/file"});
    onEntry = [](const char*, const char* path, int) -> TextMenuItem* { return new PathRow(path); };
    const auto pathIn = [](const std::vector<void*>* items) {
        return static_cast<PathRow*>(static_cast<TextMenuItem*>(items->front()))->path;
    };
    const char* const start = pathIn(browser.LoadDir("base", nullptr));
    browser.LoadDir("base", start); // deletes the row first
    EXPECT_STREQ(browser.getCurrentDir(), "base/a");
    std::vector<void*>* const list = browser.ChildDir("base/a/b");
    while (list->size() < 41000)
        list->push_back(plainRow("added"));
    takeLog();
    // Its row stands in the list that is trimmed away before the folder is read.
    browser.ChildDir(pathIn(browser.getMenu("base/a")));
    EXPECT_THAT(browser.getCurrentDir(), testing::StartsWith("base/a/"));
    takeLog();
}

TEST_F(DirBadInputTest, NoDescriptorStaysOpen) {
    make({"base/a/b/file", "base/c"});
    const int before = openDescriptors();
    browser.LoadDir("base", "base/a/b");
    browser.ParentDir();
    browser.ChildDir("base/missing");
    CountNumber("base", nullptr);
    EXPECT_EQ(openDescriptors(), before);
    takeLog();
}
