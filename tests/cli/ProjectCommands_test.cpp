#include "cli/CliRunner.h"
#include "core/FileReplacement.h"
#include "core/NativePath.h"
#include "support/TempFolder.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sstream>

namespace {

class CliTest : public ::testing::Test, protected CliRunner {
protected:
    using CliRunner::Run; // not the test's own Run
    CliTest() { appDir = app.path(); }
    std::string Registry() const {
        return TempFolder::Read(app / "projects/Alpha/misc/factions.ini");
    }
    TempFolder app;
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
    // 101 letters "é" fit 200 Windows-1252 bytes, not 200 bytes of a file name: the rule
    // says so, not the file system.
    std::string tooLong;
    for (int i = 0; i < 101; ++i)
        tooLong += "\xC3\xA9";
    EXPECT_EQ(Run({"create", tooLong}), 2);
    EXPECT_NE(err.str().find("longer than 200 bytes"), std::string::npos) << err.str();
    ASSERT_EQ(Run({"create", "Alpha"}), 0);
    EXPECT_EQ(Run({"add-faction", "Alpha", tooLong}), 2);
    EXPECT_NE(err.str().find("longer than 200 bytes"), std::string::npos) << err.str();
    EXPECT_EQ(Run({"delete", "Alpha"}), 0);
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
    // "--" ends the options, so a value may look like one.
    EXPECT_EQ(Run({"ini-set", file, "s", "k", "--", "--help"}), 0);
    EXPECT_EQ(Run({"ini-get", file, "s", "k"}), 0);
    EXPECT_EQ(out.str(), "--help");
}

// The application folder, the project and the faction names hold \u00e4, \u00f6, \u00fc,
// \u00df, \u20ac and \u0152: the folder's path is used as given, every name is UTF-8 on disk
// and Windows-1252 in the files.
TEST(CliNames, ANonAsciiApplicationFolderAndProjectWorkFromCreateToDelete) {
    TempFolder temp;
    const std::string app = temp / "J\xC3\xBCrgen/Mods \xE2\x82\xAC\xC5\x92";
    const std::string entry = "gr\xC3\xB6\xC3\x9F"
                              "e_grp"; // UTF-8, as on disk
    for (const char* folder : {"emphaty", "faction_prop", "initialworld"})
        std::filesystem::create_directories(
            platform::NativePath(app + "/data/" + folder + "/original_factions"));
    TempFolder::Write(app + "/data/emphaty/original_factions/" + entry,
                      "[RepChangeEffects]\r\ngroup = Gr\xF6\xDF"
                      "e\r\n"
                      "emphaty_rate = h\xE4ndler_grp, 0.5\r\n");
    TempFolder::Write(app + "/data/faction_prop/original_factions/" + entry,
                      "[FactionProps]\r\nnpc_ship = ship_\xFC\r\n");
    TempFolder::Write(app + "/data/initialworld/original_factions/" + entry,
                      "[Group]\r\nids_name = 5\r\n");
    CliRunner cli;
    cli.appDir = app;
    const auto run = [&cli](std::vector<std::string> args) { return cli.Run(std::move(args)); };
    const auto& out = cli.out;
    const auto& err = cli.err;
    const std::string project = "\xC3\x9C"
                                "ber \xE2\x82\xAC Mod";
    const std::string root = app + "/projects/" + project;
    ASSERT_EQ(run({"create", project}), 0) << err.str();
    EXPECT_TRUE(std::filesystem::is_directory(platform::NativePath(root + "/emphaty/new")));
    ASSERT_EQ(run({"import",
                   "\xC3\xBC"
                   "BER \xE2\x82\xAC MOD",
                   entry}),
              0)
        << err.str();
    ASSERT_EQ(run({"add-faction", project, "h\xC3\xA4ndler_grp", "\xC5\x92"}), 0) << err.str();
    ASSERT_EQ(run({"compile", project}), 0) << err.str();
    EXPECT_EQ(TempFolder::Read(root + "/emphaty/new/reps_" + entry + ".facts"),
              "[h\xE4ndler_grp]\r\nrep=0.5\r\n\r\n");
    EXPECT_EQ(TempFolder::Read(root + "/faction_prop/Shiplist_" + entry + ".lst"),
              "ship_\xFC\r\n\r\n");
    EXPECT_EQ(TempFolder::Read(root + "/misc/factions.ini"),
              "[gr\xF6\xDF"
              "e_grp]\r\ngrp=Gr\xF6\xDF"
              "e\r\n[h\xE4ndler_grp]\r\ngrp=\x8C\r\n");
    const std::string compiled = TempFolder::Read(root + "/compiled/emphaty.ini");
    EXPECT_NE(compiled.find("group = gr\xF6\xDF"
                            "e_grp\r\n"),
              std::string::npos);
    EXPECT_NE(compiled.find("emphaty_rate = h\xE4ndler_grp, 0.5\r\n"), std::string::npos);
    EXPECT_NE(TempFolder::Read(root + "/compiled/faction_prop.ini").find("npc_ship = ship_\xFC"),
              std::string::npos);
    EXPECT_EQ(run({"projects"}), 0);
    EXPECT_EQ(out.str(), project + "\n");
    EXPECT_EQ(run({"delete", project}), 0);
    EXPECT_FALSE(std::filesystem::exists(platform::NativePath(root)));
    EXPECT_TRUE(std::filesystem::is_directory(platform::NativePath(app + "/data")));
}

TEST_F(CliTest, CompileRefusesARegistryNameThatCouldLeaveTheProject) {
    ASSERT_EQ(Run({"create", "Alpha"}), 0);
    TempFolder::Write(app / "projects/Alpha/misc/factions.ini", "[../../escape]\r\ngrp=x\r\n");
    EXPECT_EQ(Run({"compile", "Alpha"}), 2);
    EXPECT_NE(err.str().find("../../escape"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(app / "projects/Alpha/compiled/emphaty.ini"));
}

// A disk that refuses every new file: each game file compiled side by side fails, and each
// failure is reported, not only the first; the protocol gets no line.
TEST_F(CliTest, EveryGameFileThatFailsToCompileIsNamed) {
    struct NoNewFiles : platform::FileCalls {
        platform::FileHandle Open(const platform::FolderRef&, const char*,
                                  platform::Opening) override {
            errno = ENOSPC;
            return -1;
        }
    } noNewFiles;
    ASSERT_EQ(Run({"create", "Alpha"}), 0);
    ASSERT_EQ(Run({"add-faction", "Alpha", "a_grp"}), 0);
    const std::string protocol = TempFolder::Read(app / "projects/Alpha/protocol/protocol.txt");
    {
        const platform::FileCallsInstalled installed(noNewFiles);
        EXPECT_EQ(Run({"compile", "Alpha"}), 2);
    }
    for (const char* file : {"emphaty.ini", "faction_prop.ini", "initialworld.ini"})
        EXPECT_NE(err.str().find(platform::HostPath(std::string("compiled/") + file)),
                  std::string::npos)
            << err.str();
    EXPECT_EQ(TempFolder::Read(app / "projects/Alpha/protocol/protocol.txt"), protocol);
}

} // namespace
