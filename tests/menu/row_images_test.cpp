#include "support/counted_surface.h"
#include "support/list_drawing_test.h"

#include <memory>

/// The pictures of a drawer's rows, with a loader of the test's own that notes what it is asked.
class RowImagesTest : public ListDrawingTest {
protected:
    std::vector<std::string> asked;
    int alive = 0;

    void TearDown() override {
        menu.reset(); // while it can still count
        ListDrawingTest::TearDown();
    }

    /// Makes the drawer's loader give new surfaces of the size asked for, or null, or empty ones.
    void answerWith(std::function<KestroSurface*(int w, int h)> answer) {
        menu->setImageLoader([this, answer](const std::string& path, int w, int h) {
            asked.push_back(path + " " + std::to_string(w) + "x" + std::to_string(h));
            return answer(w, h);
        });
    }

    void answerWithSurfaces() {
        answerWith([this](int w, int h) { return new CountedSurface(alive, w, h); });
    }

    KestroSurface* icon(int number) {
        return menu->getRowImage(("icon" + std::to_string(number)).c_str(), 80, 80);
    }

    KestroSurface* thumbnail(int number) {
        return menu->getRowImage(("icon" + std::to_string(number)).c_str(), 300, 300);
    }
};

TEST_F(RowImagesTest, NoPathIsNoPicture) {
    answerWithSurfaces();
    EXPECT_EQ(menu->getRowImage(nullptr, 80, 80), nullptr);
    EXPECT_EQ(menu->getRowImage("", 80, 80), nullptr);
    EXPECT_TRUE(asked.empty());
}

TEST_F(RowImagesTest, APictureIsLoadedOnceAtEachSize) {
    answerWithSurfaces();
    KestroSurface* const small = menu->getRowImage("a.png", 80, 80);
    ASSERT_NE(small, nullptr);
    EXPECT_EQ(menu->getRowImage("a.png", 80, 80), small);
    EXPECT_NE(menu->getRowImage("a.png", 80, 81), small);
    EXPECT_NE(menu->getRowImage("a.png", 81, 80), small);
    EXPECT_NE(menu->getRowImage("b.png", 80, 80), small);
    EXPECT_EQ(menu->getRowImage("a.png", 80, 80), small);
    EXPECT_THAT(asked, testing::ElementsAre("a.png 80x80", "a.png 80x81", "a.png 81x80", "b.png 80x80"));
}

TEST_F(RowImagesTest, NullStandsForNotYet) {
    answerWith([](int, int) { return nullptr; });
    EXPECT_EQ(icon(1), nullptr);
    EXPECT_EQ(icon(1), nullptr);
    EXPECT_EQ(asked.size(), 2u);
    answerWithSurfaces();
    EXPECT_NE(icon(1), nullptr);
    EXPECT_EQ(asked.size(), 3u);
    EXPECT_NE(icon(1), nullptr);
    EXPECT_EQ(asked.size(), 3u);
}

TEST_F(RowImagesTest, AnEmptySurfaceStandsForNever) {
    answerWith([this](int, int) { return new CountedSurface(alive, 0, 0); });
    EXPECT_EQ(icon(1), nullptr);
    EXPECT_EQ(icon(1), nullptr);
    EXPECT_EQ(thumbnail(1), nullptr);
    EXPECT_EQ(thumbnail(1), nullptr);
    EXPECT_EQ(asked.size(), 2u);
    EXPECT_EQ(alive, 2);
}

TEST_F(RowImagesTest, TheDrawerDeletesItsPictures) {
    answerWithSurfaces();
    for (int i = 0; i < 10; ++i) {
        icon(i);
        thumbnail(i);
    }
    EXPECT_EQ(alive, 20);
    menu.reset();
    EXPECT_EQ(alive, 0);
}

TEST_F(RowImagesTest, HundredAndOneIconsAreKept) {
    answerWithSurfaces();
    for (int i = 0; i < 101; ++i)
        icon(i);
    EXPECT_EQ(alive, 101);
    icon(0);
    EXPECT_EQ(asked.size(), 101u);
    icon(101);
    EXPECT_EQ(alive, 101);
    EXPECT_EQ(asked.size(), 102u);
    icon(0); // used last of the first
    EXPECT_EQ(asked.size(), 102u);
    icon(1); // gone
    EXPECT_EQ(asked.size(), 103u);
    EXPECT_EQ(alive, 101);
}

