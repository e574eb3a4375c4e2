#include "hostkit/files.h"

#include "core/host.h"
#include "hostkit/key_table.h"
#include "menu/file_browser_menu.h"
#include "support/key_events.h"
#include "support/screen_test.h"

#include <SDL.h>

#include <filesystem>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;

enum Kind { file = 101, folderKind = 102 };

using Row = std::unique_ptr<TextMenuItem>;

static Row row(const char* name, const std::string& path, int kind) {
    return Row(file_handler(name, path.c_str(), kind));
}

class FilesTest : public ScreenTest {
protected:
    void TearDown() override {
        hostkit::setFileExtensions({});
        hostkit::setFileChosen(nullptr);
        hostkit::setFileMenu(nullptr);
        hostkit::gKeyTable.close();
        hostkit::removeKeyTable(hostkit::keyTableName());
        ScreenTest::TearDown();
    }

    /// Runs a row's action and lets the browser handle what it pushes.
    static void choose(FileBrowserMenu& menu, int index) {
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        menu.getItemByIndex(index)->getAction()->dowork(nullptr);
        EXPECT_EQ(menu.eventHandling(), 26);
    }

    /// The event that the last action has pushed.
    static SDL_Event takeUserEvent() {
        SDL_Event event{};
        SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_USEREVENT, SDL_USEREVENT);
        return event;
    }
};

TEST_F(FilesTest, WithoutAListEveryFileThatIsNotHiddenPasses) {
    for (const char* name : {"a", "a.txt", "a.PNG", "a.", "with space.x"})
        EXPECT_TRUE(file_filter(name, "/somewhere")) << name;
    for (const char* name : {".hidden", ".png", ".", "..", ""})
        EXPECT_FALSE(file_filter(name, "/somewhere")) << name;
    EXPECT_FALSE(file_filter(nullptr, nullptr));
}

TEST_F(FilesTest, WithAListOnlyItsExtensionsPassInAnyCase) {
    hostkit::setFileExtensions({"gb", "ZIP"});
    for (const char* name : {"a.gb", "a.GB", "b.x.zip", "c.Zip"})
        EXPECT_TRUE(file_filter(name, nullptr)) << name;
    for (const char* name : {"gb", "a.gbc", "a.gb.txt", "a", "a.", ".gb", "zip."})
        EXPECT_FALSE(file_filter(name, nullptr)) << name;
    hostkit::setFileExtensions({});
    EXPECT_TRUE(file_filter("a.gbc", nullptr));
}

TEST_F(FilesTest, AFileRowHasNameIconAndThumbnail) {
    writeFile("notes.txt", "");
    writeFile("notes.png", "");
    const Row notes = row("notes.txt", folder() + "/notes.txt", file);
    ASSERT_NE(notes, nullptr);
    EXPECT_EQ(notes->getLabel(), "notes.txt");
    EXPECT_EQ(notes->getImagePath(), "skin/ic-text.png");
    EXPECT_EQ(notes->getSecondImagePath(), folder() + "/notes.png");
    const Row picture = row("notes.png", folder() + "/notes.png", file);
    EXPECT_EQ(picture->getImagePath(), "skin/ic-image.png");
    EXPECT_EQ(picture->getSecondImagePath(), folder() + "/notes.png");
}

TEST_F(FilesTest, APictureIsItsOwnThumbnail) {
    EXPECT_EQ(row("a.jpg", "/x/a.jpg", file)->getSecondImagePath(), "/x/a.jpg");
    writeFile("b.png", "");
    EXPECT_EQ(row("b.webp", folder() + "/b.webp", file)->getSecondImagePath(), folder() + "/b.webp");
}

TEST_F(FilesTest, AFileWithoutPictureHasNoThumbnail) {
    writeFile("a.rom", "");
    std::filesystem::create_directory("b.png");
    EXPECT_EQ(row("a.rom", folder() + "/a.rom", file)->getSecondImagePath(), "");
    EXPECT_EQ(row("b.rom", folder() + "/b.rom", file)->getSecondImagePath(), "") << "a folder is no picture";
}

TEST_F(FilesTest, IconsFollowTheExtension) {
    const struct {
        const char* name;
        const char* icon;
    } icons[] = {
        {"a.png", "skin/ic-image.png"}, {"a.JPG", "skin/ic-image.png"}, {"a.jpeg", "skin/ic-image.png"},
        {"a.bmp", "skin/ic-image.png"}, {"a.gif", "skin/ic-image.png"}, {"a.WebP", "skin/ic-image.png"},
        {"a.txt", "skin/ic-text.png"},  {"a.md", "skin/ic-text.png"},   {"a.ogg", "skin/ic-music.png"},
        {"a.mp3", "skin/ic-music.png"}, {"a.wav", "skin/ic-music.png"}, {"a.mp4", "skin/ic-video.png"},
        {"a.mkv", "skin/ic-video.png"}, {"a.zip", "skin/ic-file.png"},  {"a", "skin/ic-file.png"},
        {"png", "skin/ic-file.png"},    {".png", "skin/ic-file.png"},   {"a.png.gz", "skin/ic-file.png"}};
    for (const auto& [name, icon] : icons)
        EXPECT_STREQ(hostkit::fileIcon(name), icon) << name;
}

