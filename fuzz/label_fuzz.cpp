// A label: drawn in every alignment, in lines, and cut to a width. The first byte chooses the width.
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"
#include "gfx/text.h"

#include <cstdlib>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0)
        return 0;
    static TTF_Font* const font = (fuzz::openScreen(), TTF_OpenFont(FUZZ_FONT, 24));
    if (!font)
        abort();
    const int width = data[0] * 4;
    const std::string text = fuzz::textOf(data + 1, size - 1);
    const SDL_Rect rect{3, 2, width, 30};
    const SDL_Color color{200, 100, 50, 255};
    DrawString(font, rect, text.c_str(), color, data[0] % 6, data[0] & 1, data[0] & 2);
    DrawStringLines(font, rect, text.c_str(), "\n", color, 1, false);
    DrawStringLinesSpacing(font, rect, text.c_str(), "\n ", 4, color, 0, false);
    if (getTruncateLen(font, text.c_str(), 0, width) > static_cast<int>(text.size()))
        abort();
    return 0;
}
