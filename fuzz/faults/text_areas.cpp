#include "fuzz/faults/memory_areas.h"
#include "fuzz/faults/skin_files.h"
#include "kestro.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr char label[] = "A label of 两 kinds of letters that is longer than its place";
constexpr SDL_Rect place{0, 0, 60, 30};
int sWidth = 0;

int drawLabel(const char* text) {
    return DrawString(gListFontTxt, place, text, {255, 255, 255, 255}, 1, true, false);
}

void prepareText() {
    fuzz::prepareSkinFiles();
    init_shared_skin();
    InitPinYinMap();
    sWidth = drawLabel(label);
    gTextSurfaceCache.clear();
}

void useText() {
    drawLabel(label);
    drawLabel("another");
    drawLabel(label);
    getTruncateLen(gListFontTxt, label, 0, 60);
    getTruncateLen(gListFontSubtxt, label, 0, 60);
    DrawStringLines(gListFontTxt, place, "one\ntwo\nthree", "\n", {1, 2, 3, 255}, 0, false);
    DrawStringLinesSpacing(gListFontTxt, place, "one\ntwo\nthree", "\n", 3, {1, 2, 3, 255}, 0, true);
    char* const initials = GetPinyinInitials2("超级玛丽\xF0\xA0\x80\x80");
    const char* start = nullptr;
    int length = 0;
    PinyinStrstr("超级玛丽", initials, "jm", &start, &length);
    free(initials);
}

bool textIsThere() {
    gTextSurfaceCache.clear(); // with what HarfBuzz could only lay out in part, and SDL_ttf took for whole
    const int truncated = getTruncateLen(gListFontTxt, label, 0, 60);
    return truncated > 0 && drawLabel(label) == sWidth && sWidth > 0;
}

void prepareReadings() {
    gPinyinMap.clear();
}

bool readingsAreThere() {
    InitPinYinMap();
    char* const initials = GetPinyinInitials2("超级玛丽");
    const bool found = initials && strcmp(initials, "cjml") == 0;
    free(initials);
    return found;
}

} // namespace

std::vector<fuzz::MemoryArea> fuzz::textAreas() {
    return {{"text", prepareText, useText, textIsThere, false},
            {"readings", prepareReadings, InitPinYinMap, readingsAreThere, false}};
}
