#include "gfx/text.h"
#include "shell/skin.h"
#include "support/font_log.h"
#include "support/opened_paths.h"
#include "support/skin_files_test.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

TTF_Font** const fonts[] = {&gNavFont,  &gNavFontIcon,    &gListFontTxt,  &gListFontSubtxt, &gStatFont,
                            &gMenuFont, &gPopupFontTitle, &gPopupFontTxt, &gPopupFontBtn};
constexpr int points[] = {32, 24, 36, 24, 24, 36, 44, 36, 36};

KestroSurface** const pictures[] = {&gIconVideo, &gIconFolder, &gBackground, &gIconBack,
                                    &gIconMenu,  &gIconA,      &gIconB,      &gBackgroundFloat};

const bool sNothingAtLoad = [] {
    bool nothing = true;
    for (TTF_Font** const font : fonts)
        nothing = nothing && !*font;
    for (KestroSurface** const picture : pictures)
        nothing = nothing && !*picture;
    return nothing;
}();

/// A size for each picture, 0 for none.
std::vector<int> pictureSizes() {
    std::vector<int> sizes;
    for (KestroSurface** const picture : pictures)
        sizes.push_back(*picture ? (*picture)->getWidth() : 0);
    return sizes;
}

class SkinTest : public SkinFilesTest {
protected:
    /// The lines for a skin without pictures.
    static testing::Matcher<std::string> linesWithoutPictures() {
        return testing::MatchesRegex(fontLines() + "open background fail: [^\n]*skin/bg.png[^\n]*\n");
    }
};

void expectColor(const SDL_Color& color, int r, int g, int b, int a) {
    EXPECT_EQ(std::vector<int>({color.r, color.g, color.b, color.a}), std::vector<int>({r, g, b, a}));
}

} // namespace

TEST(Skin, HasNoFontsAndPicturesAtLoad) {
    EXPECT_TRUE(sNothingAtLoad);
}

TEST_F(SkinTest, HasTwoGreensWithoutAlpha) {
    gHighlightColor = gPopupColorTitle = {1, 2, 3, 4};
    init_shared_skin();
    expectColor(gHighlightColor, 54, 255, 160, 0);
    expectColor(gPopupColorTitle, 54, 255, 160, 0);
    takeLog();
}

TEST_F(SkinTest, HasWhiteForEverythingElse) {
    SDL_Color* const whites[] = {&gPopupColorTxt,   &gPopupColorBtn, &gStatColorTxt, &gListColorTxt,
                                 &gListColorSubtxt, &gListColorSeq,  &gNavColorTxt,  &gNavColorIcon};
    for (SDL_Color* const color : whites)
        *color = {1, 2, 3, 4};
    init_shared_skin();
    for (const SDL_Color* const color : whites)
        expectColor(*color, 255, 255, 255, 255);
    takeLog();
}

TEST_F(SkinTest, OpensTheOneFontFileInNineSizesInOrder) {
    const FontLog log;
    init_shared_skin();
    ASSERT_EQ(log.opened().size(), 9u);
    for (size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(log.opened()[i].path, "./regular.ttf");
        EXPECT_EQ(log.opened()[i].points, points[i]) << i;
        EXPECT_NE(*fonts[i], nullptr);
        EXPECT_EQ(log.opened()[i].font, *fonts[i]) << i;
    }
    EXPECT_THAT(takeLog(), linesWithoutPictures());
}

TEST_F(SkinTest, TakesPicturesFromTheRunFolderInOrder) {
    writePictures("./", 20);
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({20, 21, 22, 23, 24, 25, 26, 27}));
    std::string lines = fontLines();
    for (const std::string& name : pictureNames)
        lines += fallbackLine(name);
    EXPECT_EQ(takeLog(), lines);
}

TEST_F(SkinTest, TakesPicturesFromTheThemeFirst) {
    writePictures("./", 20);
    writePictures("theme/", 40);
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({40, 41, 42, 43, 44, 45, 46, 47}));
    EXPECT_EQ(takeLog(), fontLines());
}

TEST_F(SkinTest, TakesFromTheRunFolderWhatTheThemeLacks) {
    writePictures("./", 20);
    writePicture("theme/skin/bg.png", 50, 50);
    writePicture("theme/skin/tips-B.png", 51, 51);
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({20, 21, 50, 23, 24, 25, 51, 27}));
    std::string lines = fontLines();
    for (const std::string& name : pictureNames)
        if (name != "skin/bg.png" && name != "skin/tips-B.png")
            lines += fallbackLine(name, "theme/");
    EXPECT_EQ(takeLog(), lines);
}

