#include "menu/label_highlight.h"

#include "gfx/text.h"
#include "shell/skin.h"
#include "text/pinyin.h"

namespace {

/// A text in three pieces: before, within and after the match.
class MatchedText {
public:
    /// Looks for the keyword in the label, then in the label with its extra text in brackets. `text()` is
    /// what to show, and stays valid as long as this.
    explicit MatchedText(const kestro::SearchedLabel& label) : mText(label.text) {
        if (find(label.text, label.textInitials, label.keyword) || !label.extraText)
            return;
        const std::string composite = std::string(label.text) + "(" + label.extraText + ")";
        const std::string initials = std::string(label.textInitials) + "(" + label.extraInitials + ")";
        if (find(composite.c_str(), initials.c_str(), label.keyword))
            mText = composite;
    }

    bool found() const { return mFound; }
    std::string_view prefix() const { return std::string_view(mText).substr(0, mStart); }
    std::string_view match() const { return std::string_view(mText).substr(mStart, mLength); }
    std::string_view suffix() const { return std::string_view(mText).substr(mStart + mLength); }

private:
    std::string mText;
    size_t mStart = 0;
    size_t mLength = 0;
    bool mFound = false;

    bool find(const char* text, const char* initials, const char* keyword) {
        const char* start = nullptr;
        int length = 0;
        if (PinyinStrstr(text, initials, keyword, &start, &length) != 0)
            return false;
        mStart = static_cast<size_t>(start - text);
        mLength = static_cast<size_t>(length);
        return mFound = true;
    }
};

/// Draws pieces of one label, one after the other.
class PiecePen {
public:
    PiecePen(const kestro::LabelStyle& style, std::string& piece) : mStyle(style), mPiece(piece) {}

    /// Returns the width of the piece. An empty one is left out.
    int draw(std::string_view text, const SDL_Rect& rect, SDL_Color color, int align) {
        if (text.empty())
            return 0;
        mPiece.assign(text);
        return DrawString(mStyle.font, rect, mPiece.c_str(), color, align, mStyle.shadow, false);
    }

    /// The three pieces from `rect.x` on. The width of the rectangle stays as it is.
    void drawFromLeft(const MatchedText& text, SDL_Rect rect, int align) {
        rect.x += draw(text.prefix(), rect, mStyle.color, align);
        rect.x += draw(text.match(), rect, gHighlightColor, align);
        draw(text.suffix(), rect, mStyle.color, align);
    }

    /// Suffix and match both end at the right edge, one over the other: the list has always shown it so, and
    /// themes count on the match being there.
    void drawFromRight(const MatchedText& text, SDL_Rect rect, int align) {
        draw(text.suffix(), rect, mStyle.color, align);
        const int width = draw(text.match(), rect, gHighlightColor, align);
        rect.w -= width;
        draw(text.prefix(), rect, mStyle.color, align);
    }

private:
    const kestro::LabelStyle& mStyle;
    std::string& mPiece;
};

} // namespace

static constexpr int leftAndVerticallyCentred = 3;

static void drawMatched(const kestro::LabelStyle& style, SDL_Rect rect, const char* plainText,
                        const MatchedText& text, std::string& piece) {
    PiecePen pen(style, piece);
    switch (style.align) {
    case 0:
    case 3:
        pen.drawFromLeft(text, rect, style.align);
        return;
    case 2:
    case 4:
        pen.drawFromRight(text, rect, style.align);
        return;
    default: {
        // Placed by the width of the label alone, also where the extra text is shown; and the measuring
        // takes the bytes for Latin-1, so that what is not ASCII stands further to the left.
        int width = 0;
        TTF_SizeText(style.font, plainText, &width, nullptr);
        rect.x += (rect.w - width) / 2;
        pen.drawFromLeft(text, rect, leftAndVerticallyCentred);
    }
    }
}

void kestro::drawHighlighted(const LabelStyle& style, const SDL_Rect& rect, const SearchedLabel& label,
                             std::string& piece) {
    if (*label.keyword) {
        const MatchedText text(label);
        if (text.found()) {
            drawMatched(style, rect, label.text, text, piece);
            return;
        }
    }
    DrawString(style.font, rect, label.text, style.color, style.align, style.shadow, false);
}
