#include "menu/text_menu_drawer.h"

#include "core/out_of_memory.h"
#include "gfx/font_height.h"
#include "gfx/text.h"
#include "menu/label_highlight.h"
#include "shell/bar_layout.h"
#include "shell/skin.h"
#include "system/language.h"
#include "text/pinyin.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <typeinfo>

using kestro::fontHeight;

static constexpr int thumbnailSide = 300; // pixels
static constexpr int thumbnailMargin = 40;
static constexpr int iconMargin = 16;

/// A text of a row. A plain TextMenuItem is not asked for a copy, as a page asks for every text in every
/// frame; other rows' goes to `copy`.
static const char* textOf(TextMenuItemProvider& row, const char* (TextMenuItem::*own)() const,
                          std::string (TextMenuItemProvider::*get)(), std::string& copy) {
    if (typeid(row) == typeid(TextMenuItem))
        return (static_cast<TextMenuItem&>(row).*own)();
    copy = (row.*get)();
    return copy.c_str();
}

static const char* labelOf(TextMenuItemProvider& row, std::string& copy) {
    return textOf(row, &TextMenuItem::shownLabel, &TextMenuItemProvider::getLabel, copy);
}

static const char* subLabelOf(TextMenuItemProvider& row, std::string& copy) {
    return textOf(row, &TextMenuItem::shownSubLabel, &TextMenuItemProvider::getSubLabel, copy);
}

static const char* iconPathOf(TextMenuItemProvider& row, std::string& copy) {
    return textOf(row, &TextMenuItem::imagePath, &TextMenuItemProvider::getImagePath, copy);
}

static const char* thumbnailPathOf(TextMenuItemProvider& row, std::string& copy) {
    return textOf(row, &TextMenuItem::secondImagePath, &TextMenuItemProvider::getSecondImagePath, copy);
}

/// Where a row stands, and how.
struct TextMenuDrawer::RowPlace {
    int y;
    bool isCurrent; // of a focused list
    bool shadow;
    SDL_Rect label;
};

void TextMenuDrawer::layOutPage(int count, int rowsPerPage) {
    if (mFirstVisible == 0 && mLastVisible == 0)
        mLastVisible = rowsPerPage - 1;
    if (mCursor < mFirstVisible) {
        mFirstVisible = mCursor;
        mLastVisible = mCursor + rowsPerPage - 1;
    }
    if (mCursor > mLastVisible) {
        mLastVisible = mCursor;
        mFirstVisible = mCursor - rowsPerPage + 1;
    }
    mFirstVisible = std::max(mFirstVisible, 0);
    mLastVisible = std::min(mLastVisible, count - 1);
}

int TextMenuDrawer::draw() {
    const int count = getListNum();
    if (count < 1)
        return 0;
    layOutPage(count, mRowsPerPage);
    for (int index = mFirstVisible; index <= mLastVisible; ++index)
        kestro::unlessOutOfMemory("draw", [&] { drawRow(index); });
    kestro::unlessOutOfMemory("draw", [&] { drawThumbnail(); });
    if (mShowListNumber)
        drawListNumAtStatBar(std::min(mCursor, INT32_MAX - 1) + 1, count);
    return 0;
}

void TextMenuDrawer::drawBackground(const RowPlace& place) {
    KestroSurface* const background = place.isCurrent ? mSelectedBackground : mNormalBackground;
    if (!background)
        return;
    // A picture higher than the row is cut to the row here, and stretched to its own height again when it is
    // drawn: pictures are made as high as their rows.
    SDL_Rect src{0, 0, mRect.w, mItemHeight};
    SDL_Rect dst{mRect.x + mLeftMargin, place.y, 0, 0};
    if (background->getHeight() < mItemHeight)
        dst.y += (mItemHeight - background->getHeight()) / 2;
    background->render(&src, &dst, true, nullptr);
}

KestroSurface* TextMenuDrawer::iconOf(TextMenuItemProvider* row) {
    if (mRowIcon || !row)
        return mRowIcon;
    if (KestroSurface* const own = row->getLabelIcon())
        return own;
    const int side = mItemHeight - 2 * iconMargin;
    std::string copy;
    return side > 0 ? getRowImage(iconPathOf(*row, copy), side, side) : nullptr;
}

void TextMenuDrawer::drawIcon(KestroSurface* icon, RowPlace& place) {
    if (!icon)
        return;
    SDL_Rect dst{place.label.x, place.y + (mItemHeight - icon->getHeight()) / 2, 0, 0};
    icon->render(nullptr, &dst, true, nullptr);
    place.label.x += icon->getWidth() + 2;
    place.label.w -= icon->getWidth();
}

void TextMenuDrawer::drawRow(int index) {
    const int y = mRect.y + (index - mFirstVisible) * (mItemHeight + mYSpaceInList);
    const bool isCurrent = mFocus && index == mCursor;
    RowPlace place{y, isCurrent, mShadow && isCurrent, {mRect.x + 30, y, mRect.w - 60, mItemHeight}};
    drawBackground(place);
    if (mShowNumber) {
        SDL_Rect box{mRect.x + 28, y + 5, 60, mItemHeight - 5};
        drawListNum(index + 1, box, gListFontSubtxt);
        place.label.x = mRect.x + 95;
        place.label.w = mRect.w - 120;
    }
    auto* const row = dynamic_cast<TextMenuItemProvider*>(getItemByIndex(index));
    drawIcon(iconOf(row), place);
    if (row) {
        drawLabel(*row, place);
        return;
    }
    SDL_Rect label = place.label;
    label.y += (mItemHeight - fontHeight(gListFontTxt)) / 2 - 2;
    DrawString(gListFontTxt, label, getLangStr(3), mTextColor, 0, place.shadow, false);
}

