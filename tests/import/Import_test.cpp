// SPDX-License-Identifier: GPL-3.0-or-later
#include "LibraryFixture.h"
#include "core/platformBasics.h"
#include "core/txtReadWrite.h"
#include "import/Import.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace importer;

namespace {

const std::string AbReputation =
    Lines({"[RepChangeEffects]", "group = Alpha Band", "event = object_destruction, -0.1",
           "event = random_mission_success, 0.05", "event = bogus_event, 9",
           "emphaty_rate = cd_grp, -0.3", "emphaty_rate = ab_grp, 0.9"});
const std::string AbProps = Lines(
    {"[FactionProps]", "affiliation = ab_grp", "legality = lawful", "npc_ship = ship_a",
     "npc_ship = ship_b", "voice = ", "formation_desig = 100, 101",
     "formation = fighters, fighter_basic", "space_costume = h, b, c", "scan_announce = True"});
const std::string AbWorld =
    Lines({"[Group]", "nickname = ab_grp", "ids_name = 5", "ids_short_name = 7",
           "rep = 0.5, cd_grp", "rep = 0.1,ab_grp", "rep = 0.6, cd_grp"});
const char* const CdReputation = "[RepChangeEffects]\r\ngroup = cd_grp\r\n"
                                 "event = random_mission_abortion, -0.2\r\n";
const char* const CdProps = "[FactionProps]\r\nlegality = unlawful\r\n";
const char* const CdWorld = "[Group]\r\nids_name = 9\r\nrep = -0.4, ab_grp\r\n";

class Import : public ::testing::Test, protected LibraryFixture {
protected:
    Import() {
        Entry("ab_grp", AbReputation, AbProps, AbWorld);
        Entry("cd_grp", CdReputation, CdProps, CdWorld);
    }
};

} // namespace

TEST_F(Import, WritesEveryProjectFileInItsExactForm) {
    ImportOriginalFaction(app.path(), "ab_grp", Folder());
    EXPECT_EQ(Read("misc/factions.ini"), "[ab_grp]\r\ngrp=Alpha Band\r\n");
    EXPECT_EQ(Read("emphaty/new/grp.ini"), "[ab_grp]\r\no_d=-0.1\r\nr_m_s=0.05\r\n");
    EXPECT_EQ(Read("emphaty/new/reps_ab_grp.facts"),
              "[cd_grp]\r\nrep=-0.3\r\n[ab_grp]\r\nrep=0.9\r\n\r\n");
    EXPECT_EQ(Read("faction_prop/grp.ini"),
              "[ab_grp]\r\nLegality=lawful\r\nplurality=\r\nmsg_id_prefix=\r\nmc_costume=\r\n"
              "firstname_male=\r\nfirstname_female=\r\nlastname=\r\nrank_desig=\r\n"
              "formation_desig=100, 101\r\nlarge_ship_desig=\r\nlarge_ship_names=\r\njump=\r\n"
              "scan_chance=\r\nscan_announce=True\r\n");
    EXPECT_EQ(Read("faction_prop/Shiplist_ab_grp.lst"), "ship_a\r\nship_b\r\n\r\n");
    EXPECT_EQ(Read("faction_prop/Voicelist_ab_grp.lst"), "\r\n\r\n");
    EXPECT_EQ(Read("faction_prop/Bodylist_ab_grp.lst"), "h, b, c\r\n\r\n");
    EXPECT_EQ(Read("faction_prop/Scanlist_ab_grp.lst"), "\r\n");
    EXPECT_EQ(Read("faction_prop/Formationlist_ab_grp.lst"), "fighters, fighter_basic\r\n\r\n");
    // The same nickname twice keeps the later value in the first one's place.
    EXPECT_EQ(
        Read("initialworld/grp.ini"),
        "[ab_grp]\r\nids_name=5\r\nids_info=\r\nids_short_name=7\r\ncd_grp=0.6\r\nb_grp=0.1\r\n");
}

TEST_F(Import, ReimportOverwritesInPlaceAndKeepsWhatTheLibraryDoesNotYield) {
    Write("misc/factions.ini", "[zz_grp]\r\ngrp=mine\r\n[ab_grp]\r\ngrp=user made\r\n");
    Write("emphaty/new/grp.ini", "[ab_grp]\r\nr_m_a=-0.7\r\no_d=3\r\n");
    Write("initialworld/grp.ini", "[ab_grp]\r\nef_grp=0.2\r\n");
    ImportOriginalFaction(app.path(), "ab_grp", Folder());
    const auto once = Snapshot();
    EXPECT_EQ(Read("misc/factions.ini"), "[zz_grp]\r\ngrp=mine\r\n[ab_grp]\r\ngrp=Alpha Band\r\n");
    EXPECT_EQ(Read("emphaty/new/grp.ini"), "[ab_grp]\r\nr_m_a=-0.7\r\no_d=-0.1\r\nr_m_s=0.05\r\n");
    EXPECT_NE(Read("initialworld/grp.ini").find("\r\nef_grp=0.2\r\n"), std::string::npos);
    ImportOriginalFaction(app.path(), "ab_grp", Folder());
    EXPECT_EQ(Snapshot(), once);
}

