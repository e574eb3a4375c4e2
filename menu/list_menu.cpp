#include "menu/list_menu.h"

#include "core/clock.h"
#include "core/frame_rate.h"
#include "core/host.h"
#include "core/input.h"
#include "core/log.h"

static constexpr int pageStep = 6;            // rows, however many are shown
static constexpr uint64_t longestPause = 199; // milliseconds between presses that count as one run
static constexpr size_t pressesUntilPaging = 11;
static constexpr int boostMs = 3000;
static constexpr int confirmWithB = 19; // index in the host's table
static constexpr int stoppedAtTop = 1008;

ListMenu::ListMenu(bool)
    : mFirstFlag(true), mWrap(true), mCursor(0), mFirstVisible(0), mLastVisible(0), mRect{}, mLastKeyTime(0),
      mFocus(true) {}

ListMenu::~ListMenu() = default;

void ListMenu::restorePos(int cursor, int first, int last) {
    const int count = getListNum();
    const auto isRow = [count](int index) { return index >= 0 && index < count; };
    if (isRow(cursor))
        mCursor = cursor;
    if (isRow(first) && isRow(last)) {
        mFirstVisible = first;
        mLastVisible = last;
    }
}

int ListMenu::eventHandling() {
    SDL_Event event{};
    return handleEvent(wait_event(&event));
}

const char* ListMenu::getItemThemePath(int) {
    return nullptr;
}

int ListMenu::moveForward() {
    mCursor = mCursor < getListNum() - 1 ? mCursor + 1 : 0;
    return 0;
}

int ListMenu::moveBackward() {
    if (mCursor > 0) {
        --mCursor;
        return -1;
    }
    if (!mWrap)
        return stoppedAtTop;
    mCursor = getListNum() - 1;
    return -1;
}

int ListMenu::xselect() {
    return 0;
}

void ListMenu::refresh() {}

void ListMenu::removeItem(int) {}

void ListMenu::clearItemList() {}

void ListMenu::reserved15() {}

void ListMenu::reserved16() {}

int ListMenu::pageUp() {
    mCursor = mCursor > pageStep ? mCursor - pageStep : 0;
    return 0;
}

int ListMenu::pageDown() {
    const int last = getListNum() - 1;
    mCursor = mCursor < last - pageStep ? mCursor + pageStep : last;
    return 0;
}

void ListMenu::setRect(SDL_Rect& rect) {
    mRect = rect;
}

void ListMenu::setFocus(bool focus) {
    mFocus = focus;
}

void ListMenu::checkRepeatKey() {}

void ListMenu::addToPressedKeys(int code) {
    if (code < 5 || code > 8)
        return;
    const uint64_t now = systemms();
    if (now - mLastKeyTime > longestPause) {
        mLastKeyTime = now;
        mPressedKeys.clear(); // the first press of a run does not count
        return;
    }
    if (!mPressedKeys.empty() && mPressedKeys.back() != code)
        return;
    mPressedKeys.push_back(code);
    mLastKeyTime = now;
}

bool ListMenu::pressedForAWhile() {
    tprintf("pressedForAWhile %d\n", static_cast<int>(mPressedKeys.size()));
    return mPressedKeys.size() >= pressesUntilPaging;
}

int ListMenu::selectIfConfirmed(int code) {
    const int confirm = GetKeyShm(gShmInfo, confirmWithB) == 0 ? 1 : 2;
    return code == confirm ? select() : code;
}

int ListMenu::moveUp() {
    if (pressedForAWhile()) {
        pageUp();
        return 5;
    }
    const int result = moveBackward();
    return result >= 1 ? result : 5;
}

int ListMenu::moveDown() {
    if (pressedForAWhile())
        pageDown();
    else
        moveForward();
    return 6;
}

static bool boosts(int code) {
    return (code >= 1 && code <= 3) || (code >= 5 && code <= 11) || code == 42;
}

int ListMenu::handleEvent(int code) {
    addToPressedKeys(code);
    if (boosts(code))
        touchBoostFps(boostMs);
    switch (code) {
    case 1:
    case 2:
        return selectIfConfirmed(code);
    case 3:
        tprintf("key_x\n");
        return xselect();
    case 5:
        return moveUp();
    case 6:
        return moveDown();
    default:
        return code;
    }
}