/// The text if it fits, else as much of it as fits and an ellipsis; that is valid until the next call.
static const char* cutToWidth(TTF_Font* font, const char* text, int width) {
    const int kept = getTruncateLen(font, text, 0, width);
    if (kept <= 0)
        return text;
    static std::string cut; // keeps its memory from row to row
    cut.assign(text, kestro::utf8Offset(text, strlen(text), static_cast<size_t>(kept)));
    return cut.append("...").c_str();
}

void TextMenuDrawer::drawLabel(TextMenuItemProvider& row, const RowPlace& place) {
    std::string copy;
    const char* const subLabel = subLabelOf(row, copy);
    if (*subLabel) {
        drawTwoLines(row, subLabel, place);
        return;
    }
    SDL_Rect rect = place.label;
    if (mLabelAlign == 0)
        rect.y += (mItemHeight - fontHeight(gListFontTxt)) / 2 - 2;
    drawSearched(row, rect, mLabelAlign, place.shadow);
}

void TextMenuDrawer::drawTwoLines(TextMenuItemProvider& row, const char* subLabel, const RowPlace& place) {
    static constexpr int firstBaseline = 60; // where the lines end, in pixels below the row's top
    static constexpr int secondBaseline = 90;
    const int height = fontHeight(gListFontTxt);
    const int subHeight = fontHeight(gListFontSubtxt);
    const SDL_Rect first{place.label.x, place.y + firstBaseline - height, place.label.w, height};
    const SDL_Rect second{place.label.x, place.y + secondBaseline - subHeight, place.label.w, subHeight};
    drawSearched(row, first, 0, place.shadow);
    const char* const shown = cutToWidth(gListFontSubtxt, subLabel, place.label.w);
    DrawString(gListFontSubtxt, second, shown, gListColorSubtxt, 0, place.shadow, false);
}

void TextMenuDrawer::drawSearched(TextMenuItemProvider& row, const SDL_Rect& rect, int align, bool shadow) {
    std::string copy;
    const char* const text = labelOf(row, copy);
    if (mKeyword.empty()) {
        drawListText(gListFontTxt, rect, cutToWidth(gListFontTxt, text, rect.w), mTextColor, align, shadow,
                     "", "", "", "");
        return;
    }
    using Initials = std::unique_ptr<char, void (*)(void*)>;
    const std::string extra = row.getExtraText();
    const char* const label = cutToWidth(gListFontTxt, text, rect.w);
    const Initials labelInitials(GetPinyinInitials2(label), free);
    const Initials extraInitials(GetPinyinInitials2(extra.c_str()), free);
    drawListText(gListFontTxt, rect, label, mTextColor, align, shadow, mKeyword.c_str(), labelInitials.get(),
                 extraInitials.get(), extra.c_str());
}

int TextMenuDrawer::drawListText(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color color, int align,
                                 bool shadow, const char* keyword, const char* textInitials,
                                 const char* extraInitials, const char* extraText) {
    const auto orEmpty = [](const char* given) { return given ? given : ""; };
    const kestro::SearchedLabel label{orEmpty(text), orEmpty(keyword), orEmpty(textInitials),
                                      orEmpty(extraInitials), extraText};
    kestro::drawHighlighted({font, color, align, shadow}, rect, label, mPiece);
    return 0;
}

int TextMenuDrawer::drawListNum(int number, SDL_Rect& rect, TTF_Font* font) {
    char text[16];
    snprintf(text, sizeof text, "%04d", std::min(number, 9999));
    return DrawString(font, rect, text, gListColorSeq, 1, false, false);
}

/// The current row's, at the right of the list, over the rows.
void TextMenuDrawer::drawThumbnail() {
    if (!mFocus)
        return;
    auto* const row = dynamic_cast<TextMenuItemProvider*>(getItemByIndex(mCursor));
    std::string copy;
    KestroSurface* const picture =
        row ? getRowImage(thumbnailPathOf(*row, copy), thumbnailSide, thumbnailSide) : nullptr;
    if (!picture)
        return;
    const int boxX = mRect.x + mRect.w - thumbnailMargin - thumbnailSide;
    const int boxY = mRect.y + (mRect.h - thumbnailSide) / 2;
    SDL_Rect dst{boxX + (thumbnailSide - picture->getWidth()) / 2,
                 boxY + (thumbnailSide - picture->getHeight()) / 2, 0, 0};
    picture->render(nullptr, &dst, true, nullptr);
}

int drawListNumAtStatBar(int current, int total) {
    static char text[256];
    SDL_Rect rect{640, gListNumOfStatBarOffsetY, 616, fontHeight(gStatFont)};
    snprintf(text, sizeof text, "%d", total);
    const int width = DrawString(gStatFont, rect, text, gStatColorTxt, 2, false, false);
    rect.x -= width;
    snprintf(text, sizeof text, "%d/", current);
    DrawString(gStatFont, rect, text, gStatColorTxt, 2, false, false);
    return 0;
}
