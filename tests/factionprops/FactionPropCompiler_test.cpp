#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "factionprops/FactionPropCompiler.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sstream>

using factionprops::CompileFactionProp;

namespace {

class FactionPropCompiler : public ::testing::Test {
protected:
    FactionPropCompiler() {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "p");
    }

    std::string Folder() const { return modFunctions::ProjectPath(app.path(), "p"); }
    // The host path of a piece of the project, for the test's own file access.
    std::string Piece(std::string_view piece) const {
        return platform::ResolvePath(modFunctions::ProjectPath(app.path(), "p", piece));
    }
    void Sheet(std::string_view bytes) const {
        TempFolder::Write(Piece("\\faction_prop\\grp.ini"), bytes);
    }
    void List(std::string_view name, std::string_view bytes) const {
        TempFolder::Write(Piece("\\faction_prop\\" + std::string(name)), bytes);
    }
    std::string Compile(const std::vector<std::string>& factions) const {
        CompileFactionProp(Folder(), factions);
        return TempFolder::Read(Piece("\\compiled\\faction_prop.ini"));
    }

    TempFolder app;
};

} // namespace

TEST_F(FactionPropCompiler, StoredSheetWithOneShipGivesTheGameBlock) {
    Sheet("[li_n_grp]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
          "msg_id_prefix=gcs_refer_faction_li_n\r\nmc_costume=mc_li\r\nfirstname_male=\r\n"
          "firstname_female=\r\nlastname=\r\nrank_desig=\r\nformation_desig=\r\n"
          "large_ship_desig=\r\nlarge_ship_names=\r\nscan_announce=True\r\nscan_chance=0.5\r\n");
    List("Shiplist_li_n_grp.lst", "li_n_li_elite_d10\r\n\r\n");
    EXPECT_EQ(Compile({"li_n_grp"}), "[FactionProps]\r\n"
                                     "affiliation = li_n_grp\r\n"
                                     "legality = lawful\r\n"
                                     "nickname_plurality = singular\r\n"
                                     "msg_id_prefix = gcs_refer_faction_li_n\r\n"
                                     "jump_preference = jumpgate\r\n"
                                     "npc_ship = li_n_li_elite_d10\r\n"
                                     "mc_costume = mc_li\r\n"
                                     "scan_announce = True\r\n"
                                     "scan_chance = 0.5\r\n"
                                     "\r\n"
                                     "\r\n");
}

TEST_F(FactionPropCompiler, FactionWithoutSectionGetsCompilerDefaultsAndItsLists) {
    List("Voicelist_x.lst", "atc_leg_f01\r\n\r\n");
    List("Formationlist_x.lst", "ANY, convoy1\r\n\r\n");
    EXPECT_EQ(Compile({"x"}), "[FactionProps]\r\n"
                              "affiliation = x\r\n"
                              "legality = Lawful\r\n"
                              "nickname_plurality = Singular\r\n"
                              "msg_id_prefix = \r\n"
                              "jump_preference = jumpgate\r\n"
                              "voice = atc_leg_f01\r\n"
                              "mc_costume = \r\n"
                              "scan_announce = false\r\n"
                              "scan_chance = 0.0\r\n"
                              "formation = ANY, convoy1\r\n"
                              "\r\n"
                              "\r\n");
}

TEST_F(FactionPropCompiler, EmptyKeysAndBlankValuesLeaveOptionalLinesOut) {
    // Present-but-empty keys are not absent: no defaults, and the optional lines vanish.
    // A line break read back from its escape is written as read.
    Sheet("[a]\r\nLegality=unlawful\r\nmsg_id_prefix=\r\nmc_costume=\r\nscan_announce=\r\n"
          "scan_chance=\r\nfirstname_male=   \r\nlastname=\r\n"
          "rank_desig=/20&\\x\r\n");
    const std::string out = Compile({"a"});
    EXPECT_EQ(out, "[FactionProps]\r\n"
                   "affiliation = a\r\n"
                   "legality = unlawful\r\n"
                   "nickname_plurality = Singular\r\n"
                   "msg_id_prefix = \r\n"
                   "jump_preference = jumpgate\r\n"
                   "mc_costume = \r\n"
                   "rank_desig = \r\nx\r\n"
                   "\r\n"
                   "\r\n");
}

