#pragma once

#include <SDL_ttf.h>

#include <string_view>

namespace kestro {

/// What getTruncateLen has found for the labels of late. Measuring a label takes SDL_ttf up to some hundred
/// microseconds, and a page asks for the same ones in every frame. Main thread.
///
/// A font may be closed at any time, by anybody, and another one opened at its address. So an answer is only
/// used while the font looks as it did: names, heights, style, and the width of a letter.

/// The answer for that label, if it is known; else -1.
int knownTruncateLen(TTF_Font* font, std::string_view text, int width);

/// Remembers an answer.
void rememberTruncateLen(TTF_Font* font, std::string_view text, int width, int kept);

/// Forgets all answers, since fonts are about to be closed.
void forgetTruncateLens();

} // namespace kestro
