#pragma once

#include "support/drawing_log.h"
#include "support/open_text_menu.h"
#include "support/skinned_test.h"
#include "support/texture_names.h"

#include <memory>
#include <string>
#include <vector>

using Drawing = std::vector<std::string>;

/// A test of what lists draw, by the drawing log: it says texts and colours, and calls the backgrounds of
/// menus 'selected' and 'normal'. Labels are white; the skin's other colours are told apart: numbers
/// #0A0A0AFF, second lines #141414FF, the status bar #1E1E1EFF.
class ListDrawingTest : public SkinnedTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A menu as newMenu makes it, until a test replaces it.
    std::unique_ptr<OpenTextMenu> menu;

    /// A menu with both backgrounds and without the position in the status bar.
    static OpenTextMenu* newMenu(int rowsPerPage = 6, int rowGap = 0);

    /// What a list draws; with names for its backgrounds.
    Drawing drawn(OpenTextMenu& list);

    /// The line for a text with its top left corner at x, y.
    static std::string text(TTF_Font* font, const std::string& text, SDL_Color color, int x, int y);

    /// The line for a label in the list's font and white.
    static std::string label(const std::string& text, int x, int y);

    /// The line for a row's number, on a row of `height` pixels at `left`, `top`.
    static std::string number(const std::string& text, int left, int top, int height);

    /// The line for a background of 1260 x 96 pixels on a list of 1280 pixels.
    static std::string background(const std::string& name, int top);

    /// Where a label stands on a row of `height` pixels whose top is 0.
    static int labelOffset(int height);
};
