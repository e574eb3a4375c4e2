// The formats whose size stands at a fixed place.

#include "gfx/picture_size_formats.h"

static uint32_t magnitude(uint32_t signedBits) {
    return signedBits > INT32_MAX ? 0 - signedBits : signedBits;
}

namespace kestro {

PictureSize bmpSize(ByteReader& file) {
    file.seek(14);
    constexpr uint32_t oldHeader = 12;
    if (file.le32() == oldHeader)
        return {file.le16(), file.le16()};
    const uint32_t width = file.le32();
    return {width, magnitude(file.le32())}; // a negative height means that the rows begin at the top
}

/// The entry with the most colours is decoded, the first of several.
static uint32_t chosenIcon(ByteReader& file) {
    file.seek(4);
    uint32_t mostColors = 0;
    uint32_t chosen = 0;
    for (uint32_t left = file.le16(); left > 0 && !file.ended(); --left) {
        file.skip(2);
        const uint32_t colorCount = file.u8();
        const uint32_t colors = colorCount ? colorCount : 256;
        file.skip(9);
        const uint32_t offset = file.le32();
        if (colors > mostColors) {
            mostColors = colors;
            chosen = offset;
        }
    }
    return chosen;
}

PictureSize iconSize(ByteReader& file) {
    const uint32_t offset = chosenIcon(file);
    file.seek(offset);
    constexpr uint32_t bitmapHeader = 40;
    constexpr uint32_t pngSignature = 0x474E5089;
    const uint32_t kind = file.le32();
    if (kind == pngSignature) {
        file.seek(int64_t{offset} + 16);
        return {file.be32(), file.be32()};
    }
    if (kind != bitmapHeader)
        return {};
    const uint32_t width = file.le32();
    return {width, magnitude(file.le32()) / 2}; // the mask stands below the picture and counts in
}

PictureSize pcxSize(ByteReader& file) {
    const auto coordinate = [&file] { return int{static_cast<int16_t>(file.le16())}; };
    file.seek(4);
    const int left = coordinate();
    const int top = coordinate();
    const int width = coordinate() - left + 1;
    const int height = coordinate() - top + 1;
    return {static_cast<uint32_t>(std::max(width, 0)), static_cast<uint32_t>(std::max(height, 0))};
}

PictureSize qoiSize(ByteReader& file) {
    file.seek(4);
    return {file.be32(), file.be32()};
}

PictureSize tgaSize(ByteReader& file) {
    file.seek(12);
    return {file.le16(), file.le16()};
}

PictureSize webpSize(ByteReader& file) {
    file.seek(12);
    const uint32_t kind = file.be32();
    constexpr int64_t content = 20;
    if (kind == fourLetters("VP8X")) {
        file.seek(content + 4);
        return {file.le24() + 1, file.le24() + 1};
    }
    if (kind == fourLetters("VP8L")) {
        file.seek(content + 1);
        const uint32_t bits = file.le32();
        return {(bits & 0x3FFF) + 1, (bits >> 14 & 0x3FFF) + 1};
    }
    file.seek(content + 6);
    return {file.le16() & 0x3FFF, file.le16() & 0x3FFF}; // the upper bits are a hint for enlarging
}

PictureSize xcfSize(ByteReader& file) {
    file.seek(14);
    return {file.be32(), file.be32()};
}

} // namespace kestro
