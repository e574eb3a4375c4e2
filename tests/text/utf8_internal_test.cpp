#include "text/utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, DecodesAscii) {
    EXPECT_EQ(kestro::decodeUtf8("A", 1).codePoint, 0x41u);
}
