#include "navora/letter_pad.h"

#include "core/host.h"
#include "gfx/image.h"
#include "gfx/text.h"
#include "navora/look.h"
#include "navora/page.h"
#include "shell/skin.h"

#include <cstring>

namespace navora {

static constexpr int columns = 6;
static constexpr int letterRows = 6; // and below them the row of the two wide keys
static constexpr int wideColumns = columns / 2;
static constexpr int left = 20;
static constexpr int top = 168;
static constexpr int pitchX = 76;
static constexpr int pitchY = 68;
static constexpr const char* sKeys = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

static std::unique_ptr<KestroSurface> load(const char* name) {
    return std::unique_ptr<KestroSurface>(LoadKestroSurface(gThemePath, "./", name));
}

void LetterPad::loadPictures() {
    mSelected = load("skin/key-f.png");
    mNormal = load("skin/key-n.png");
    mWideSelected = load("skin/key-wide-f.png");
    mWideNormal = load("skin/key-wide-n.png");
    mSpace = load("skin/key-space.png");
    mDelete = load("skin/key-delete.png");
}

bool LetterPad::isWide() const {
    return mRow == letterRows;
}

char LetterPad::key() const {
    if (!isWide())
        return sKeys[mRow * columns + mColumn];
    return mColumn < wideColumns ? ' ' : '\0';
}

bool LetterPad::has(char letter) {
    return letter == ' ' || (letter && strchr(sKeys, letter));
}

int LetterPad::selected() const {
    return mRow * columns + (isWide() ? mColumn / wideColumns : mColumn);
}

void LetterPad::select(int number) {
    constexpr int wide = letterRows * columns;
    if (number < 0 || number >= wide + columns / wideColumns)
        return;
    mRow = number / columns;
    mColumn = number < wide ? number % columns : (number - wide) * wideColumns;
}

bool LetterPad::move(int code) {
    constexpr int rows = letterRows + 1;
    const int step = isWide() ? wideColumns : 1;
    switch (code) {
    case keyUp:
        mRow = (mRow + rows - 1) % rows;
        return true;
    case keyDown:
        mRow = (mRow + 1) % rows;
        return true;
    case keyLeft:
        mColumn = (mColumn + columns - step) % columns;
        return true;
    case keyRight:
        if (mColumn + step >= columns)
            return false;
        mColumn += step;
        return true;
    default:
        return false;
    }
}

void LetterPad::drawKey(int row, int column, bool selected) const {
    SDL_Rect place{left + column * pitchX, top + row * pitchY, pitchX, pitchY};
    if (row < letterRows) {
        const char letter[] = {sKeys[row * columns + column], 0};
        drawCentred((selected ? mSelected : mNormal).get(), place);
        DrawString(gListFontTxt, place, letter, gListColorTxt, 1, false, false);
        return;
    }
    place.w *= wideColumns;
    drawCentred((selected ? mWideSelected : mWideNormal).get(), place);
    drawCentred((column == 0 ? mSpace : mDelete).get(), place);
}

void LetterPad::draw(bool focused) const {
    for (int row = 0; row <= letterRows; ++row) {
        const int step = row == letterRows ? wideColumns : 1;
        for (int column = 0; column < columns; column += step)
            drawKey(row, column, focused && row == mRow && mColumn / step == column / step);
    }
}

} // namespace navora
