// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/names.h"

#include <gtest/gtest.h>

TEST(Names, RefusesWhatCannotBeAFileNameOrSection) {
    for (const std::string& bad : std::vector<std::string>{
             "", "   ", ".", "..", " lead", "trail ", ".hidden", "dot.", "a\\b", "a/b", "a:b",
             "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a[b", "a]b", "a=b", std::string("a\tb"),
             std::string("a\x01"
                         "b"),
             std::string(201, 'x'),
             // 101 letters "é": 202 bytes on disk
             std::string(101, '\xE9'),
             // "€" takes three bytes there
             std::string(67, '\x80'),
             std::string("a\x81"
                         "b")})
        EXPECT_TRUE(names::Refusal(bad).has_value()) << bad;
    for (const std::string& good : std::vector<std::string>{
             "li_n_grp", "My Project", "v1.2 beta", std::string(200, 'x'), std::string("K\xE4se"),
             std::string(100, '\xE9'), std::string(66, '\x80') + "xx"})
        EXPECT_FALSE(names::Refusal(good).has_value()) << good;
    EXPECT_FALSE(names::RefusalUtf8("K\xC3\xA4se").has_value());
    EXPECT_TRUE(
        names::RefusalUtf8("\xE2\x82\xAC\xE2\x9C\x93").has_value()); // a check mark has no byte
}

TEST(Names, SortsAsciiCaseFoldedBytesWithTiesByOriginal) {
    std::vector<std::string> list{"fc_bd_grp", "B", "fc_b_grp", "b", "a1", "A_", "Ab"};
    names::SortIgnoringCase(list);
    EXPECT_EQ(list,
              (std::vector<std::string>{"a1", "A_", "Ab", "B", "b", "fc_b_grp", "fc_bd_grp"}));
}
