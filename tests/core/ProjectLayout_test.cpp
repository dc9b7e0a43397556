// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProjectLayout.h"

#include <gtest/gtest.h>

namespace {

TEST(ProjectLayout, FactionFilesAreSpelledAsNewFilesGetThemAndNicknamesAsOnDisk) {
    const ProjectLayout project = ProjectLayout::Of("/app", "M\xFCnze"); // u-umlaut
    EXPECT_EQ(project.Folder(), "/app\\projects\\M\xC3\xBCnze");
    const std::string p = project.Folder() + "\\";
    const std::string nick = "K\xC3\xA4"
                             "fer"; // "K\xE4fer" as it is named on disk
    std::vector<std::string> expected = {p + "emphaty\\new\\reps_" + nick + ".facts",
                                         p + "emphaty\\new\\" + nick + ".tmp"};
    for (const char* list : {"Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_"})
        expected.push_back(p + "faction_prop\\" + list + nick + ".lst");
    EXPECT_EQ(project.FactionFiles("K\xE4"
                                   "fer"),
              expected);
    EXPECT_EQ(project.IniFilesNamingFactions({"a", "b"}),
              (std::vector<std::string>{p + "misc\\factions.ini", p + "emphaty\\new\\grp.ini",
                                        p + "faction_prop\\grp.ini", p + "initialworld\\grp.ini",
                                        p + "emphaty\\new\\reps_a.facts",
                                        p + "emphaty\\new\\reps_b.facts"}));
    // Findings name files below the project folder in the bytes of the files' contents.
    EXPECT_EQ(layout::FactionFile(layout::EmpathyName, "K\xE4"
                                                       "fer"),
              "emphaty\\new\\reps_K\xE4"
              "fer.facts");
}

TEST(ProjectLayout, NicknameInAFileNameIgnoresLetterCase) {
    const struct {
        layout::FactionFileName kind;
        const char* fileName;
        const char* nickname;
    } cases[] = {
        {layout::EmpathyName, "reps_li_n_grp.facts", "li_n_grp"},
        {layout::EmpathyName, "REPS_Li.FACTS", "Li"},
        {layout::EmpathyName, "reps_.facts", ""},
        {layout::EmpathyName, "reps_x.fact", ""},
        {layout::ListName(PickList::Voices), "voicelist_x.lst", "x"},
        {layout::ListName(PickList::Voices), "Shiplist_x.lst", ""},
        {layout::ListName(PickList::Formations), "FORMATIONLIST_a_b.LST", "a_b"},
        {layout::ScratchName, "a.tmp", "a"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(layout::NicknameIn(c.kind, c.fileName), c.nickname) << c.fileName;
}

} // namespace