TEST_F(RowImagesTest, ThumbnailsDoNotPushIconsOut) {
    answerWithSurfaces();
    for (int i = 0; i < 101; ++i)
        icon(i);
    for (int i = 0; i < 101; ++i)
        thumbnail(i);
    EXPECT_EQ(alive, 202);
    EXPECT_EQ(asked.size(), 202u);
    for (int i = 0; i < 101; ++i)
        icon(i);
    EXPECT_EQ(asked.size(), 202u);
    thumbnail(101);
    EXPECT_EQ(alive, 202);
    EXPECT_EQ(asked.size(), 203u);
    for (int i = 0; i < 101; ++i)
        icon(i);
    EXPECT_EQ(asked.size(), 203u);
}

TEST_F(RowImagesTest, WhatFitsIntoARowIsAnIcon) {
    answerWithSurfaces();
    for (int i = 0; i < 101; ++i)
        menu->getRowImage(std::to_string(i).c_str(), 300, 96);
    for (int i = 0; i < 101; ++i)
        menu->getRowImage(std::to_string(i).c_str(), 10, 97);
    EXPECT_EQ(alive, 202);
}

TEST_F(RowImagesTest, ANewThemeForgetsThePictures) {
    answerWithSurfaces();
    icon(1);
    thumbnail(1);
    menu->refresh();
    EXPECT_EQ(alive, 2);
    gThemePath = "other/";
    menu->refresh();
    EXPECT_EQ(alive, 0);
    icon(1);
    EXPECT_EQ(asked.size(), 3u);
    takeLog();
}

TEST_F(RowImagesTest, ByDefaultPicturesAreLoadedAtOnceAndKeepTheirRatio) {
    writePicture("wide.png", 100, 50, 0xFF336699);
    KestroSurface* const wide = menu->getRowImage("wide.png", 80, 80);
    ASSERT_NE(wide, nullptr);
    EXPECT_EQ(wide->getWidth(), 80);
    EXPECT_EQ(wide->getHeight(), 40);
    writePicture("small.png", 10, 20, 0xFF336699);
    KestroSurface* const grown = menu->getRowImage("small.png", 300, 300);
    ASSERT_NE(grown, nullptr);
    EXPECT_EQ(grown->getWidth(), 150);
    EXPECT_EQ(grown->getHeight(), 300);
    takeLog();
}

TEST_F(RowImagesTest, ByDefaultAThemeMayOverrideAPictureThatIsNamed) {
    writePicture("pic.png", 10, 80, 0xFF336699);
    writePicture("theme/pic.png", 20, 80, 0xFF336699);
    gThemePath = "theme/";
    KestroSurface* const themed = menu->getRowImage("pic.png", 80, 80);
    ASSERT_NE(themed, nullptr);
    EXPECT_EQ(themed->getWidth(), 20);
    KestroSurface* const own = menu->getRowImage((folder() + "/pic.png").c_str(), 80, 80);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->getWidth(), 10);
    takeLog();
}

TEST_F(RowImagesTest, ByDefaultAPictureThatCannotBeLoadedIsNotAskedForAgain) {
    writeFile("broken.png", "no picture");
    EXPECT_EQ(menu->getRowImage("missing.png", 80, 80), nullptr);
    EXPECT_EQ(menu->getRowImage("broken.png", 80, 80), nullptr);
    writePicture("missing.png", 80, 80, 0xFF336699);
    writePicture("broken.png", 80, 80, 0xFF336699);
    EXPECT_EQ(menu->getRowImage("missing.png", 80, 80), nullptr);
    EXPECT_EQ(menu->getRowImage("broken.png", 80, 80), nullptr);
    EXPECT_NE(menu->getRowImage("missing.png", 300, 300), nullptr);
    takeLog();
}

