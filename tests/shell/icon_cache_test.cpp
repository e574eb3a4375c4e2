#include "shell/icon_cache.h"
#include "support/drawing_log.h"
#include "support/noted_surface.h"
#include "support/skin_files_test.h"

#include <climits>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

class IconCacheTest : public SkinFilesTest {
protected:
    std::vector<std::string> ends; // of the surfaces that note it; as long as the cache may hold them

    void SetUp() override {
        SkinFilesTest::SetUp();
        fs::create_directory("theme");
        gThemePath = "theme/";
    }

    static std::string iconName(int number) { return "icon" + std::to_string(number) + ".png"; }

    /// Loads `count` icons, which cannot be loaded again then.
    static std::vector<KestroSurface*> loadIcons(int count) {
        std::vector<KestroSurface*> icons;
        writePicture("theme/icon.png", 4, 4);
        for (int i = 0; i < count; ++i) {
            const std::string name = iconName(i);
            fs::copy_file("theme/icon.png", "theme/" + name);
            icons.push_back(getIconFromCache(name.c_str()));
            fs::remove("theme/" + name);
        }
        return icons;
    }
};

class IconDrawingTest : public IconCacheTest {
protected:
    /// What is drawn for an icon of this size in the cell.
    static std::vector<std::string> drawn(int w, int h, const SDL_Rect& cell) {
        writePicture("theme/icon.png", w, h, 0xFFFF8000);
        gIconCache.clear();
        DrawingLog log;
        EXPECT_EQ(drawCachedIconCentered(cell, "icon.png"), 0);
        return log.take();
    }
};

} // namespace

using testing::ElementsAre;

TEST_F(IconCacheTest, LoadsAnIconOnceAndKeepsIt) {
    writePicture("theme/skin/icon.png", 12, 13);
    KestroSurface* const icon = getIconFromCache("skin/icon.png");
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->getWidth(), 12);
    EXPECT_EQ(icon->getHeight(), 13);
    fs::remove("theme/skin/icon.png");
    EXPECT_EQ(getIconFromCache("skin/icon.png"), icon);
    EXPECT_EQ(gIconCache.get("skin/icon.png"), icon) << "under its name unchanged";
}

