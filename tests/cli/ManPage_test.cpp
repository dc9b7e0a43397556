// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "cli/ManPage.h"
#include "core/WindowOptions.h"

#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <vector>

namespace {

TEST(ManPage, TextLinesCannotBeReadAsRequestsOrEscapes) {
    EXPECT_EQ(cli::RoffText(".ini files"), "\\&.ini files");
    EXPECT_EQ(cli::RoffText("'quoted'"), "\\&'quoted'");
    EXPECT_EQ(cli::RoffText("a.b 'c'"), "a.b 'c'");
    EXPECT_EQ(cli::RoffText("--into C:\\mods"), "\\-\\-into C:\\emods");
}

} // namespace