TEST_F(FilesTest, WhatTheFilterRefusesHasNoRow) {
    hostkit::setFileExtensions({"gb"});
    EXPECT_EQ(row("a.txt", "/x/a.txt", file), nullptr);
    EXPECT_EQ(row(".a.gb", "/x/.a.gb", file), nullptr);
    EXPECT_NE(row("a.gb", "/x/a.gb", file), nullptr);
    EXPECT_NE(row("folder.txt", "/x/folder.txt", folderKind), nullptr) << "folders are not asked about";
    EXPECT_EQ(file_handler(nullptr, "/x", file), nullptr);
    EXPECT_EQ(file_handler("a.gb", nullptr, folderKind), nullptr);
}

TEST_F(FilesTest, ChoosingAFolderPushesTheChangeWithItsPath) {
    const Row games = row("games", "/x/games", folderKind);
    EXPECT_EQ(games->getLabel(), "games");
    EXPECT_EQ(games->getImagePath(), "skin/ic-folder.png");
    EXPECT_EQ(games->getSecondImagePath(), "");
    EXPECT_EQ(games->getAction()->dowork(games.get()), 0);
    const SDL_Event event = takeUserEvent();
    EXPECT_EQ(event.type, static_cast<Uint32>(SDL_USEREVENT));
    EXPECT_EQ(event.user.code, 26);
    EXPECT_STREQ(static_cast<const char*>(event.user.data1), "/x/games");
}

TEST_F(FilesTest, TheChangesPathOutlivesItsRow) {
    Row games = row("games", "/x/a path that is too long to be kept within a string itself", folderKind);
    Row other = row("other", "/x/other", folderKind);
    games->getAction()->dowork(nullptr);
    other->getAction()->dowork(nullptr);
    games.reset();
    other.reset();
    EXPECT_STREQ(static_cast<const char*>(takeUserEvent().user.data1),
                 "/x/a path that is too long to be kept within a string itself");
    EXPECT_STREQ(static_cast<const char*>(takeUserEvent().user.data1), "/x/other");
}

TEST_F(FilesTest, ChoosingAFileAsksTheHost) {
    std::string chosen;
    hostkit::setFileChosen([&](const std::string& path) {
        chosen = path;
        return 1002;
    });
    const Row one = row("one", "/x/one", file);
    EXPECT_EQ(one->getAction()->dowork(one.get()), 1002);
    EXPECT_EQ(chosen, "/x/one");
}

TEST_F(FilesTest, TheHostMayDeleteTheRowThatWasChosen) {
    Row one;
    std::string chosen;
    hostkit::setFileChosen([&](const std::string& path) {
        hostkit::setFileChosen(nullptr);
        one.reset();
        chosen = path;
        return 7;
    });
    one = row("one", "/x/one with a long path, longer than a short string", file);
    EXPECT_EQ(one->getAction()->dowork(one.get()), 7);
    EXPECT_EQ(chosen, "/x/one with a long path, longer than a short string");
}

TEST_F(FilesTest, TheThirdFaceButtonOnAFileAsksTheHostForItsMenu) {
    Row one;
    std::string opened;
    hostkit::setFileChosen([](const std::string&) { return 1; });
    hostkit::setFileMenu([&](const std::string& path) {
        one.reset();
        opened = path;
        return 9;
    });
    one = row("one", "/x/one with a long path, longer than a short string", file);
    EXPECT_EQ(one->getAction()->dowork(one.get()), 1);
    EXPECT_EQ(one->getAction()->xdowork(one.get()), 9);
    EXPECT_EQ(opened, "/x/one with a long path, longer than a short string");
    const Row in = row("in", "/x/in", folderKind);
    EXPECT_EQ(in->getAction()->xdowork(in.get()), 0);
}

TEST_F(FilesTest, WithoutAHostToAskFileRowsDoNothing) {
    const Row one = row("one", "/x/one", file);
    EXPECT_EQ(one->getAction()->dowork(one.get()), 0);
    EXPECT_EQ(one->getAction()->xdowork(one.get()), 0);
}

TEST_F(FilesTest, ABrowserShowsTheWayUpThenFoldersThenFilesAndWalksThroughThem) {
    for (const char* path :
         {"base/a/deep/file", "base/a/!/file", "base/a/b.txt", "base/a/A.txt", "base/a/.hidden", "base/z"})
        writeFile(path, "");
    FileBrowserMenu menu((folder() + "/base").c_str(), nullptr, nullptr, nullptr, 6, 0);
    menu.LoadDir();
    const auto labels = [&menu] {
        std::vector<std::string> all;
        for (int i = 0; i < menu.getListNum(); ++i)
            all.push_back(menu.getItemByIndex(i)->getLabel());
        return all;
    };
    EXPECT_THAT(labels(), ElementsAre("a", "z"));
    choose(menu, 0);
    EXPECT_THAT(labels(), ElementsAre("..", "!", "deep", "A.txt", "b.txt"));
    choose(menu, 0);
    EXPECT_THAT(labels(), ElementsAre("a", "z"));
    takeLog();
}
