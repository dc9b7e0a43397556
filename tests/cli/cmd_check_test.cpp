#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

class CheckCommandTest : public ::testing::Test, protected CliRunner {
protected:
    using CliRunner::Run; // not the test's own Run
    CheckCommandTest() {
        appDir = app.path();
        Run({"create", "Alpha"});
        Run({"add-faction", "Alpha", "a_grp"});
    }
    TempFolder app;
};

TEST_F(CheckCommandTest, ExitStatusTellsWhetherAnErrorWasFound) {
    // A faction added by hand has no other store yet: warnings only.
    EXPECT_EQ(Run({"check", "alpha"}), 0) << err.str();
    EXPECT_NE(out.str().find("warning\ta_grp\temphaty\\new\\grp.ini\t[a_grp]\tThe faction has "
                             "no event values"),
              std::string::npos)
        << out.str();

    TempFolder::Write(app / "projects/Alpha/emphaty/new/grp.ini", "[a_grp]\r\no_d=0,5\r\n");
    EXPECT_EQ(Run({"check", "Alpha"}), 3);
    EXPECT_NE(out.str().find("error\ta_grp\temphaty\\new\\grp.ini\t[a_grp] o_d\t"),
              std::string::npos)
        << out.str();

    // The report's exact JSON form is the core's; here only that the option picks it.
    EXPECT_EQ(Run({"check", "Alpha", "--format", "json"}), 3);
    EXPECT_NE(out.str().find("\"where\": \"[a_grp] o_d\", \"stored\": \"0,5\""), std::string::npos)
        << out.str();
}

TEST_F(CheckCommandTest, UsageAndFailures) {
    EXPECT_EQ(Run({"check"}), 1);
    EXPECT_EQ(Run({"check", "Alpha", "--format", "xml"}), 1);
    EXPECT_NE(err.str().find("unknown format"), std::string::npos);
    EXPECT_EQ(Run({"check", "Alpha", "--format"}), 1);
    EXPECT_EQ(Run({"check", "Alpha", "Beta"}), 1);
    EXPECT_EQ(Run({"check", "Nope"}), 2);
    EXPECT_EQ(out.str(), "");
}

} // namespace
