#pragma once

#include "support/list_drawing_test.h"

/// A test of labels with a search: matches are green, the rest is white.
class SearchedLabelTest : public ListDrawingTest {
protected:
    void SetUp() override;

    /// What drawListText draws in the rectangle 100,200 700x50, in white with the list's font. Initials
    /// that are not given are made of the texts.
    Drawing searched(const char* text, const char* keyword, int align, bool shadow = false,
                     const char* extraText = nullptr);

    /// The line for a piece that does not match, or that does.
    static std::string plain(const std::string& piece, int x, int y);
    static std::string match(const std::string& piece, int x, int y);

    /// The width of a piece in the list's font, and where alignments 1, 3 and 4 place it vertically.
    static int width(const std::string& piece);
    static int middle(const std::string& piece);

    /// The width that SDL_ttf measures when it takes the bytes for Latin-1.
    static int latinWidth(const std::string& text);
};
