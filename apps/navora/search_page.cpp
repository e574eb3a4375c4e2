#include "navora/search_page.h"

#include "core/host.h"
#include "core/input.h"
#include "gfx/fill.h"
#include "gfx/text.h"
#include "navora/look.h"
#include "navora/place.h"
#include "navora/unsettled.h"
#include "navora/words.h"
#include "shell/skin.h"
#include "system/language.h"

namespace navora {

static constexpr SDL_Rect sKeyLine{24, 96, 448, 60};
static constexpr SDL_Rect sFound{490, headerHeight, 780, 576};
static constexpr size_t longestKey = 24;

SearchPage::SearchPage(Shell& shell, const std::string& folder)
    : Page(shell, wordSearch), mFolder(folder), mIndex(folder),
      mFound(shell, ListKind::search, "skin/bg-found-f.png", "skin/bg-found-n.png") {
    SDL_Rect place = sFound;
    mFound.updateRectAndNum(place, 6);
    mFound.setShowNumber(false);
    mFound.setFocus(false);
}

SearchPage* SearchPage::reopened(Shell& shell, const std::string& folder, const cJSON* state) {
    auto* const page = new SearchPage(shell, folder);
    for (const char letter : textOf(state, "key"))
        if (page->mPad.has(letter))
            page->type(letter);
    page->mPad.select(numberOf(state, "pad", 0));
    page->mInList = numberOf(state, "inList", 0) != 0;
    page->mAwaited.reset(cJSON_Duplicate(state, true));
    page->mFound.setFocus(page->mInList);
    return page;
}

void SearchPage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "search");
    cJSON_AddStringToObject(state, "base", mFolder.c_str());
    cJSON_AddStringToObject(state, "key", mKey.c_str());
    cJSON_AddNumberToObject(state, "pad", mPad.selected());
    cJSON_AddNumberToObject(state, "inList", mInList);
    if (mAwaited)
        for (const char* name : {"cursor", "first", "row"})
            cJSON_AddItemToObject(
                state, name, cJSON_Duplicate(cJSON_GetObjectItemCaseSensitive(mAwaited.get(), name), true));
    else
        savePosition(mFound, state);
}

void SearchPage::update() {
    Page::update();
    if (mIndex.gather())
        search();
    if (!mIndex.isComplete())
        noteUnsettled();
    if (mAwaited && mIndex.isComplete()) {
        restorePosition(mFound, mAwaited.get());
        mAwaited = nullptr;
    }
}

void SearchPage::themeChanged() {
    mPad.loadPictures();
    mFound.refresh();
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

/// A list that is still to be filled keeps it.
bool SearchPage::listHasCursor() {
    return mInList && (mAwaited || mFound.getListNum() > 0);
}

int SearchPage::handleInput() {
    const int code = wait_event(nullptr);
    if (code == keyMenu)
        return loopClose;
    if (code != 0)
        mAwaited = nullptr;
    mInList = listHasCursor();
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
