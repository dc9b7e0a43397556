// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/win1252.h"

#include <gtest/gtest.h>

TEST(Win1252, EveryByteSurvivesARoundTripThroughUtf8) {
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    EXPECT_EQ(win1252::FromUtf8(win1252::ToUtf8(all)), all);
    EXPECT_EQ(win1252::ToUtf8("\x80\xE4"), "\xE2\x82\xAC\xC3\xA4");
    EXPECT_FALSE(win1252::FromUtf8("\xE2\x9C\x93").has_value()); // outside the code page
    EXPECT_FALSE(win1252::FromUtf8("\xC3").has_value());         // cut short
    EXPECT_FALSE(win1252::FromUtf8("\xC0\x80").has_value());     // overlong
}
