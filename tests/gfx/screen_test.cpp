#include "support/screen_test.h"
#include "gfx/screen.h"

TEST_F(ScreenTest, OpensBlack) {
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
}
