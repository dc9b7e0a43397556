// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

// The findings themselves are the core's; here the exit status, the format option and usage.
TEST(CheckCommand, ExitStatusTellsWhetherAnErrorWasFound) {
    TempFolder app;
    CliRunner cli;
    cli.appDir = app.path();
    cli.Run({"create", "Alpha"});
    cli.Run({"add-faction", "Alpha", "a_grp"});
    // A faction added by hand has no other store yet: warnings only.
    EXPECT_EQ(cli.Run({"check", "alpha"}), 0) << cli.err.str();
    EXPECT_NE(cli.out.str().find("warning\ta_grp\temphaty\\new\\grp.ini\t[a_grp]\t"),
              std::string::npos);
    TempFolder::Write(app / "projects/Alpha/emphaty/new/grp.ini", "[a_grp]\r\no_d=0,5\r\n");
    EXPECT_EQ(cli.Run({"check", "Alpha", "--format", "json"}), 3);
    EXPECT_NE(cli.out.str().find("\"where\": \"[a_grp] o_d\", \"stored\": \"0,5\""),
              std::string::npos);
    for (const std::vector<std::string>& usage : {std::vector<std::string>{"check"},
                                                  {"check", "Alpha", "--format", "xml"},
                                                  {"check", "Alpha", "--format"},
                                                  {"check", "Alpha", "Beta"}})
        EXPECT_EQ(cli.Run(usage), 1) << usage.back();
    EXPECT_EQ(cli.Run({"check", "Nope"}), 2);
    EXPECT_EQ(cli.out.str(), "");
}

} // namespace
