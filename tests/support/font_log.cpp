#include "support/font_log.h"

#include "support/real_function.h"

static bool sNoting = false;
static std::vector<FontLog::Opening> sOpened;
static std::vector<TTF_Font*> sClosed;

extern "C" TTF_Font* TTF_OpenFont(const char* file, int points) {
    static const auto real = REAL_FUNCTION(TTF_OpenFont);
    TTF_Font* const font = real(file, points);
    if (sNoting)
        sOpened.push_back({file, points, font});
    return font;
}

extern "C" void TTF_CloseFont(TTF_Font* font) {
    static const auto real = REAL_FUNCTION(TTF_CloseFont);
    if (sNoting)
        sClosed.push_back(font);
    real(font);
}

FontLog::FontLog() {
    sOpened.clear();
    sClosed.clear();
    sNoting = true;
}

FontLog::~FontLog() {
    sNoting = false;
}

const std::vector<FontLog::Opening>& FontLog::opened() const {
    return sOpened;
}

const std::vector<TTF_Font*>& FontLog::closed() const {
    return sClosed;
}
