#include "support/setting_drawing_test.h"

#include "shell/skin.h"
#include "support/drawing_log.h"
#include "support/texture_names.h"

void SettingDrawingTest::SetUp() {
    SkinnedTest::SetUp();
    selected = picture("selected", 800, 90);
    normal = picture("normal", 900, 70);
}

void SettingDrawingTest::TearDown() {
    mPictures.clear();
    SkinnedTest::TearDown();
}

KestroSurface* SettingDrawingTest::picture(const std::string& name, int w, int h) {
    mPictures.emplace_back(name, newPicture(w, h, 0xFF305090));
    return mPictures.back().second.get();
}

std::vector<std::string> SettingDrawingTest::drawn(ItemDrawable& row, bool isSelected) {
    return drawnIn(row, {10, 80, 1260, 96}, isSelected);
}

std::vector<std::string> SettingDrawingTest::drawnIn(ItemDrawable& row, SDL_Rect rect, bool isSelected) {
    TextureNames names;
    for (const auto& [name, surface] : mPictures)
        names.name(surface.get(), name);
    DrawingLog log;
    EXPECT_EQ(row.draw(rect, isSelected), 1);
    return log.take();
}

std::string SettingDrawingTest::white(const std::string& text, int x, int y) {
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, text.c_str(), &w, &h);
    char line[100];
    snprintf(line, sizeof line, "\" #FFFFFFFF all -> %d,%d %dx%d on W", x, y, w, h);
    return "\"" + text + line;
}

std::string SettingDrawingTest::label(const std::string& text) {
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, text.c_str(), nullptr, &h);
    return white(text, 50, 80 + (96 - h) / 2);
}
