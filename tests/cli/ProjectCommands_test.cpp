#include "cli/Command.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

class CliTest : public ::testing::Test {
protected:
    int Run(std::vector<std::string> args) {
        out.str("");
        err.str("");
        args.insert(args.begin(), {"--app-dir", app.path()});
        return cli::Run(args, out, err);
    }
    std::string Registry() const {
        return TempFolder::Read(app / "projects/Alpha/misc/factions.ini");
    }
    TempFolder app;
    std::ostringstream out, err;
};

TEST_F(CliTest, ProjectsAreCreatedListedAndDeletedIgnoringCase) {
    EXPECT_EQ(Run({"create", "Alpha"}), 0);
    EXPECT_EQ(Run({"create", "beta 1.0"}), 0);
    EXPECT_EQ(Run({"create", "ALPHA"}), 2);
    EXPECT_NE(err.str().find("exists"), std::string::npos);
    EXPECT_EQ(Run({"projects"}), 0);
    EXPECT_EQ(out.str(), "Alpha\nbeta 1.0\n");
    EXPECT_EQ(Run({"protocol", "alpha"}), 0);
    EXPECT_NE(out.str().find(": Project created.\r\n\r\n"), std::string::npos);
    EXPECT_EQ(Run({"delete", "BETA 1.0"}), 0);
    EXPECT_EQ(Run({"delete", "beta 1.0"}), 2);
    EXPECT_EQ(Run({"projects"}), 0);
    EXPECT_EQ(out.str(), "Alpha\n");
}

TEST_F(CliTest, RefusedNamesAndUsageErrorsWriteNothing) {
    EXPECT_EQ(Run({"create", "a:b"}), 2);
    EXPECT_EQ(Run({"create", " lead"}), 2);
    EXPECT_EQ(Run({"create", "\xE2\x9C\x93"}), 2); // no Windows-1252 byte for it
    EXPECT_EQ(Run({"projects"}), 0);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(Run({"create"}), 1);
    EXPECT_NE(err.str().find("usage: orrindel-cli create NAME"), std::string::npos);
    EXPECT_EQ(Run({"no-such-command"}), 1);
    EXPECT_EQ(Run({"create", "--help"}), 0);
    EXPECT_NE(out.str().find("usage"), std::string::npos);
}

TEST_F(CliTest, FactionRegistryCommandsWriteTheEditorsBytes) {
    ASSERT_EQ(Run({"create", "Alpha"}), 0);
    EXPECT_EQ(Run({"factions", "Alpha"}), 0);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(Run({"add-faction", "Alpha", "li_n_grp",
                   "K\xC3\xA4"
                   "fer"}),
              0); // UTF-8 in, 1252 on disk
    EXPECT_EQ(Run({"add-faction", "Alpha", "fc_b_grp"}), 0);
    EXPECT_EQ(Registry(), "[li_n_grp]\r\ngrp=K\xE4"
                          "fer\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n");
    EXPECT_EQ(Run({"factions", "alpha"}), 0);
    EXPECT_EQ(out.str(), "li_n_grp\tK\xC3\xA4"
                         "fer\nfc_b_grp\tfc_b_grp\n");
    EXPECT_EQ(Run({"add-faction", "Alpha", "bad=name"}), 2);
    EXPECT_EQ(Run({"remove-faction", "Alpha", "LI_N_GRP"}), 2); // registered names match exactly
    EXPECT_EQ(Run({"remove-faction", "Alpha", "li_n_grp"}), 0);
    EXPECT_EQ(Registry(), "\r\n\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n\r\n");
}

TEST_F(CliTest, IniCommandsPrintExactlyWhatAReadReturns) {
    const std::string file = app / "x.ini";
    EXPECT_EQ(Run({"ini-set", file, "s", "k", "a\r\nb"}), 0);
    EXPECT_EQ(TempFolder::Read(file), "[s]\r\nk=a/20&\\b\r\n");
    EXPECT_EQ(Run({"ini-get", file, "S", "K"}), 0);
    EXPECT_EQ(out.str(), "a\r\nb");
    EXPECT_EQ(Run({"ini-get", file, "s", "none", "dflt"}), 0);
    EXPECT_EQ(out.str(), "dflt");
    EXPECT_EQ(Run({"ini-set", app / "missing/x.ini", "s", "k", "v"}), 2);
    EXPECT_NE(err.str().find("missing"), std::string::npos);
}

} // namespace

namespace {

TEST_F(CliTest, CompileRefusesARegistryNameThatCouldLeaveTheProject) {
    ASSERT_EQ(Run({"create", "Alpha"}), 0);
    TempFolder::Write(app / "projects/Alpha/misc/factions.ini", "[../../escape]\r\ngrp=x\r\n");
    EXPECT_EQ(Run({"compile", "Alpha"}), 2);
    EXPECT_NE(err.str().find("../../escape"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(app / "projects/Alpha/compiled/emphaty.ini"));
}

} // namespace
