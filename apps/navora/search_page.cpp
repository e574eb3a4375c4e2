#include "navora/search_page.h"

#include "core/host.h"
#include "core/input.h"
#include "gfx/fill.h"
#include "gfx/text.h"
#include "navora/look.h"
#include "navora/words.h"
#include "shell/skin.h"
#include "system/language.h"

namespace navora {

static constexpr SDL_Rect sKeyLine{24, 96, 448, 60};
static constexpr SDL_Rect sFound{490, headerHeight, 780, 576};
static constexpr size_t longestKey = 24;

SearchPage::SearchPage(Shell& shell, const std::string& folder)
    : Page(shell, wordSearch), mIndex(folder),
      mFound(shell, ListKind::search, "skin/bg-found-f.png", "skin/bg-found-n.png") {
    SDL_Rect place = sFound;
    mFound.updateRectAndNum(place, 6);
    mFound.setShowNumber(false);
    mFound.setFocus(false);
}

void SearchPage::update() {
    Page::update();
    if (mIndex.gather())
        search();
}

void SearchPage::search() {
    mFound.setKeyword(mKey.c_str());
    mFound.setPaths(mIndex.search(mKey));
}

void SearchPage::type(char letter) {
    if (mKey.size() >= longestKey)
        return;
    mKey += letter;
    mFound.setCursor(0);
    search();
}

int SearchPage::deleteLast() {
    if (mKey.empty())
        return loopClose;
    mKey.pop_back();
    mFound.setCursor(0);
    search();
    return loopIgnored;
}

int SearchPage::handlePad(int code) {
    const bool swapped = GetKeyShm(gShmInfo, 19) != 0;
    if (code == (swapped ? keyB : keyA)) {
        if (const char letter = mPad.key())
            type(letter);
        else if (!mKey.empty())
            deleteLast();
    } else if (code == (swapped ? keyA : keyB))
        return deleteLast();
    else if (!mPad.move(code) && code == keyRight && mFound.getListNum() > 0)
        mInList = true;
    return loopIgnored;
}

int SearchPage::handleList(int code) {
    const int result = mFound.handleEvent(code);
    if (result != keyLeft && result != keyA && result != keyB)
        return result;
    mInList = false;
    return loopIgnored;
}

int SearchPage::handleInput() {
    const int code = wait_event(nullptr);
    if (code == keyMenu)
        return loopClose;
    mInList = mInList && mFound.getListNum() > 0;
    const int result = mInList ? handleList(code) : handlePad(code);
    mFound.setFocus(mInList);
    return result;
}

void SearchPage::drawKeyLine() const {
    SDL_Rect line{sKeyLine.x, sKeyLine.y + sKeyLine.h - 3, sKeyLine.w, 3};
    FillRect(nullptr, &line, 43, 196, 131, 255);
    SDL_Rect place{sKeyLine.x + 8, sKeyLine.y, sKeyLine.w - 24, sKeyLine.h};
    const int width =
        mKey.empty() ? 0 : DrawString(gListFontTxt, place, mKey.c_str(), gHighlightColor, 3, false, false);
    SDL_Rect caret{place.x + width + 3, place.y + 12, 3, 36};
    FillRect(nullptr, &caret, 255, 255, 255, 255);
}

void SearchPage::drawMessage() const {
    constexpr int wordLoading = 2;
    DrawString(gListFontTxt, sFound, getLangStr(mIndex.isComplete() ? wordNoMatch : wordLoading),
               gListColorTxt, 1, false, false);
}

void SearchPage::drawContent() {
    drawKeyLine();
    mPad.draw(!mInList);
    if (mFound.getListNum() > 0)
        mFound.draw();
    else
        drawMessage();
}

} // namespace navora
