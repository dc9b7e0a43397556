// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "reputation/EmphatyCompiler.h"
#include "reputation/ReputationFiles.h"
#include "support/TestProject.h"

#include <filesystem>
#include <gtest/gtest.h>
namespace {

// Values are copied as stored (the line-break escape splits a line), missing ones are 0.0,
// the own row and a second section of a name are skipped; a rerun replaces the file, and
// leftover scratch files of compiled factions go.
TEST(EmphatyCompiler, EachFactionGivesItsBlockBetweenBlankLines) {
    TestProject project;
    const std::string folder = project.Folder();
    const std::string events = reputation::EventFile(folder);
    txtReadWrite::WriteIni("A", "o_d", "x\r\ny", events); // stored as x/20&\y
    txtReadWrite::WriteIni("A", "r_m_s", "", events);
    txtReadWrite::WriteIni("A", "r_m_f", "high", events);
    project.Write("emphaty/new/reps_A.facts",
                  "[A]\r\nrep=0.9\r\n[b]\r\nrep=-0.65\r\n[B]\r\nrep=0.1\r\n[c]\r\nrep=0.50\r\n");
    project.Write("emphaty/new/A.tmp", "[RepChangeEffects]\r\n");
    project.Write("emphaty/new/\xC3\x84.TMP", "half a block");
    project.Write("emphaty/new/other.tmp", "not ours to judge");
    // A faction never edited nor imported: every value falls back to 0.0.
    const auto untouched = [](const std::string& group, const std::string& rates) {
        return "[RepChangeEffects]\r\ngroup = " + group +
               "\r\nevent = object_destruction, 0.0\r\nevent = random_mission_success, 0.0\r\n"
               "event = random_mission_failure, 0.0\r\nevent = random_mission_abortion, 0.0\r\n" +
               rates;
    };
    for (int run = 0; run < 2; ++run) {
        reputation::CompileEmphaty(folder, {"A", "B", "\xE4"}, {"A", "B"});
        EXPECT_EQ(project.Read("compiled/emphaty.ini"),
                  "\r\n\r\n[RepChangeEffects]\r\ngroup = A\r\n"
                  "event = object_destruction, x\r\ny\r\n"
                  "event = random_mission_success, \r\n"
                  "event = random_mission_failure, high\r\n"
                  "event = random_mission_abortion, 0.0\r\n"
                  "emphaty_rate = B, -0.65\r\n\r\n\r\n\r\n" +
                      untouched("B", "emphaty_rate = A, 0.0\r\n") + "\r\n\r\n\r\n" +
                      untouched("\xE4", "emphaty_rate = A, 0.0\r\nemphaty_rate = B, 0.0\r\n") +
                      "\r\n")
            << run;
    }
    EXPECT_FALSE(project.Exists("emphaty/new/A.tmp"));
    EXPECT_FALSE(project.Exists("emphaty/new/\xC3\x84.TMP"));
    EXPECT_TRUE(project.Exists("emphaty/new/other.tmp"));
}

// No factions delete the old output (that a failed compile keeps it is the compile command's
// test).
TEST(EmphatyCompiler, NoFactionsDeleteTheOutput) {
    TestProject project;
    project.Write("compiled/emphaty.ini", "previous");
    reputation::CompileEmphaty(project.Folder(), {}, {});
    EXPECT_FALSE(project.Exists("compiled/emphaty.ini"));
    reputation::CompileEmphaty(project.Folder(), {}, {}); // nothing to delete is fine too
}

} // namespace
