// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform.h"
#include "factionprops/FactionPropCompiler.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

using factionprops::CompileFactionProp;

namespace {

// The lines every block starts with, for a faction x whose sheet sets none of them.
std::string DefaultHead(const std::string& nick) {
    return "[FactionProps]\r\naffiliation = " + nick +
           "\r\nlegality = Lawful\r\nnickname_plurality = Singular\r\nmsg_id_prefix = \r\n"
           "jump_preference = jumpgate\r\n";
}

// One faction's sheet and list files, and the block it compiles to.
TEST(FactionPropCompiler, EachSheetAndItsListsGiveTheGameBlock) {
    const struct {
        const char* what;
        const char* sheet;                                      // faction_prop/grp.ini
        std::vector<std::pair<const char*, const char*>> lists; // file, bytes
        std::string block;
    } cases[] = {
        {"a stored sheet with one ship",
         "[x]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
         "msg_id_prefix=gcs_refer_faction_li_n\r\nmc_costume=mc_li\r\nfirstname_male=\r\n"
         "firstname_female=\r\nlastname=\r\nrank_desig=\r\nformation_desig=\r\n"
         "large_ship_desig=\r\nlarge_ship_names=\r\nscan_announce=True\r\nscan_chance=0.5\r\n",
         {{"Shiplist_x.lst", "li_n_li_elite_d10\r\n\r\n"}},
         "[FactionProps]\r\naffiliation = x\r\nlegality = lawful\r\nnickname_plurality = "
         "singular\r\nmsg_id_prefix = gcs_refer_faction_li_n\r\njump_preference = jumpgate\r\n"
         "npc_ship = li_n_li_elite_d10\r\nmc_costume = mc_li\r\nscan_announce = True\r\n"
         "scan_chance = 0.5\r\n"},
        {"no section: the compiler's defaults and the lists",
         "",
         {{"Voicelist_x.lst", "atc_leg_f01\r\n\r\n"},
          {"Formationlist_x.lst", "ANY, convoy1\r\n\r\n"}},
         DefaultHead("x") +
             "voice = atc_leg_f01\r\nmc_costume = \r\nscan_announce = false\r\nscan_chance = "
             "0.0\r\nformation = ANY, convoy1\r\n"},
        {"empty keys are no absent ones: no defaults, optional lines left out",
         "[x]\r\nLegality=unlawful\r\nmsg_id_prefix=\r\nmc_costume=\r\nscan_announce=\r\n"
         "scan_chance=\r\nfirstname_male=   \r\nlastname=\r\nrank_desig=/20&\\x\r\n",
         {},
         "[FactionProps]\r\naffiliation = x\r\nlegality = unlawful\r\nnickname_plurality = "
         "Singular\r\nmsg_id_prefix = \r\njump_preference = jumpgate\r\nmc_costume = \r\n"
         "rank_desig = \r\nx\r\n"},
        {"list lines of spaces are skipped, others kept as read",
         "[x]\r\nscan_announce=True\r\nscan_chance=0.3\r\nfirstname_male=197809\r\n",
         {{"Shiplist_x.lst", "  br_n_battleship_d25  \r\n   \r\n\t\r\nli_n_cruiser_d22\r\n\r\n"},
          {"Bodylist_x.lst", "a, b, c\r\n\r\n"},
          {"Scanlist_x.lst", "commodity_gold\r\n\r\n"}},
         DefaultHead("x") +
             "npc_ship =   br_n_battleship_d25  \r\nnpc_ship = \t\r\nnpc_ship = "
             "li_n_cruiser_d22\r\nmc_costume = \r\nspace_costume = a, b, c\r\nfirstname_male = "
             "197809\r\nscan_for_cargo = commodity_gold\r\nscan_announce = True\r\nscan_chance = "
             "0.3\r\n"},
        {"list files under other capitals; a hidden one is not found",
         "",
         {{"SHIPLIST_x.LST", "s1\r\n\r\n"},
          {"VoiceList_X.lst", "v1\r\n\r\n"},
          {"BODYLIST_x.lst", "b1\r\n\r\n"},
          {"scanList_x.Lst", "c1\r\n\r\n"},
          {"FormationList_x.lst", "f1\r\n\r\n"},
          {".shiplist_x.lst", "hidden\r\n"}},
         DefaultHead("x") +
             "npc_ship = s1\r\nvoice = v1\r\nmc_costume = \r\nspace_costume = b1\r\nscan_for_cargo "
             "= "
             "c1\r\nscan_announce = false\r\nscan_chance = 0.0\r\nformation = f1\r\n"},
    };
    for (const auto& c : cases) {
        TestProject project;
        project.Write("faction_prop/grp.ini", c.sheet);
        for (const auto& [file, bytes] : c.lists)
            project.Write("faction_prop/" + std::string(file), bytes);
        CompileFactionProp(project.Folder(), {"x"});
        EXPECT_EQ(project.Read("compiled/faction_prop.ini"), c.block + "\r\n\r\n") << c.what;
    }
}

TEST(FactionPropCompiler, FactionsInTheGivenOrder) {
    TestProject project;
    project.Write("faction_prop/grp.ini", "[b]\r\njump=both\r\n[a]\r\njump=jumphole\r\n");
    CompileFactionProp(project.Folder(), {});
    EXPECT_EQ(project.Read("compiled/faction_prop.ini"), "\r\n");
    CompileFactionProp(project.Folder(), {"a", "b"});
    const std::string both = project.Read("compiled/faction_prop.ini");
    EXPECT_TRUE(both.starts_with("[FactionProps]\r\naffiliation = a\r\n")) << both;
    EXPECT_NE(both.find("jump_preference = jumphole\r\nmc_costume = \r\nscan_announce = "
                        "false\r\nscan_chance = 0.0\r\n\r\n[FactionProps]\r\naffiliation = b\r\n"),
              std::string::npos);
    EXPECT_TRUE(both.ends_with("scan_chance = 0.0\r\n\r\n\r\n"));
}

} // namespace