TEST_F(FactionPropCompiler, ListLinesOfSpacesAreSkippedOthersKeptAsRead) {
    List("Shiplist_s.lst", "  br_n_battleship_d25  \r\n   \r\n\t\r\nli_n_cruiser_d22\r\n\r\n");
    List("Bodylist_s.lst", "a, b, c\r\n\r\n");
    List("Scanlist_s.lst", "commodity_gold\r\n\r\n");
    Sheet("[s]\r\nscan_announce=True\r\nscan_chance=0.3\r\nfirstname_male=197809\r\n");
    EXPECT_EQ(Compile({"s"}), "[FactionProps]\r\n"
                              "affiliation = s\r\n"
                              "legality = Lawful\r\n"
                              "nickname_plurality = Singular\r\n"
                              "msg_id_prefix = \r\n"
                              "jump_preference = jumpgate\r\n"
                              "npc_ship =   br_n_battleship_d25  \r\n"
                              "npc_ship = \t\r\n"
                              "npc_ship = li_n_cruiser_d22\r\n"
                              "mc_costume = \r\n"
                              "space_costume = a, b, c\r\n"
                              "firstname_male = 197809\r\n"
                              "scan_for_cargo = commodity_gold\r\n"
                              "scan_announce = True\r\n"
                              "scan_chance = 0.3\r\n"
                              "\r\n"
                              "\r\n");
}

TEST_F(FactionPropCompiler, ListFilesAreFoundUnderOtherCapitals) {
    List("SHIPLIST_c.LST", "s1\r\n\r\n");
    List("VoiceList_C.lst", "v1\r\n\r\n");
    List("BODYLIST_c.lst", "b1\r\n\r\n");
    List("scanList_c.Lst", "c1\r\n\r\n");
    List("FormationList_c.lst", "f1\r\n\r\n");
    List(".shiplist_c.lst", "hidden\r\n"); // a hidden file is not found
    const std::string out = Compile({"c"});
    for (const char* line : {"npc_ship = s1\r\n", "voice = v1\r\n", "space_costume = b1\r\n",
                             "scan_for_cargo = c1\r\n", "formation = f1\r\n"})
        EXPECT_NE(out.find(line), std::string::npos) << line;
    EXPECT_EQ(out.find("hidden"), std::string::npos);
}

TEST_F(FactionPropCompiler, TwoFactionsInPickerOrderWithProgress) {
    Sheet("[b]\r\njump=both\r\n[a]\r\njump=jumphole\r\n");
    std::vector<std::pair<std::size_t, std::size_t>> steps;
    CompileFactionProp(Folder(), {"a", "b"}, [&](const progress::Step& step) {
        steps.emplace_back(step.outerDone, step.outerTotal);
    });
    const std::string out = TempFolder::Read(Piece("\\compiled\\faction_prop.ini"));
    const std::string block = "[FactionProps]\r\naffiliation = ";
    const auto a = out.find(block + "a\r\n");
    const auto b = out.find(block + "b\r\n");
    ASSERT_NE(a, std::string::npos);
    ASSERT_NE(b, std::string::npos);
    EXPECT_LT(a, b);
    EXPECT_NE(out.find("jump_preference = jumphole\r\n"), std::string::npos);
    EXPECT_EQ(out.substr(b - 4, 4), "\r\n\r\n"); // a's block ends with its empty line
    EXPECT_TRUE(out.ends_with("scan_chance = 0.0\r\n\r\n\r\n"));
    EXPECT_EQ(steps, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 2}, {1, 2}, {2, 2}}));
}

TEST_F(FactionPropCompiler, FailedWriteKeepsThePreviousFile) {
    TempFolder::Write(Piece("\\compiled\\faction_prop.ini"), "old\r\n");
    // A folder in the way of the temporary file's rename makes the replacement fail.
    platform::DeleteFolderTree(Piece("\\compiled"));
    EXPECT_THROW(CompileFactionProp(Folder(), {"a"}), platform::FileError);
    EXPECT_FALSE(platform::IsFile(Piece("\\compiled\\faction_prop.ini")));
}

TEST_F(FactionPropCompiler, CommandLineCompilesEmptyRegistryToOnlyALineEnd) {
    std::ostringstream out, err;
    EXPECT_EQ(cli::Run({"--app-dir", app.path(), "compile", "p", "faction_prop"}, out, err),
              cli::Ok)
        << err.str();
    EXPECT_EQ(TempFolder::Read(Piece("\\compiled\\faction_prop.ini")), "\r\n");
    EXPECT_NE(
        TempFolder::Read(Piece("\\protocol\\protocol.txt")).find("Faction_Prop.ini created...\r\n"),
        std::string::npos);
}