TEST_F(SkinTest, TakesFromTheRunFolderWhatIsBrokenInTheTheme) {
    writePictures("./", 20);
    for (const std::string& name : pictureNames)
        writeFile("theme/" + name, "no picture");
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({20, 21, 22, 23, 24, 25, 26, 27}));
    takeLog();
}

TEST_F(SkinTest, TakesFromTheRunFolderWhatMayNotBeReadInTheTheme) {
    writePictures("./", 20);
    writePictures("theme/", 40);
    OpenedPaths paths;
    for (const std::string& name : pictureNames)
        if (name != "skin/tips-A.png")
            paths.refuse("theme/" + name);
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({20, 21, 22, 23, 24, 45, 26, 27}));
    takeLog();
}

TEST_F(SkinTest, TakesTheRunFoldersPicturesForAThemeThatIsMissing) {
    writePictures("./", 20);
    gThemePath = "gone/";
    init_shared_skin();
    EXPECT_EQ(pictureSizes(), std::vector<int>({20, 21, 22, 23, 24, 25, 26, 27}));
    EXPECT_THAT(takeLog(), testing::StartsWith(fontLines() + fallbackLine("skin/ic-video.png", "gone/")));
}

TEST_F(SkinTest, WithoutABackgroundSaysSo) {
    writePictures("theme/", 40);
    fs::remove("theme/skin/bg.png");
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(gBackground, nullptr);
    EXPECT_THAT(takeLog(), linesWithoutPictures());
}

TEST_F(SkinTest, WithoutAnyOtherPictureSaysNothing) {
    for (size_t i = 0; i < pictureNames.size(); ++i) {
        if (pictureNames[i] == "skin/bg.png")
            continue;
        writePictures("theme/", 40);
        fs::remove("theme/" + pictureNames[i]);
        gThemePath = "theme/";
        init_shared_skin();
        std::vector<int> sizes = {40, 41, 42, 43, 44, 45, 46, 47};
        sizes[i] = 0;
        EXPECT_EQ(pictureSizes(), sizes);
        EXPECT_EQ(takeLog(), fontLines()) << pictureNames[i];
    }
}

TEST_F(SkinTest, WithoutTheFontHasNoFontsAndSaysNothingMore) {
    writePictures("theme/", 40);
    gThemePath = "theme/";
    fs::remove("regular.ttf");
    init_shared_skin();
    for (TTF_Font** const font : fonts)
        EXPECT_EQ(*font, nullptr);
    EXPECT_EQ(takeLog(), fontLines());
    EXPECT_NE(gBackground, nullptr) << "the pictures are there";
}

TEST_F(SkinTest, WithABrokenFontHasNoFonts) {
    fs::remove("regular.ttf");
    writeFile("regular.ttf", "no font");
    init_shared_skin();
    for (TTF_Font** const font : fonts)
        EXPECT_EQ(*font, nullptr);
    EXPECT_THAT(takeLog(), linesWithoutPictures());
}

TEST_F(SkinTest, WithoutTheFontDrawsNoTextButDoesNotCrash) {
    fs::remove("regular.ttf");
    init_shared_skin();
    takeLog();
    DrawString(gListFontTxt, {0, 0, 100, 40}, "text", gListColorTxt, 1, true, false);
    EXPECT_EQ(pixel(50, 20), 0xFF000000u);
    takeLog();
}

TEST_F(SkinTest, DoesNotTakeTheFontFromTheTheme) {
    fs::create_directory("theme");
    fs::rename("regular.ttf", "theme/regular.ttf");
    gThemePath = "theme/";
    init_shared_skin();
    EXPECT_EQ(gNavFont, nullptr);
    takeLog();
}

TEST_F(SkinTest, LeavesThemePathAndKeyToneToTheHost) {
    const char* const theme = "theme/";
    gThemePath = theme;
    Mix_Chunk tone{};
    gKeyChunk = &tone;
    init_shared_skin();
    uninit_shared_skin();
    EXPECT_EQ(gThemePath, theme);
    EXPECT_EQ(gKeyChunk, &tone);
    gKeyChunk = nullptr;
    takeLog();
}

TEST_F(SkinTest, OpensFontsForAHostThatHasNotStartedThem) {
    TTF_Quit();
    ASSERT_EQ(TTF_WasInit(), 0);
    init_shared_skin();
    EXPECT_NE(gNavFont, nullptr);
    takeLog();
}
