#include "support/list_drawing_test.h"

#include "shell/skin.h"

void ListDrawingTest::SetUp() {
    SkinnedTest::SetUp();
    gListColorSeq = {10, 10, 10, 255};
    gListColorSubtxt = {20, 20, 20, 255};
    gStatColorTxt = {30, 30, 30, 255};
    menu.reset(newMenu());
    takeLog();
}

void ListDrawingTest::TearDown() {
    menu.reset();
    SkinnedTest::TearDown();
}

OpenTextMenu* ListDrawingTest::newMenu(int rowsPerPage, int rowGap) {
    auto* const list = new OpenTextMenu("skin/bg-list-f.png", "skin/bg-list-n.png", rowsPerPage, rowGap);
    list->setShowListNumber(false);
    return list;
}

Drawing ListDrawingTest::drawn(OpenTextMenu& list) {
    TextureNames names;
    names.name(list.mSelectedBackground, "selected");
    names.name(list.mNormalBackground, "normal");
    DrawingLog log;
    EXPECT_EQ(list.draw(), 0);
    return log.take();
}

std::string ListDrawingTest::text(TTF_Font* font, const std::string& text, SDL_Color color, int x, int y) {
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(font, text.c_str(), &w, &h);
    char line[100];
    snprintf(line, sizeof line, "\" #%02X%02X%02X%02X all -> %d,%d %dx%d on W", color.r, color.g, color.b,
             color.a, x, y, w, h);
    return "\"" + text + line;
}

std::string ListDrawingTest::label(const std::string& shown, int x, int y) {
    return text(gListFontTxt, shown, {255, 255, 255, 255}, x, y);
}

std::string ListDrawingTest::number(const std::string& shown, int left, int top, int height) {
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontSubtxt, shown.c_str(), &w, &h);
    return text(gListFontSubtxt, shown, {10, 10, 10, 255}, left + 28 + (60 - w) / 2,
                top + 5 + (height - 5 - h) / 2);
}

std::string ListDrawingTest::background(const std::string& name, int top) {
    return "'" + name + "' 0,0 1280x96 -> 10," + std::to_string(top) + " 1260x96 on W";
}

int ListDrawingTest::labelOffset(int height) {
    return (height - lineHeight(gListFontTxt)) / 2 - 2;
}
