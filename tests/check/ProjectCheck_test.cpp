// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/ProjectCheck.h"
#include "core/modFunctions.h"
#include "import/Import.h"
#include "support/TestProject.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <tuple>

namespace {

using check::Finding;
using check::Severity;
using check::Store;

// A change to a sound project of a_grp, b_grp and c_grp: text replaced in a file, a file
// written whole (no from) or removed (no from and no to).
struct Change {
    std::string piece;
    std::optional<std::string> from, to;
};
const auto Whole = std::nullopt;

std::vector<Finding> CheckChanged(const std::vector<Change>& changes) {
    TestProject project;
    project.Fill({"a_grp", "b_grp", "c_grp"});
    for (const Change& c : changes) {
        if (c.from)
            EXPECT_TRUE(project.Edit(c.piece, *c.from, *c.to)) << c.piece << " lacks " << *c.from;
        else if (c.to)
            project.Write(c.piece, *c.to);
        else
            std::filesystem::remove(project.File(c.piece));
    }
    return check::CheckProject(project.app.path(), "P");
}

const std::string Long(255, 'x');
constexpr Severity Err = Severity::Error, Warn = Severity::Warning, Note = Severity::Note;

// Each fault gives exactly one finding, compared field by field.
TEST(ProjectCheck, EachFaultGivesItsOneFinding) {
    const struct {
        std::string piece;
        std::optional<std::string> from, to;
        Severity severity;
        std::string faction, where, stored, messagePart; // file and store: those of the piece
    } cases[] = {
        // Values the game reads as numbers.
        {"emphaty/new/grp.ini", "o_d=-0.1", "o_d=0,5", Err, "a_grp", "[a_grp] o_d", "0,5",
         "decimal point, not a comma"},
        {"emphaty/new/grp.ini", "o_d=-0.1", "o_d=", Err, "a_grp", "[a_grp] o_d", "", "is empty"},
        {"emphaty/new/reps_b_grp.facts", "rep=0.5", "rep=1.5", Err, "b_grp", "[c_grp] rep", "1.5",
         "outside -1 to 1"},
        {"faction_prop/grp.ini", "scan_chance=0.25", "scan_chance=25%", Err, "a_grp",
         "[a_grp] scan_chance", "25%", "not a number"},
        {"initialworld/grp.ini", "ids_short_name=1002", "ids_short_name=error", Err, "a_grp",
         "[a_grp] ids_short_name", "error", "never set"},
        {"initialworld/grp.ini", "ids_short_name=1002", "ids_short_name=10.5", Err, "a_grp",
         "[a_grp] ids_short_name", "10.5", "not a whole number"},
        {"initialworld/grp.ini", "ids_short_name=1002\r\n", "", Err, "a_grp",
         "[a_grp] ids_short_name", "", "compiles as an empty value"},
        {"initialworld/grp.ini", "c_grp=0.75", "c_grp=-1.01", Err, "a_grp", "[a_grp] c_grp",
         "-1.01", "outside -1 to 1"},
        // Entries and files of factions that are not registered.
        {"emphaty/new/reps_a_grp.facts", "[a_grp]", "[gone_grp]\r\nrep=0.1\r\n[a_grp]", Warn,
         "a_grp", "[gone_grp] rep", "0.1", "left behind by a deleted faction"},
        {"initialworld/grp.ini", "ids_info=1003", "ids_info=1003\r\ngone_grp=0.2", Warn, "a_grp",
         "[a_grp] gone_grp", "0.2", "left behind by a deleted faction"},
        {"emphaty/new/REPS_gone_grp.facts", Whole, "[a_grp]\r\nrep=0.1\r\n", Warn, "gone_grp", "",
         "", "not registered"},
        {"faction_prop/shiplist_gone_grp.lst", Whole, "no_such_ship\r\n", Warn, "gone_grp", "", "",
         "not registered"},
        // The shared stores keep a deleted faction's section: worth a note, not more.
        {"faction_prop/grp.ini", "[a_grp]",
         "[gone_grp]\r\nLegality=bogus\r\nscan_chance=x\r\n[a_grp]", Note, "gone_grp", "[gone_grp]",
         "", "not registered"},
        // Registered factions missing from a store.
        {"emphaty/new/reps_c_grp.facts", Whole, Whole, Warn, "c_grp", "", "", "no empathy file"},
        {"misc/factions.ini", "grp=Group b_grp\r\n", "", Warn, "b_grp", "[b_grp] grp", "",
         "no group"},
        {"misc/factions.ini", "grp=Group b_grp", "grp=[Error]", Warn, "b_grp", "[b_grp] grp",
         "[Error]", "placeholder"},
        {"misc/factions.ini", "[c_grp]", "[B_grp]\r\ngrp=Again\r\n[c_grp]", Err, "B_grp", "[B_grp]",
         "", "only in letter case"},
        // List lines that no catalogue holds.
        {"faction_prop/Shiplist_a_grp.lst", Whole, "br_m_ge_fighter2_d1-4\r\nmy_own_ship\r\n\r\n",
         Warn, "a_grp", "line 2", "my_own_ship", "fine if the mod"},
        {"faction_prop/Bodylist_b_grp.lst", Whole,
         "benchmark_male_head, benchmark_male_body\r\n\r\n", Warn, "b_grp", "line 1",
         "benchmark_male_head, benchmark_male_body", "head, body and accessory"},
        {"faction_prop/Formationlist_b_grp.lst", Whole, "ANY, armored_basic\r\nANY, wedge\r\n\r\n",
         Warn, "b_grp", "line 2", "ANY, wedge", "\"wedge\""},
        // Values cut by the read limit or split by the line-break escape.
        {"faction_prop/grp.ini", "Legality=lawful", "Legality=lawful\r\nlarge_ship_names=" + Long,
         Warn, "a_grp", "[a_grp] large_ship_names", Long, "255 bytes"},
        {"faction_prop/grp.ini", "Legality=lawful", "Legality=lawful\r\nlarge_ship_names=a/20&\\b",
         Err, "a_grp", "[a_grp] large_ship_names", "a/20&\\b", "split"},
        // Mirror pairs with one half missing.
        {"emphaty/new/reps_c_grp.facts", "[a_grp]\r\nrep=-0.25\r\n", "", Note, "c_grp",
         "[a_grp] rep", "", "rate back is \"0.5\""},
        {"initialworld/grp.ini", "b_grp=0.75\r\n", "", Note, "a_grp", "[a_grp] b_grp", "",
         "one back is \"1\""},
    };
    for (const auto& c : cases) {
        const auto findings = CheckChanged({{c.piece, c.from, c.to}});
        const std::string context = c.piece + ": " + c.to.value_or("removed");
        ASSERT_EQ(findings.size(), 1u) << context << "\n" << check::TextReport(findings);
        const Finding& f = findings[0];
        std::string file = c.piece;
        std::replace(file.begin(), file.end(), '/', '\\');
        const Store store = c.piece.starts_with("misc")        ? Store::Registry
                            : c.piece.starts_with("emphaty")   ? Store::Reputation
                            : c.piece.starts_with("faction_p") ? Store::FactionProps
                                                               : Store::InitialWorld;
        EXPECT_EQ(std::tie(f.severity, f.store, f.faction, f.file, f.where, f.stored),
                  std::tie(c.severity, store, c.faction, file, c.where, c.stored))
            << context;
        EXPECT_NE(f.message.find(c.messagePart), std::string::npos) << context << f.message;
    }
}

TEST(ProjectCheck, SoundChangesGiveNoFinding) {
    const std::vector<Change> sound[] = {
        {},
        {{"emphaty/new/grp.ini", "o_d=-0.1", "o_d=-.5e1"}}, // an exponent and a bare point
        {{"emphaty/new/reps_b_grp.facts", "rep=0.5", "rep=+1"}},
        {{"faction_prop/Shiplist_a_grp.lst", Whole, "\r\n"}}, // an empty list
        {{"faction_prop/grp.ini", "Legality=lawful",
          "Legality=lawful\r\nlarge_ship_names=" + Long.substr(1)}}, // read whole
        // A missing half against a stored "0.0" compiles alike on both sides.
        {{"emphaty/new/reps_c_grp.facts", "[a_grp]\r\nrep=-0.25\r\n", ""},
         {"emphaty/new/reps_a_grp.facts", "[c_grp]\r\nrep=0.5", "[c_grp]\r\nrep=0.0"}},
    };
    for (const auto& changes : sound)
        EXPECT_EQ(check::TextReport(CheckChanged(changes)), "")
            << (changes.empty() ? "" : changes[0].to.value_or(""));
}

TEST(ProjectCheck, ChangesNoFileAndAMissingProjectIsAnError) {
    TestProject project;
    project.Fill({"a_grp", "b_grp"});
    project.Edit("emphaty/new/grp.ini", "o_d=-0.1", "o_d=0,5");
    project.Write("faction_prop/shiplist_gone_grp.lst", "x\r\n");
    const auto before = project.Snapshot();
    EXPECT_TRUE(check::HasError(check::CheckProject(project.app.path(), "P")));
    EXPECT_EQ(project.Snapshot(), before);
    EXPECT_THROW(check::CheckProject(project.app.path(), "Nope"), std::exception);
    modFunctions::CreateProjectFolders(project.app.path(), "Empty");
    EXPECT_TRUE(check::CheckProject(project.app.path(), "Empty").empty());
}

TEST(ProjectCheckLibrary, ShippedLibraryImportedWholeHasNoFinding) {
    TempFolder app;
    std::filesystem::copy(ORRINDEL_TEST_DATA_DIR, app / "data",
                          std::filesystem::copy_options::recursive);
    modFunctions::EnsureProjectsFolder(app.path());
    modFunctions::CreateProjectFolders(app.path(), "P");
    const auto result =
        importer::ImportAllOriginalFactions(app.path(), modFunctions::ProjectPath(app.path(), "P"));
    ASSERT_EQ(result.imported.size(), 43u);
    EXPECT_EQ(check::TextReport(check::CheckProject(app.path(), "P")), "");
}

} // namespace
