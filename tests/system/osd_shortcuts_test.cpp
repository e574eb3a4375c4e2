#include "system/osd_shortcuts.h"

#include <gtest/gtest.h>

#include <climits>

TEST(OsdShortcuts, AreTheseTwentyTwo) {
    const char* const names[] = {
        "MENU+SELECT", "MENU+START", "MENU+MENU",  "MENU+L2",  "MENU+R2",  "MENU+L",
        "MENU+R",      "MENU+A",     "MENU+B",     "MENU+X",   "MENU+Y",   "SELECT+START",
        "SELECT+L2",   "SELECT+R2",  "SELECT+L",   "SELECT+R", "START+L2", "START+R2",
        "START+L",     "START+R",    "MENU+L2+R2", "OFF",
    };
    ASSERT_EQ(getOSDShortcutNumber(), 22);
    for (int index = 0; index < 22; ++index)
        EXPECT_STREQ(getOSDShorcut(index), names[index]) << index;
}

TEST(OsdShortcuts, BeyondTheTableAreNull) {
    for (const int index : {22, 23, -1, -22, INT_MAX, INT_MIN})
        EXPECT_EQ(getOSDShorcut(index), nullptr) << index;
}
