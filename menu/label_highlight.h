#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

namespace kestro {

/// How a label is drawn.
struct LabelStyle {
    TTF_Font* font;
    SDL_Color color;
    int align;
    bool shadow;
};

/// A label with its search: the texts and their initials as TextMenuDrawer::drawListText takes them.
struct SearchedLabel {
    const char* text;
    const char* keyword;
    const char* textInitials;
    const char* extraInitials;
    const char* extraText; ///< null to leave it out
};

/// Draws the label with its match highlighted. `piece` is scratch memory.
void drawHighlighted(const LabelStyle& style, const SDL_Rect& rect, const SearchedLabel& label,
                     std::string& piece);

} // namespace kestro
