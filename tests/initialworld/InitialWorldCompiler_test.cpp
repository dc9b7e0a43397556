// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform.h"
#include "initialworld/InitialWorldCompiler.h"
#include "support/TestProject.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

// The comment block and the four empty lines; the German line's u-umlauts are 0xFC bytes.
const std::string Head =
    "//Warning: The Orrindel 2.0 can't know your (modded) system properties.\r\n"
    "//Add these above the reputationlist before you use this file\r\n"
    "\r\n"
    "//Achtung: Der Orrindel 2.0 kann deine (gemoddeten) Systemeigenschaften nicht wissen.\r\n"
    "//F\xFC"
    "ge diese \xFC"
    "ber die Reputation-Liste ein, bevor du diese Datei benutzt.\r\n"
    "\r\n\r\n\r\n\r\n";

// Sections follow the faction order with the stored text copied unchanged: "fresh" has no
// section; li_police holds the editor's "error" write-back, keys out of order, a blank around
// "=" and other capitals; rh_grp a line-break escape. A rerun replaces the file, a failed one
// keeps it.
TEST(InitialWorldCompiler, SectionsFollowFactionOrderWithStoredTextCopiedUnchanged) {
    TestProject project;
    const std::string folder = project.Folder();
    initialworld::CompileInitialWorld(folder, {}, {});
    EXPECT_EQ(project.Read("compiled/initialworld.ini"), Head + "\r\n");
    project.Write("initialworld/grp.ini",
                  "[Li_Police]\r\nids_short_name=error\r\nids_info=error\r\nids_name=error\r\n"
                  "LI_POLICE=1\r\nrh_grp = -0.65\r\n"
                  "[rh_grp]\r\nids_name=1/20&\\2\r\nli_police=-0.9\r\n");
    const std::vector<std::string> rows = {"li_police", "rh_grp", "fresh"};
    const std::string expected =
        Head + "[Group]\r\nnickname = fresh\r\n"
               "ids_name = \r\nids_info = \r\nids_short_name = \r\n"
               "rep = 0.0, li_police\r\nrep = 0.0, rh_grp\r\nrep = 0.0, fresh\r\n"
               "\r\n"
               "[Group]\r\nnickname = rh_grp\r\n"
               "ids_name = 1\r\n2\r\nids_info = \r\nids_short_name = \r\n"
               "rep = -0.9, li_police\r\nrep = 0.0, rh_grp\r\nrep = 0.0, fresh\r\n"
               "\r\n"
               "[Group]\r\nnickname = li_police\r\n"
               "ids_name = error\r\nids_info = error\r\nids_short_name = error\r\n"
               "rep = 1, li_police\r\nrep = -0.65, rh_grp\r\nrep = 0.0, fresh\r\n"
               "\r\n"
               "\r\n";
    initialworld::CompileInitialWorld(folder, {"fresh", "rh_grp", "li_police"}, rows);
    EXPECT_EQ(project.Read("compiled/initialworld.ini"), expected);
    std::filesystem::permissions(project.File("compiled/initialworld.ini"),
                                 std::filesystem::perms::owner_read);
    EXPECT_THROW(initialworld::CompileInitialWorld(folder, {"a"}, {"a"}), platform::FileError);
    EXPECT_EQ(project.Read("compiled/initialworld.ini"), expected);
}

} // namespace
