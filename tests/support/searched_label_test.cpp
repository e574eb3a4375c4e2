#include "support/searched_label_test.h"

#include "shell/skin.h"
#include "text/pinyin.h"

void SearchedLabelTest::SetUp() {
    ListDrawingTest::SetUp();
    InitPinYinMap();
}

Drawing SearchedLabelTest::searched(const char* text, const char* keyword, int align, bool shadow,
                                    const char* extraText) {
    const std::unique_ptr<char, void (*)(void*)> initials(GetPinyinInitials2(text), free);
    const std::unique_ptr<char, void (*)(void*)> extraInitials(GetPinyinInitials2(extraText), free);
    const TextureNames names;
    DrawingLog log;
    menu->drawListText(gListFontTxt, {100, 200, 700, 50}, text, {255, 255, 255, 255}, align, shadow, keyword,
                       initials.get(), extraInitials.get(), extraText);
    return log.take();
}

std::string SearchedLabelTest::plain(const std::string& piece, int x, int y) {
    return label(piece, x, y);
}

std::string SearchedLabelTest::match(const std::string& piece, int x, int y) {
    return text(gListFontTxt, piece, {54, 255, 160, 0}, x, y);
}

int SearchedLabelTest::width(const std::string& piece) {
    return textWidth(gListFontTxt, piece);
}

int SearchedLabelTest::middle(const std::string& piece) {
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, piece.c_str(), nullptr, &h);
    return 200 + (50 - h) / 2;
}

int SearchedLabelTest::latinWidth(const std::string& text) {
    int w = 0;
    TTF_SizeText(gListFontTxt, text.c_str(), &w, nullptr);
    return w;
}
