// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderOperations.h"
#include "factionprops/ListFiles.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

using namespace factionprops;

// Whole-file writes end with an extra line end; a file under other capitals (as an import or
// the registry's deletion spells it) is the same file.
TEST(ListFiles, WritesEndWithAnExtraLineEndAndOtherCapitalsNameTheSameFile) {
    TestProject project{"p"};
    const std::string ships = ListFilePath(project.app.path(), "p", PickList::Ships, "x");
    WriteListFile(ships, {"a", "a", " b "});
    EXPECT_EQ(project.Read("faction_prop/Shiplist_x.lst"), "a\r\na\r\n b \r\n\r\n");
    EXPECT_EQ(ReadListFile(ships), (std::vector<std::string>{"a", "a", " b "}));
    WriteListFile(ships, {});
    EXPECT_EQ(project.Read("faction_prop/Shiplist_x.lst"), "\r\n");
    EXPECT_TRUE(ReadListFile(ships).empty());
    const std::string voices = ListFilePath(project.app.path(), "p", PickList::Voices, "x");
    EXPECT_TRUE(ReadListFile(voices).empty());
    project.Write("faction_prop/voicelist_x.lst", "v1\r\n\r\n");
    EXPECT_EQ(ReadListFile(voices), (std::vector<std::string>{"v1"}));
    WriteListFile(voices, {"v1", "v2"});
    EXPECT_EQ(project.Read("faction_prop/voicelist_x.lst"), "v1\r\nv2\r\n\r\n");
#ifndef _WIN32 // a file system blind to case finds the file under either spelling
    EXPECT_FALSE(project.Exists("faction_prop/Voicelist_x.lst"));
#endif
    EXPECT_EQ(BodypartEntry("h", "b", "c"), "h, b, c");
    EXPECT_EQ(FormationEntry(" ANY", "convoy1 "), " ANY, convoy1 ");
}
