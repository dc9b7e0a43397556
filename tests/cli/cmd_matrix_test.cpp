// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(MatrixCommand, PrintsEitherStoreInRegistryOrderAsTabsOrCsv) {
    TempFolder app;
    CliRunner cli;
    cli.appDir = app.path();
    ASSERT_EQ(cli.Run({"create", "Mod"}), 0);
    ASSERT_EQ(cli.Run({"add-faction", "Mod", "B"}), 0);
    ASSERT_EQ(cli.Run({"add-faction", "Mod", "A"}), 0);
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_A.facts", "[B]\r\nrep=-0.4\r\n");
    TempFolder::Write(app / "projects/Mod/initialworld/grp.ini", "[B]\r\nA=x,y\r\nB=1\r\n");
    EXPECT_EQ(cli.Run({"matrix", "mod", "emphaty"}), 0);
    EXPECT_EQ(cli.out.str(), "\tB\tA\nB\t\t\nA\t-0.4\t\n");
    EXPECT_EQ(cli.Run({"matrix", "Mod", "initialworld", "--csv"}), 0);
    EXPECT_EQ(cli.out.str(), ",B,A\r\nB,1,\"x,y\"\r\nA,,\r\n");
    EXPECT_EQ(cli.Run({"matrix", "Mod", "factions"}), 1);
    EXPECT_EQ(cli.Run({"matrix", "Nope", "emphaty"}), 2);
}

} // namespace
