#include "support/pictures.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

static const std::string sFolder = TEST_DATA "/pictures/";

std::vector<std::string> pictureNames() {
    std::vector<std::string> names;
    for (const auto& file : fs::directory_iterator(sFolder))
        if (file.path().extension() != ".md" && file.path().extension() != ".py")
            names.push_back(file.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string picturePath(const std::string& name) {
    return sFolder + name;
}

std::string littleEndian(size_t count, uint64_t number) {
    std::string bytes;
    for (size_t i = 0; i < count; ++i)
        bytes += static_cast<char>(number >> 8 * i);
    return bytes;
}

std::string bigEndian(size_t count, uint64_t number) {
    std::string bytes = littleEndian(count, number);
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

static std::string zeros(size_t count) {
    return std::string(count, '\0');
}

static std::string bmpHeader(uint32_t w, uint32_t h) {
    return "BM" + zeros(12) + littleEndian(4, 40) + littleEndian(4, w) + littleEndian(4, h) +
           littleEndian(2, 1) + littleEndian(2, 24) + zeros(24);
}

static std::string iconHeader(uint32_t kind, uint32_t w, uint32_t h) {
    return zeros(2) + littleEndian(2, kind) + littleEndian(2, 1) + zeros(8) + zeros(4) + littleEndian(4, 22) +
           littleEndian(4, 40) + littleEndian(4, w) + littleEndian(4, 2 * h) + littleEndian(2, 1) +
           littleEndian(2, 32) + zeros(24);
}

static std::string gifHeader(uint32_t screenW, uint32_t screenH, uint32_t w, uint32_t h) {
    return "GIF89a" + littleEndian(2, screenW) + littleEndian(2, screenH) + zeros(3) + "," + zeros(4) +
           littleEndian(2, w) + littleEndian(2, h) + zeros(2);
}

static std::string jpegHeader(uint32_t w, uint32_t h) {
    return "\xFF\xD8\xFF\xC0" + bigEndian(2, 11) + "\x08" + bigEndian(2, h) + bigEndian(2, w) +
           "\x01\x01\x11" + zeros(1) + "\xFF\xDA" + bigEndian(2, 8) + zeros(6);
}

static std::string lbmHeader(uint32_t w, uint32_t h) {
    return "FORM" + zeros(4) + "PBM BMHD" + bigEndian(4, 20) + bigEndian(2, w) + bigEndian(2, h) + zeros(4) +
           "\x08" + zeros(11) + "BODY" + zeros(4);
}

static std::string pcxHeader(uint32_t w, uint32_t h) {
    return "\x0A\x05\x01\x08" + zeros(4) + littleEndian(2, w - 1) + littleEndian(2, h - 1) + zeros(116);
}

std::string pngChunk(const std::string& kindAndContent) {
    uint32_t sum = UINT32_MAX;
    for (const char c : kindAndContent) {
        sum ^= static_cast<uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return bigEndian(4, kindAndContent.size() - 4) + kindAndContent + bigEndian(4, ~sum);
}

static std::string pngHeader(uint32_t w, uint32_t h) {
    return "\x89PNG\r\n\x1A\n" +
           pngChunk("IHDR" + bigEndian(4, w) + bigEndian(4, h) + "\x08\x02" + zeros(3)) + pngChunk("IDAT") +
           pngChunk("IEND");
}

static std::string tgaHeader(uint32_t w, uint32_t h) {
    return zeros(2) + "\x02" + zeros(9) + littleEndian(2, w) + littleEndian(2, h) + "\x18" + zeros(1);
}

static std::string tiffHeader(bool big, uint32_t w, uint32_t h) {
    const auto number = big ? bigEndian : littleEndian;
    const auto side = [number](uint32_t tag, uint32_t value) {
        return number(2, tag) + number(2, 4) + number(4, 1) + number(4, value);
    };
    return (big ? "MM" : "II") + number(2, 42) + number(4, 8) + number(2, 2) + side(256, w) + side(257, h) +
           zeros(4);
}

static std::string webpHeader(uint32_t w, uint32_t h) {
    return "RIFF" + littleEndian(4, 34) + "WEBPVP8X" + littleEndian(4, 10) + zeros(4) +
           littleEndian(3, w - 1) + littleEndian(3, h - 1) + "VP8 " + zeros(4);
}

std::vector<PictureHeader> headersClaiming(uint32_t w, uint32_t h) {
    const std::string width = std::to_string(w);
    const std::string height = std::to_string(h);
    std::vector<PictureHeader> headers = {
        {"bmp", bmpHeader(w, h)},
        {"ico", iconHeader(1, w, h)},
        {"cur", iconHeader(2, w, h)},
        {"gif", gifHeader(10, 10, w, h)},
        {"gif", gifHeader(w, h, 10, 10)},
        {"jpg", jpegHeader(w, h)},
        {"lbm", lbmHeader(w, h)},
        {"pcx", pcxHeader(w, h)},
        {"png", pngHeader(w, h)},
        {"tga", tgaHeader(w, h)},
        {"tif", tiffHeader(false, w, h)},
        {"tif", tiffHeader(true, w, h)},
        {"webp", webpHeader(w, h)},
        {"qoi", "qoif" + bigEndian(4, w) + bigEndian(4, h) + "\x03" + zeros(1)},
        {"xcf", "gimp xcf file" + zeros(1) + bigEndian(4, w) + bigEndian(4, h) + zeros(20)},
        {"xpm", "/* XPM */\nstatic char *a[] = {\n\"" + width + " " + height + " 1 1\"};\n"},
        {"xv", "P7 332\n#END_OF_COMMENTS\n" + width + " " + height + " 255\n"},
        {"svg", "<svg width=\"" + width + "\" height=\"" + height + "\"/>"},
        {"svg", "<svg viewBox=\"0 0 " + width + " " + height + "\"/>"},
    };
    for (const char kind : {'1', '2', '3', '4', '5', '6'})
        headers.push_back({"pnm", std::string("P") + kind + "\n# made\n" + width + " " + height + "\n255\n"});
    return headers;
}