TEST_F(RowImagesTest, ANullLoaderBringsTheDefaultBack) {
    answerWithSurfaces();
    menu->setImageLoader(nullptr);
    writePicture("a.png", 80, 80, 0xFF336699);
    EXPECT_NE(menu->getRowImage("a.png", 80, 80), nullptr);
    EXPECT_TRUE(asked.empty());
}

TEST_F(RowImagesTest, RowsAskForTheirIconAndTheCurrentOneForItsThumbnail) {
    answerWith([](int, int) { return nullptr; });
    for (const char* const name : {"a", "b"}) {
        TextMenuItem* const row = menu->add(name);
        row->setImagePath((std::string(name) + ".icon").c_str());
        row->setSecondImagePath((std::string(name) + ".thumb").c_str());
    }
    menu->setCursor(1);
    menu->draw();
    EXPECT_THAT(asked, testing::ElementsAre("a.icon 64x64", "b.icon 64x64", "b.thumb 300x300"));
    asked.clear();
    menu->setFocus(false);
    menu->draw();
    EXPECT_THAT(asked, testing::ElementsAre("a.icon 64x64", "b.icon 64x64"));
}

TEST_F(RowImagesTest, TheIconIsASquareThatLeaves16PixelsAboveAndBelow) {
    answerWith([](int, int) { return nullptr; });
    menu->add("a")->setImagePath("a.icon");
    for (const int height : {200, 33, 32, 10}) {
        SDL_Rect rect{0, 80, 1280, height};
        menu->updateRectAndNum(rect, 1);
        menu->draw();
    }
    EXPECT_THAT(asked, testing::ElementsAre("a.icon 168x168", "a.icon 1x1"));
}

TEST_F(RowImagesTest, AnIconAtHandSparesThePath) {
    answerWith([](int, int) { return nullptr; });
    const std::unique_ptr<KestroSurface> icon(newPicture(40, 40, 0xFFFF0000));
    auto* const row = new TextMenuItem("a", icon.get(), nullptr, false);
    row->setImagePath("a.icon");
    menu->insertItem(row);
    menu->add("b")->setImagePath("b.icon");
    menu->draw();
    EXPECT_THAT(asked, testing::ElementsAre("b.icon 64x64"));
    menu->setRowIcon(icon.get());
    menu->draw();
    EXPECT_EQ(asked.size(), 1u);
    takeLog();
}

TEST_F(RowImagesTest, AnIconOfAPathStandsWhereTheRowsOwnWould) {
    menu->add("Alpha")->setImagePath("a.png");
    menu->add("Beta");
    answerWith([](int, int) { return newPicture(80, 51, 0xFFFF0000); });
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 7u);
    EXPECT_EQ(calls[2], "copy all -> 95,102 80x51 on W");
    EXPECT_EQ(calls[3], label("Alpha", 177, 80 + labelOffset(96)));
    EXPECT_EQ(calls[6], label("Beta", 95, 176 + labelOffset(96)));
}

TEST_F(RowImagesTest, TheThumbnailStandsAtTheRightOverTheRows) {
    menu->add("Alpha")->setSecondImagePath("a.png");
    menu->add("Beta");
    answerWith([](int, int) { return newPicture(300, 201, 0xFFFF0000); });
    Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 7u);
    EXPECT_EQ(calls[2], label("Alpha", 95, 80 + labelOffset(96)));
    EXPECT_EQ(calls[6], "copy all -> 940,269 300x201 on W");
    EXPECT_EQ(pixel(941, 270), 0xFFFF0000);
    SDL_Rect rect{100, 50, 800, 400};
    menu->updateRectAndNum(rect, 4);
    EXPECT_EQ(drawn(*menu).back(), "copy all -> 560,149 300x201 on W");
    menu->setCursor(1);
    EXPECT_EQ(drawn(*menu).size(), 6u);
}

TEST_F(RowImagesTest, EmptyPathsChangeNothing) {
    menu->add("Alpha");
    const Drawing before = drawn(*menu);
    auto* const row = static_cast<TextMenuItem*>(menu->getItemByIndex(0));
    row->setImagePath("");
    row->setSecondImagePath("");
    EXPECT_EQ(drawn(*menu), before);
    row->setImagePath("missing.png");
    row->setSecondImagePath("missing.png");
    EXPECT_EQ(drawn(*menu), before);
}
