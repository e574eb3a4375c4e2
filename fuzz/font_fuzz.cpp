// A broken font: the real one with some bytes replaced. Four bytes of the input say where, and by what.
#include "fuzz/support/device.h"
#include "fuzz/support/screen.h"
#include "gfx/text.h"
#include "shell/skin.h"

#include <fstream>
#include <iterator>
#include <vector>

static std::vector<uint8_t> realFont() {
    std::ifstream file(FUZZ_FONT, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::vector<uint8_t> real = (fuzz::openScreen(), realFont());
    std::vector<uint8_t> font = real;
    for (; size >= 4; data += 4, size -= 4) {
        // Half of the places are in the first 64 KB, where the tables are described.
        const size_t place = data[0] & 0x80 ? size_t{data[1]} << 8 | data[2]
                                            : size_t{data[0]} << 16 | size_t{data[1]} << 8 | data[2];
        font[place % font.size()] = data[3];
    }
    fuzz::put("/work/regular.ttf", font.data(), font.size());
    init_shared_skin();
    for (const char* text : {"Wq 3", "超级玛丽", "é \xff"}) {
        DrawString(gListFontTxt, {0, 0, 60, 30}, text, {1, 2, 3, 255}, 1, true, false);
        getTruncateLen(gNavFont, text, 0, 40);
    }
    uninit_shared_skin();
    return 0;
}
