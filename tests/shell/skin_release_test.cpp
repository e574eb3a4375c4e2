#include "gfx/surface_cache.h"
#include "shell/skin.h"
#include "support/font_log.h"
#include "support/noted_surface.h"
#include "support/skin_files_test.h"

namespace {

TTF_Font** const inClosingOrder[] = {&gNavFont,        &gNavFontIcon,  &gListFontTxt,
                                     &gListFontSubtxt, &gStatFont,     &gMenuFont,
                                     &gPopupFontTitle, &gPopupFontTxt, &gPopupFontBtn};

struct Picture {
    const char* name;
    KestroSurface** global;
};

const Picture inDeletionOrder[] = {
    {"folder", &gIconFolder}, {"video", &gIconVideo},       {"background", &gBackground},
    {"back", &gIconBack},     {"menu", &gIconMenu},         {"a", &gIconA},
    {"b", &gIconB},           {"float", &gBackgroundFloat},
};

class SkinReleaseTest : public SkinFilesTest {
protected:
    std::vector<std::string> ends;

    void initSkin() {
        init_shared_skin();
        takeLog();
    }

    void putNotedPictures() {
        for (const Picture& picture : inDeletionOrder) {
            delete *picture.global;
            *picture.global = new NotedSurface(ends, picture.name);
        }
    }

    static std::vector<std::string> allEnds() {
        std::vector<std::string> names;
        for (const Picture& picture : inDeletionOrder)
            names.push_back(picture.name);
        return names;
    }

    static void expectNothingLeft() {
        for (TTF_Font** const font : inClosingOrder)
            EXPECT_EQ(*font, nullptr);
        for (const Picture& picture : inDeletionOrder)
            EXPECT_EQ(*picture.global, nullptr) << picture.name;
    }
};

} // namespace

TEST_F(SkinReleaseTest, ClosesTheFontsInOrder) {
    initSkin();
    std::vector<TTF_Font*> fonts;
    for (TTF_Font** const font : inClosingOrder)
        fonts.push_back(*font);
    const FontLog log;
    uninit_shared_skin();
    EXPECT_EQ(log.closed(), fonts);
    expectNothingLeft();
}

TEST_F(SkinReleaseTest, DeletesThePicturesInOrderThroughTheirDestructor) {
    putNotedPictures();
    uninit_shared_skin();
    EXPECT_EQ(ends, allEnds());
    expectNothingLeft();
}

TEST_F(SkinReleaseTest, ClosesTheFontsBeforeThePictures) {
    initSkin();
    const FontLog log;
    size_t closedBefore = 0;
    delete gIconFolder;
    gIconFolder = new NotedSurface(ends, "folder", [&] { closedBefore = log.closed().size(); });
    uninit_shared_skin();
    EXPECT_EQ(closedBefore, 9u);
}

TEST_F(SkinReleaseTest, ForgetsTheRenderedTextsBeforeTheirFontsAreClosed) {
    initSkin();
    const FontLog log;
    size_t closedBefore = 99;
    KestroSurface* const text = new NotedSurface(ends, "text", [&] { closedBefore = log.closed().size(); });
    gTextSurfaceCache.put("text", text);
    uninit_shared_skin();
    EXPECT_THAT(ends, testing::ElementsAre("text"));
    EXPECT_EQ(closedBefore, 0u);
    EXPECT_EQ(gTextSurfaceCache.get("text"), nullptr);
}

TEST_F(SkinReleaseTest, KeepsTheIconCache) {
    initSkin();
    KestroSurface* const icon = new NotedSurface(ends, "icon");
    gIconCache.put("icon", icon);
    uninit_shared_skin();
    EXPECT_THAT(ends, testing::IsEmpty());
    EXPECT_EQ(gIconCache.get("icon"), icon);
    gIconCache.clear();
    EXPECT_THAT(ends, testing::ElementsAre("icon"));
}

TEST_F(SkinReleaseTest, LeavesTheColors) {
    initSkin();
    uninit_shared_skin();
    EXPECT_EQ(gHighlightColor.g, 255);
    EXPECT_EQ(gHighlightColor.b, 160);
    EXPECT_EQ(gNavColorIcon.a, 255);
}

TEST_F(SkinReleaseTest, SkipsWhatIsNotThere) {
    initSkin();
    TTF_CloseFont(gListFontTxt);
    gListFontTxt = nullptr;
    delete gIconA;
    gIconA = nullptr;
    const FontLog log;
    uninit_shared_skin();
    EXPECT_EQ(log.closed().size(), 8u);
    expectNothingLeft();
}

TEST_F(SkinReleaseTest, IsHarmlessWithoutASkinAndTwice) {
    const FontLog log;
    uninit_shared_skin();
    initSkin();
    uninit_shared_skin();
    uninit_shared_skin();
    EXPECT_EQ(log.closed().size(), 9u);
    EXPECT_EQ(takeLog(), "");
    expectNothingLeft();
}

TEST_F(SkinReleaseTest, ReturnsZeroLikeTheStart) {
    EXPECT_EQ(init_shared_skin(), 0);
    EXPECT_EQ(uninit_shared_skin(), 0);
    takeLog();
}

TEST_F(SkinReleaseTest, IsFollowedByAFreshSkin) {
    writePictures("theme/", 20);
    gThemePath = "theme/";
    initSkin();
    uninit_shared_skin();
    writePictures("theme/", 60);
    init_shared_skin();
    EXPECT_EQ(takeLog(), fontLines());
    EXPECT_EQ(gIconVideo->getWidth(), 60);
    EXPECT_EQ(gBackgroundFloat->getWidth(), 67);
    EXPECT_NE(gPopupFontBtn, nullptr);
}

TEST_F(SkinReleaseTest, HappensBeforeASecondStart) {
    initSkin();
    putNotedPictures();
    std::vector<TTF_Font*> fonts;
    for (TTF_Font** const font : inClosingOrder)
        fonts.push_back(*font);
    const FontLog log;
    initSkin();
    EXPECT_EQ(log.closed(), fonts);
    EXPECT_EQ(ends, allEnds());
    EXPECT_EQ(log.opened().size(), 9u);
}

TEST_F(SkinReleaseTest, MayComeAfterTheScreenIsClosed) {
    writePictures("theme/", 20);
    gThemePath = "theme/";
    initSkin();
    ScreenUninit();
    uninit_shared_skin();
    expectNothingLeft();
    openScreen(640, 480, 0);
    initSkin();
    EXPECT_NE(gBackground, nullptr);
}
