// The formats whose size is found by walking from one piece of the file to the next.

#include "gfx/picture_size_formats.h"

namespace kestro {

PictureSize pngSize(ByteReader& file) {
    file.seek(8);
    while (!file.ended()) {
        const uint32_t length = file.be32();
        const uint32_t kind = file.be32();
        if (kind == fourLetters("IHDR"))
            return {file.be32(), file.be32()};
        // Others may come first, whatever the format says: the decoder passes over those it does not know.
        file.skip(length);
        file.skip(4);
    }
    return {};
}

PictureSize lbmSize(ByteReader& file) {
    PictureSize size;
    file.seek(12);
    while (!file.ended()) {
        const uint32_t kind = file.be32();
        const uint32_t length = file.be32();
        if (kind == fourLetters("BODY"))
            break;
        uint32_t left = length + length % 2;
        if (kind == fourLetters("BMHD")) {
            const uint32_t width = file.be16();
            size = larger(size, {(width + 15) / 16 * 16, file.be16()}); // rows are whole 16-bit words
            left -= std::min(left, uint32_t{4});
        } else if (kind == fourLetters("CAMG")) {
            left = 4 + length % 2; // whatever its length says
        }
        file.skip(left);
    }
    return size;
}

/// The next marker of a JPEG file, 0 at its end. Bytes that belong to no segment are passed over.
static uint32_t nextMarker(ByteReader& file) {
    uint32_t byte = 0;
    while (byte == 0 && !file.ended()) {
        while (file.u8() != 0xFF && !file.ended()) {
        }
        do
            byte = file.u8();
        while (byte == 0xFF);
    }
    return byte;
}

/// Whether the segment describes the picture: all the ways to code it, from 0xC0 to 0xCF, but for the three
/// codes that are something else.
static bool isFrame(uint32_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

PictureSize jpegSize(ByteReader& file) {
    file.seek(2);
    constexpr uint32_t startOfScan = 0xDA;
    while (const uint32_t marker = nextMarker(file)) {
        if (marker == startOfScan)
            break;
        if ((marker >= 0xD0 && marker <= 0xD9) || marker == 0x01)
            continue; // these have no content
        const uint32_t length = file.be16();
        if (isFrame(marker)) {
            file.skip(1);
            const uint32_t height = file.be16();
            return {file.be16(), height};
        }
        file.skip(std::max(length, uint32_t{2}) - 2);
    }
    return {};
}

static void skipBlocks(ByteReader& file) {
    while (const uint32_t length = file.u8())
        file.skip(length);
}

/// The screen of a GIF file, and the first picture on it, which alone is decoded.
PictureSize gifSize(ByteReader& file) {
    file.seek(6);
    const PictureSize screen{file.le16(), file.le16()};
    const uint32_t flags = file.u8();
    file.skip(2);
    if (flags & 0x80)
        file.skip(3u << ((flags & 7) + 1));
    while (!file.ended()) {
        const uint32_t kind = file.u8();
        if (kind == ';')
            break;
        if (kind == ',') {
            file.skip(4);
            return larger(screen, {file.le16(), file.le16()});
        }
        if (kind == '!') {
            constexpr uint32_t graphicControl = 0xF9;
            if (file.u8() == graphicControl)
                file.skip(file.u8()); // its first block is no end, even when it is empty
            skipBlocks(file);
        }
    }
    return screen;
}

} // namespace kestro
