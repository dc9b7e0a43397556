// SPDX-License-Identifier: GPL-3.0-or-later
// The project, faction and INI commands end to end; the rules behind them are the core's tests.
#include "cli/CliRunner.h"
#include "core/NativePath.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

// An application folder, project and names beyond ASCII: paths used as given, UTF-8 names on
// disk, Windows-1252 in the files; from create through import, compile and delete.
TEST(ProjectCommands, AProjectLivesFromCreateToDelete) {
    TempFolder temp;
    CliRunner cli;
    cli.appDir = temp / "J\xC3\xBCrgen/Mods \xE2\x82\xAC\xC5\x92";
    const std::string entry = "gr\xC3\xB6\xC3\x9F"
                              "e_grp";
    const std::string library = cli.appDir + "/data/";
    for (const char* folder : {"emphaty", "faction_prop", "initialworld"})
        std::filesystem::create_directories(
            platform::NativePath(library + folder + "/original_factions"));
    TempFolder::Write(library + "emphaty/original_factions/" + entry,
                      "[RepChangeEffects]\r\ngroup = Gr\xF6\xDF"
                      "e\r\nemphaty_rate = h\xE4ndler_grp, 0.5\r\n");
    TempFolder::Write(library + "faction_prop/original_factions/" + entry,
                      "[FactionProps]\r\nnpc_ship = ship_\xFC\r\n");
    TempFolder::Write(library + "initialworld/original_factions/" + entry, "[Group]\r\n");
    const std::string project = "\xC3\x9C"
                                "ber \xE2\x82\xAC Mod";
    const std::string root = cli.appDir + "/projects/" + project;
    ASSERT_EQ(cli.Run({"create", project}), 0) << cli.err.str();
    ASSERT_EQ(cli.Run({"import",
                       "\xC3\xBC"
                       "BER \xE2\x82\xAC MOD",
                       entry}),
              0)
        << cli.err.str();
    ASSERT_EQ(cli.Run({"add-faction", project, "h\xC3\xA4ndler_grp", "\xC5\x92"}), 0);
    EXPECT_EQ(TempFolder::Read(root + "/misc/factions.ini"),
              "[gr\xF6\xDF"
              "e_grp]\r\ngrp=Gr\xF6\xDF"
              "e\r\n[h\xE4ndler_grp]\r\ngrp=\x8C\r\n");
    EXPECT_EQ(cli.Run({"factions", project}), 0);
    EXPECT_EQ(cli.out.str(), entry + "\tGr\xC3\xB6\xC3\x9F"
                                     "e\nh\xC3\xA4ndler_grp\t\xC5\x92\n");
    ASSERT_EQ(cli.Run({"compile", project}), 0) << cli.err.str();
    const std::string compiled = TempFolder::Read(root + "/compiled/emphaty.ini") +
                                 TempFolder::Read(root + "/compiled/faction_prop.ini");
    for (const std::string line :
         {"group = gr\xF6\xDF"
          "e_grp\r\n",
          "emphaty_rate = h\xE4ndler_grp, 0.5\r\n", "npc_ship = ship_\xFC"})
        EXPECT_NE(compiled.find(line), std::string::npos) << line;
    EXPECT_EQ(cli.Run({"protocol", project}), 0);
    EXPECT_NE(cli.out.str().find(": Project created.\r\n\r\n"), std::string::npos);
    EXPECT_EQ(cli.Run({"remove-faction", project, "h\xC3\xA4ndler_grp"}), 0);
    EXPECT_EQ(TempFolder::Read(root + "/misc/factions.ini"), "[gr\xF6\xDF"
                                                             "e_grp]\r\ngrp=Gr\xF6\xDF"
                                                             "e\r\n\r\n\r\n\r\n");
    // A registry name that would leave the project is refused before anything is compiled.
    TempFolder::Write(root + "/misc/factions.ini", "[../../escape]\r\ngrp=x\r\n");
    std::filesystem::remove(platform::NativePath(root + "/compiled/emphaty.ini"));
    EXPECT_EQ(cli.Run({"compile", project}), 2);
    EXPECT_NE(cli.err.str().find("../../escape"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(platform::NativePath(root + "/compiled/emphaty.ini")));
    EXPECT_EQ(cli.Run({"projects"}), 0);
    EXPECT_EQ(cli.out.str(), project + "\n");
    EXPECT_EQ(cli.Run({"delete", project}), 0);
    EXPECT_FALSE(std::filesystem::exists(platform::NativePath(root)));
    EXPECT_TRUE(std::filesystem::is_directory(platform::NativePath(library)));
}

TEST(ProjectCommands, IniCommandsPrintExactlyWhatAReadReturns) {
    TempFolder app;
    CliRunner cli;
    cli.appDir = app.path();
    const std::string file = app / "x.ini";
    EXPECT_EQ(cli.Run({"ini-set", file, "s", "k", "a\r\nb"}), 0);
    EXPECT_EQ(cli.Run({"ini-get", file, "S", "K"}), 0);
    EXPECT_EQ(cli.out.str(), "a\r\nb");
    EXPECT_EQ(cli.Run({"ini-get", file, "s", "none", "dflt"}), 0);
    EXPECT_EQ(cli.out.str(), "dflt");
    EXPECT_EQ(cli.Run({"ini-set", app / "missing/x.ini", "s", "k", "v"}), 2);
    EXPECT_NE(cli.err.str().find("missing"), std::string::npos);
    // "--" ends the options, so a value may look like one.
    EXPECT_EQ(cli.Run({"ini-set", file, "s", "k", "--", "--help"}), 0);
    EXPECT_EQ(TempFolder::Read(file), "[s]\r\nk=--help\r\n");
}

} // namespace