// A malformed, incomplete or unnamable entry, or a project file that cannot be replaced:
// no project file changes.
TEST_F(Import, ARefusedEntryOrAFailedWriteChangesNothing) {
    Write("misc/factions.ini", "[zz_grp]\r\ngrp=mine\r\n");
    const auto before = Snapshot();
    Library("initialworld", "ab_grp", "[Group]\r\nrep = 0.5\r\n");
    try {
        ImportOriginalFaction(app.path(), "ab_grp", Folder());
        FAIL() << "a malformed entry was imported";
    } catch (const LibraryError& error) {
        EXPECT_EQ(error.line(), 2);
        EXPECT_NE(std::string(error.what())
                      .find(platform::HostPath("initialworld/original_factions/ab_grp, line 2")),
                  std::string::npos)
            << error.what();
    }
    std::filesystem::remove(app / "data/faction_prop/original_factions/cd_grp");
    EXPECT_THROW(ImportOriginalFaction(app.path(), "cd_grp", Folder()), LibraryError);
    Entry("x[1]", CdReputation, CdProps, CdWorld); // brackets break section names
    EXPECT_THROW(ImportOriginalFaction(app.path(), "x[1]", Folder()), LibraryError);
    Entry("ab_grp", AbReputation, AbProps, AbWorld);
    std::filesystem::remove_all(app / "projects/P/initialworld"); // the last file cannot go
    EXPECT_ANY_THROW(ImportOriginalFaction(app.path(), "ab_grp", Folder()));
    EXPECT_ANY_THROW(ImportAllOriginalFactions(app.path(), Folder()));
    EXPECT_EQ(Snapshot(), before);
}

// Refused entries are reported at the end; temporary files an import killed half-way left
// behind are gone after one complete run, even where that run finds nothing to change.
TEST_F(Import, ImportAllGoesInListOrderAndReportsRefusedEntriesAtTheEnd) {
    Entry("Bad_grp", "emphaty_rate = ab_grp\r\n", CdProps, CdWorld);
    Library("faction_prop", "orphan_grp", CdProps); // no reputation file: refused too
    Library("initialworld", "ORPHAN_grp", CdWorld);
    for (const char* folder : {"misc", "emphaty/new", "faction_prop", "initialworld"})
        for (const char* name : {".orrindel-99999999-1-0", ".orrindel-99999999-2"})
            Write(std::string(folder) + "/" + name, "partial");
    std::vector<std::pair<std::size_t, std::size_t>> progress;
    const auto result =
        ImportAllOriginalFactions(app.path(), Folder(), [&](const progress::Step& at) {
            progress.emplace_back(at.outerDone, at.outerTotal);
        });
    EXPECT_EQ(result.imported, (std::vector<std::string>{"ab_grp", "cd_grp"}));
    ASSERT_EQ(result.refused.size(), 2u);
    EXPECT_EQ(result.refused[0].line(), 1);
    EXPECT_NE(std::string(result.refused[1].what())
                  .find(platform::HostPath("emphaty/original_factions/orphan_grp")),
              std::string::npos)
        << result.refused[1].what();
    // The refused entry counts as done too, so the run ends at its total.
    EXPECT_EQ(progress.back(), std::make_pair(std::size_t{3}, std::size_t{3}));
    EXPECT_EQ(Read("misc/factions.ini"),
              "[ab_grp]\r\ngrp=Alpha Band\r\n[cd_grp]\r\ngrp=cd_grp\r\n");
    EXPECT_EQ(Read("emphaty/new/grp.ini"),
              "[ab_grp]\r\no_d=-0.1\r\nr_m_s=0.05\r\n[cd_grp]\r\nr_m_a=-0.2\r\n");
    EXPECT_FALSE(Exists("emphaty/new/reps_Bad_grp.facts"));
    const auto once = Snapshot();
    Write("misc/.orrindel-99999999-3-0", "partial");
    ImportAllOriginalFactions(app.path(), Folder());
    EXPECT_EQ(Snapshot(), once);
}