TEST_F(IconCacheTest, TakesFromTheRunFolderWhatTheThemeLacks) {
    writePicture("skin/icon.png", 12, 13);
    EXPECT_NE(getIconFromCache("skin/icon.png"), nullptr);
    EXPECT_EQ(takeLog(), fallbackLine("skin/icon.png", "theme/"));
    EXPECT_NE(getIconFromCache("skin/icon.png"), nullptr);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(IconCacheTest, WorksWithoutATheme) {
    gThemePath = nullptr;
    writePicture("skin/icon.png", 12, 13);
    EXPECT_NE(getIconFromCache("skin/icon.png"), nullptr);
    EXPECT_EQ(takeLog(), fallbackLine("skin/icon.png"));
}

TEST_F(IconCacheTest, HasNoIconForNull) {
    EXPECT_EQ(getIconFromCache(nullptr), nullptr);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(IconCacheTest, LooksAgainForAnIconThatWasMissing) {
    EXPECT_EQ(getIconFromCache("icon.png"), nullptr);
    EXPECT_EQ(getIconFromCache("icon.png"), nullptr);
    EXPECT_EQ(takeLog(), "");
    writePicture("theme/icon.png", 5, 5);
    EXPECT_NE(getIconFromCache("icon.png"), nullptr);
}

TEST_F(IconCacheTest, CachesNothingForAMissingOrBrokenIcon) {
    const std::vector<KestroSurface*> icons = loadIcons(100);
    gIconCache.put("last", static_cast<KestroSurface*>(new NotedSurface(ends, "last")));
    gIconCache.get("last");
    writeFile("theme/broken.png", "no picture");
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(getIconFromCache("broken.png"), nullptr);
        EXPECT_EQ(getIconFromCache(("missing" + std::to_string(i)).c_str()), nullptr);
    }
    EXPECT_THAT(ends, testing::IsEmpty());
    EXPECT_EQ(getIconFromCache("icon0.png"), icons[0]);
}

TEST_F(IconCacheTest, KeepsItsIconsWhenTheThemeChanges) {
    writePicture("theme/icon.png", 5, 5);
    writePicture("other/icon.png", 7, 7);
    writePicture("other/new.png", 9, 9);
    KestroSurface* const icon = getIconFromCache("icon.png");
    gThemePath = "other/";
    EXPECT_EQ(getIconFromCache("icon.png"), icon);
    EXPECT_EQ(icon->getWidth(), 5);
    EXPECT_EQ(getIconFromCache("new.png")->getWidth(), 9);
}

TEST_F(IconCacheTest, Holds101Icons) {
    const std::vector<KestroSurface*> icons = loadIcons(101);
    for (int i = 0; i < 101; ++i)
        EXPECT_EQ(getIconFromCache(iconName(i).c_str()), icons[static_cast<size_t>(i)]) << i;
}

TEST_F(IconCacheTest, ForgetsTheOneUsedLongestAgoForThe102nd) {
    const std::vector<KestroSurface*> icons = loadIcons(102);
    EXPECT_EQ(getIconFromCache(iconName(0).c_str()), nullptr);
    for (int i = 1; i < 102; ++i)
        EXPECT_EQ(getIconFromCache(iconName(i).c_str()), icons[static_cast<size_t>(i)]) << i;
}

TEST_F(IconCacheTest, AskingForAnIconMakesItTheLatest) {
    loadIcons(101);
    getIconFromCache(iconName(0).c_str());
    writePicture("theme/one-more.png", 4, 4);
    getIconFromCache("one-more.png");
    EXPECT_NE(getIconFromCache(iconName(0).c_str()), nullptr);
    EXPECT_EQ(getIconFromCache(iconName(1).c_str()), nullptr);
}

TEST_F(IconCacheTest, DestroysWhatItForgets) {
    gIconCache.put("oldest", static_cast<KestroSurface*>(new NotedSurface(ends, "oldest")));
    loadIcons(100);
    EXPECT_THAT(ends, testing::IsEmpty());
    writePicture("theme/one-more.png", 4, 4);
    getIconFromCache("one-more.png");
    EXPECT_THAT(ends, ElementsAre("oldest"));
}

TEST_F(IconDrawingTest, CentersInABoxOf33By32) {
    EXPECT_THAT(drawn(33, 32, {100, 50, 33, 32}), ElementsAre("copy all -> 100,50 33x32 on W"));
    EXPECT_THAT(drawn(23, 20, {100, 50, 33, 32}), ElementsAre("copy all -> 105,56 23x20 on W"));
    EXPECT_THAT(drawn(1, 1, {0, 0, 33, 32}), ElementsAre("copy all -> 16,15 1x1 on W"));
}

TEST_F(IconDrawingTest, DropsHalfPixels) {
    EXPECT_THAT(drawn(20, 21, {100, 50, 33, 32}), ElementsAre("copy all -> 106,55 20x21 on W"));
    EXPECT_THAT(drawn(32, 31, {100, 50, 33, 32}), ElementsAre("copy all -> 100,50 32x31 on W"));
    EXPECT_THAT(drawn(34, 33, {100, 50, 33, 32}), ElementsAre("copy all -> 100,50 34x33 on W"));
}

TEST_F(IconDrawingTest, LetsALargerIconStickOutEvenly) {
    EXPECT_THAT(drawn(40, 40, {100, 0, 33, 32}), ElementsAre("copy all -> 97,-4 40x40 on W"));
    EXPECT_THAT(drawn(35, 34, {100, 50, 33, 32}), ElementsAre("copy all -> 99,49 35x34 on W"));
}

TEST_F(IconDrawingTest, DoesNotLookAtTheSizeOfTheCell) {
    for (const SDL_Rect& cell : {SDL_Rect{10, 20, 0, 0}, SDL_Rect{10, 20, 5, 500}, SDL_Rect{10, 20, -7, -7}})
        EXPECT_THAT(drawn(23, 20, cell), ElementsAre("copy all -> 15,26 23x20 on W"));
}

TEST_F(IconDrawingTest, DrawsAnywhere) {
    EXPECT_THAT(drawn(23, 20, {-100, -50, 33, 32}), ElementsAre("copy all -> -95,-44 23x20 on W"));
}

TEST_F(IconDrawingTest, DrawsNothingWithoutAnIcon) {
    DrawingLog log;
    EXPECT_EQ(drawCachedIconCentered({0, 0, 33, 32}, "missing.png"), 0);
    EXPECT_EQ(drawCachedIconCentered({0, 0, 33, 32}, nullptr), 0);
    EXPECT_THAT(log.take(), testing::IsEmpty());
}

TEST_F(IconDrawingTest, ShowsTheIcon) {
    drawn(23, 20, {100, 50, 33, 32});
    EXPECT_EQ(pixel(105, 56), 0xFFFF8000u);
    EXPECT_EQ(pixel(127, 75), 0xFFFF8000u);
    EXPECT_EQ(pixel(104, 56), 0xFF000000u);
    EXPECT_EQ(pixel(128, 75), 0xFF000000u);
    EXPECT_EQ(pixel(105, 76), 0xFF000000u);
}

TEST_F(IconDrawingTest, DrawsTheSameAgainFromTheCache) {
    drawn(23, 20, {100, 50, 33, 32});
    fs::remove("theme/icon.png");
    DrawingLog log;
    drawCachedIconCentered({0, 0, 33, 32}, "icon.png");
    EXPECT_THAT(log.take(), ElementsAre("copy all -> 5,6 23x20 on W"));
}
