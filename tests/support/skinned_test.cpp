#include "support/skinned_test.h"

#include "shell/skin.h"
#include "system/current_language.h"
#include "system/language.h"
#include "text/pinyin.h"

#include <SDL_image.h>

#include <filesystem>

namespace fs = std::filesystem;

void SkinnedTest::SetUp() {
    ScreenTest::SetUp();
    openScreen(1280, 720, 0);
    fs::create_symlink(TEST_FONT, "regular.ttf");
    writePicture("skin/bg-list-f.png", 1260, 96, 0xFF305090);
    writePicture("skin/bg-list-n.png", 1260, 96, 0xFF202830);
    init_shared_skin();
    ASSERT_NE(gListFontTxt, nullptr);
    takeLog();
}

void SkinnedTest::TearDown() {
    uninit_shared_skin();
    gLangTable.clear();
    gPinyinMap.clear();
    setSystemLanguage("en.lang");
    ScreenTest::TearDown();
}

static bool isInRoundedCorner(int x, int y, int w, int h, int radius) {
    const int dx = x < radius ? radius - x : x >= w - radius ? x - (w - radius - 1) : 0;
    const int dy = y < radius ? radius - y : y >= h - radius ? y - (h - radius - 1) : 0;
    return dx > 0 && dy > 0 && dx * dx + dy * dy > radius * radius;
}

void SkinnedTest::writePicture(const std::string& path, int w, int h, Uint32 color, int radius) {
    const fs::path folder = fs::path(path).parent_path();
    if (!folder.empty())
        fs::create_directories(folder);
    SDL_Surface* const picture = filledSurface(w, h, color);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (isInRoundedCorner(x, y, w, h, radius)) {
                const SDL_Rect one{x, y, 1, 1};
                SDL_FillRect(picture, &one, 0);
            }
    ASSERT_EQ(IMG_SavePNG(picture, path.c_str()), 0);
    SDL_FreeSurface(picture);
}

void SkinnedTest::useLanguage(const std::map<int, std::string>& words) {
    gLangTable.push_back({"test.lang", "Test", "", words});
    setSystemLanguage("test.lang");
}

void SkinnedTest::clearScreen() {
    SDL_SetRenderDrawColor(gRenderer, 0, 0, 0, 255);
    SDL_RenderClear(gRenderer);
}

KestroSurface* newPicture(int w, int h, Uint32 color) {
    SDL_Surface* const pixels = filledSurface(w, h, color);
    KestroSurface* const picture = CreateSurface(pixels);
    SDL_FreeSurface(pixels);
    return picture;
}

int textWidth(TTF_Font* font, const std::string& text) {
    int width = 0;
    TTF_SizeUTF8(font, text.c_str(), &width, nullptr);
    return width;
}

int lineHeight(TTF_Font* font) {
    return TTF_FontHeight(font);
}
