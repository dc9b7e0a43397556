#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

TEST(CliMatrixTest, PrintsEitherStoreInRegistryOrderAsTabsOrCsv) {
    TempFolder app;
    CliRunner cli;
    cli.appDir = app.path();
    const auto run = [&cli](std::vector<std::string> args) { return cli.Run(std::move(args)); };
    const auto& out = cli.out;
    const auto& err = cli.err;
    ASSERT_EQ(run({"create", "Mod"}), 0);
    ASSERT_EQ(run({"add-faction", "Mod", "B"}), 0);
    ASSERT_EQ(run({"add-faction", "Mod", "A"}), 0);
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_A.facts", "[B]\r\nrep=-0.4\r\n");
    TempFolder::Write(app / "projects/Mod/initialworld/grp.ini", "[B]\r\nA=x,y\r\nB=1\r\n");

    EXPECT_EQ(run({"matrix", "mod", "emphaty"}), 0);
    EXPECT_EQ(out.str(), "\tB\tA\nB\t\t\nA\t-0.4\t\n");
    EXPECT_EQ(run({"matrix", "Mod", "initialworld", "--csv"}), 0);
    EXPECT_EQ(out.str(), ",B,A\r\nB,1,\"x,y\"\r\nA,,\r\n");

    EXPECT_EQ(run({"matrix", "Mod", "factions"}), 1);
    EXPECT_NE(err.str().find("unknown store"), std::string::npos);
    EXPECT_EQ(run({"matrix", "Mod"}), 1);
    EXPECT_EQ(run({"matrix", "Nope", "emphaty"}), 2);
}

} // namespace
