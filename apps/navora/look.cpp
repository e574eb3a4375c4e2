#include "navora/look.h"

#include "core/host.h"
#include "gfx/image.h"
#include "gfx/text.h"

namespace navora {

void drawAt(KestroSurface* picture, int x, int y) {
    SDL_Rect place{x, y, 0, 0};
    if (picture)
        picture->render(nullptr, &place, true, nullptr);
}

void drawCentred(KestroSurface* picture, const SDL_Rect& rect) {
    if (picture)
        drawAt(picture, rect.x + (rect.w - picture->getWidth()) / 2,
               rect.y + (rect.h - picture->getHeight()) / 2);
}

void replacePicture(KestroSurface*& picture, const char* name) {
    delete picture;
    picture = LoadKestroSurface(gThemePath, "./", name);
}

/// The bytes that the first `count` characters of `text` take.
static size_t bytesOf(const std::string& text, int count) {
    const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    size_t at = 0;
    for (; at < text.size() && count > 0; --count)
        for (++at; at < text.size() && isContinuation(text[at]);)
            ++at;
    return at;
}

std::string cutToWidth(TTF_Font* font, const std::string& text, int width) {
    const int kept = getTruncateLen(font, text.c_str(), 0, width);
    return kept > 0 ? text.substr(0, bytesOf(text, kept)) + "..." : text;
}

void drawCut(TTF_Font* font, const SDL_Rect& rect, const std::string& text, SDL_Color color, int align) {
    DrawString(font, rect, cutToWidth(font, text, rect.w).c_str(), color, align, false, false);
}

/// Where to break a line after at most `end` bytes: after its last space, if that is not too far back.
static size_t breakBefore(const std::string& text, size_t end) {
    const size_t space = text.rfind(' ', end);
    return space != std::string::npos && space > end / 2 ? space + 1 : end;
}

std::string wrapped(TTF_Font* font, std::string text, int width, int maxLines) {
    std::string lines;
    for (; maxLines > 1; --maxLines) {
        const int kept = getTruncateLen(font, text.c_str(), 0, width);
        if (kept == 0)
            break;
        const size_t length = breakBefore(text, bytesOf(text, kept));
        lines += text.substr(0, length) + "\n";
        text.erase(0, length);
    }
    return lines + cutToWidth(font, text, width);
}

int drawWrapped(TTF_Font* font, SDL_Rect rect, std::string text, SDL_Color color, int maxLines) {
    const int top = rect.y;
    rect.h = font ? TTF_FontLineSkip(font) : 0;
    for (; maxLines > 1; --maxLines, rect.y += rect.h) {
        const int kept = getTruncateLen(font, text.c_str(), 0, rect.w);
        if (kept == 0)
            break;
        const size_t length = breakBefore(text, bytesOf(text, kept));
        DrawString(font, rect, text.substr(0, length).c_str(), color, 3, false, false);
        text.erase(0, length);
    }
    drawCut(font, rect, text, color, 3);
    return rect.y + rect.h - top;
}

} // namespace navora
