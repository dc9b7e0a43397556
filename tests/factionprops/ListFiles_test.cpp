#include "core/modFunctions.h"
#include "core/platform.h"
#include "factionprops/ListFiles.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

using namespace factionprops;

TEST(ListFiles, WholeFileWritesEndWithAnExtraLineEnd) {
    TestProject project{"p"};
    const TempFolder& app = project.app;
    const std::string path = ListFilePath(app.path(), "p", PickList::Ships, "x");
    WriteListFile(path, {"a", "a", " b "});
    EXPECT_EQ(TempFolder::Read(app / "projects/p/faction_prop/Shiplist_x.lst"),
              "a\r\na\r\n b \r\n\r\n");
    EXPECT_EQ(ReadListFile(path), (std::vector<std::string>{"a", "a", " b "}));
    WriteListFile(path, {});
    EXPECT_EQ(TempFolder::Read(app / "projects/p/faction_prop/Shiplist_x.lst"), "\r\n");
    EXPECT_TRUE(ReadListFile(path).empty());
    EXPECT_TRUE(ReadListFile(ListFilePath(app.path(), "p", PickList::Voices, "x")).empty());
}

TEST(ListFiles, OtherCapitalsNameTheSameFile) {
    TestProject project{"p"};
    const TempFolder& app = project.app;
    // As an import or the registry's deletion spells it.
    TempFolder::Write(app / "projects/p/faction_prop/voicelist_x.lst", "v1\r\n\r\n");
    const std::string path = ListFilePath(app.path(), "p", PickList::Voices, "x");
    EXPECT_EQ(ReadListFile(path), (std::vector<std::string>{"v1"}));
    WriteListFile(path, {"v1", "v2"});
    EXPECT_EQ(platform::ListFolder(app / "projects/p/faction_prop", platform::EntryKind::Files),
              (std::vector<std::string>{"voicelist_x.lst"}));
    EXPECT_EQ(TempFolder::Read(app / "projects/p/faction_prop/voicelist_x.lst"),
              "v1\r\nv2\r\n\r\n");
}

TEST(ListFiles, EntriesJoinTheirPartsWithCommaAndOneBlank) {
    EXPECT_EQ(BodypartEntry("h", "b", "c"), "h, b, c");
    EXPECT_EQ(FormationEntry(" ANY", "convoy1 "), " ANY, convoy1 ");
}
