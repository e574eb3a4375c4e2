#include "gfx/picture_size_formats.h"

namespace {

/// A TIFF file in either byte order.
class TiffReader {
public:
    explicit TiffReader(kestro::ByteReader& file) : mFile(file) {
        file.seek(0);
        mBigEndian = file.u8() == 'M';
    }

    uint32_t word() { return mBigEndian ? mFile.be16() : mFile.le16(); }
    uint32_t number() { return mBigEndian ? mFile.be32() : mFile.le32(); }

    /// The one whole number of an entry of this type, at the file's position; 0 for any other type.
    uint32_t value(uint32_t type) {
        switch (type) {
        case 1: // BYTE
        case 6: // SBYTE
            return mFile.u8();
        case 3: // SHORT
        case 8: // SSHORT
            return word();
        case 4:  // LONG
        case 9:  // SLONG
        case 13: // IFD
            return number();
        case 16: // LONG8
        case 17: // SLONG8
            return eightByteNumber();
        default:
            return 0;
        }
    }

private:
    kestro::ByteReader& mFile;
    bool mBigEndian;

    /// Stands elsewhere in the file. What needs more than 32 bits is the largest number of 32.
    uint32_t eightByteNumber() {
        mFile.seek(number());
        const uint32_t first = number();
        const uint32_t second = number();
        const uint32_t high = mBigEndian ? first : second;
        const uint32_t low = mBigEndian ? second : first;
        return high ? UINT32_MAX : low;
    }
};

} // namespace

namespace kestro {

/// The first picture of the file; its tiles, too, since one is decoded whole before it is cut to fit.
PictureSize tiffSize(ByteReader& file) {
    TiffReader tiff(file);
    file.seek(4);
    const int64_t directory = tiff.number();
    file.seek(directory);
    const uint32_t count = std::min(tiff.word(), uint32_t{4096}); // libtiff refuses more
    PictureSize size;
    for (uint32_t i = 0; i < count; ++i) {
        file.seek(directory + 2 + int64_t{12} * i);
        const uint32_t tag = tiff.word();
        const uint32_t type = tiff.word();
        file.skip(4);
        if (file.ended())
            break;
        if (tag == 256 || tag == 322)
            size.width = std::max(size.width, tiff.value(type));
        else if (tag == 257 || tag == 323)
            size.height = std::max(size.height, tiff.value(type));
    }
    return size;
}

} // namespace kestro
