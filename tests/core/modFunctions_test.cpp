// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <regex>

using namespace modFunctions;

class ProjectTest : public ::testing::Test {
protected:
    void SetUp() override { EnsureProjectsFolder(app.path()); }
    std::string Registry() const { return RegistryPath(app.path(), "Alpha"); }
    std::string RegistryBytes() const {
        return TempFolder::Read(app / "projects/Alpha/misc/factions.ini");
    }
    TempFolder app;
};

TEST_F(ProjectTest, CreateMakesTheTreeAndTheListIsSortedIgnoringCase) {
    for (const char* name : {"fc_bd_grp", "Beta", "fc_b_grp", "Alpha", "Fc_1"})
        CreateProjectFolders(app.path(), name);
    for (const char* sub :
         {"emphaty/new", "faction_prop", "initialworld", "XML", "Protocol", "compiled", "misc"})
        EXPECT_TRUE(std::filesystem::is_directory(app / (std::string("projects/Alpha/") + sub)))
            << sub;
    EXPECT_THROW(CreateProjectFolders(app.path(), "Alpha"), platform::FileError);
    EXPECT_THROW(CreateProjectFolders(app.path(), "a/b"), names::NameRefused);
    TempFolder::Write(app / "projects/not-a-folder", "x");
    EXPECT_EQ(FindProject(app.path(), "ALPHA"), "Alpha");
    DeleteProjectFolder(app.path(), "Beta");
    EXPECT_EQ(ListProjects(app.path()),
              (std::vector<std::string>{"Alpha", "Fc_1", "fc_b_grp", "fc_bd_grp"}));
}

TEST_F(ProjectTest, ProtocolEntriesAreSeparatedByAnEmptyLineAndFindTheProtocolFolder) {
    CreateProjectFolders(app.path(), "Alpha");
    WriteProtocol(app.path(), "Alpha", "Project created.");
    WriteProtocol(app.path(), "Alpha", "Emphaty.ini compiled...");
    const std::string text = TempFolder::Read(app / "projects/Alpha/Protocol/protocol.txt");
    const std::regex entry("[^\r\n]+    [^\r\n]+: Project created\\.\r\n\r\n[^\r\n]+    [^\r\n]+: "
                           "Emphaty\\.ini compiled\\.\\.\\.\r\n\r\n");
    EXPECT_TRUE(std::regex_match(text, entry)) << text;
    // With no active project the protocol folder does not exist: the error reaches the caller.
    EXPECT_THROW(WriteProtocol(app.path(), "", "Project created."), platform::FileError);
}

TEST_F(ProjectTest, RegistryLoadsSectionLinesInFileOrder) {
    CreateProjectFolders(app.path(), "Alpha");
    TempFolder::Write(
        app / "projects/Alpha/misc/factions.ini",
        "[b_grp]\r\ngrp=Bees\r\nRep=0.5\r\n [skipped]\r\n[we[ir]d]\r\n\r\n[a_grp]\r\n");
    std::string entries;
    for (const auto& entry : LoadRegistry(Registry()))
        entries += entry.nickname + "|" + entry.group + "|" + entry.rep + ";";
    EXPECT_EQ(entries, "b_grp|Bees|0.5;weird|[ERROR]|0.0;a_grp|[ERROR]|0.0;");
    EXPECT_THROW(LoadRegistry(RegistryPath(app.path(), "Nobody")), platform::FileError);
}

TEST_F(ProjectTest, SaveAddsAtTheEndAndRegroupsInPlace) {
    CreateProjectFolders(app.path(), "Alpha");
    EXPECT_EQ(SaveFaction(app.path(), "Alpha", "  ", "x"), "");
    EXPECT_FALSE(platform::IsFile(Registry()));
    EXPECT_EQ(SaveFaction(app.path(), "Alpha", "li_n_grp", " "), "li_n_grp");
    SaveFaction(app.path(), "Alpha", "fc_b_grp", "Outcasts");
    SaveFaction(app.path(), "Alpha", "li_n_grp", "Navy");
    EXPECT_EQ(RegistryBytes(), "[li_n_grp]\r\ngrp=Navy\r\n[fc_b_grp]\r\ngrp=Outcasts\r\n");
    EXPECT_THROW(SaveFaction(app.path(), "Alpha", "bad]name", "x"), names::NameRefused);
}

// A faction's seven files, spelled by hand rather than by the layout that deletion uses.
std::vector<std::string> SevenFiles(const std::string& nick) {
    std::vector<std::string> files = {"emphaty/new/reps_" + nick + ".facts",
                                      "emphaty/new/" + nick + ".tmp"};
    for (const char* list : {"Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_"})
        files.push_back("faction_prop/" + std::string(list) + nick + ".lst");
    return files;
}

TEST_F(ProjectTest, DeletingAFactionRemovesAllSevenOfItsFilesAndNoOtherFactions) {
    CreateProjectFolders(app.path(), "Alpha");
    SaveFaction(app.path(), "Alpha", "li_n_grp", "Navy");
    for (const char* nick : {"li_n_grp", "li_n_grp2"})
        for (const std::string& file : SevenFiles(nick))
            TempFolder::Write(app / ("projects/Alpha/" + file), "x");
    // The registry first: when it cannot be rewritten, the faction keeps its files too.
    const std::string registry = app / "projects/Alpha/misc/factions.ini";
    std::filesystem::permissions(registry, std::filesystem::perms::owner_read);
    EXPECT_THROW(DeleteFaction(app.path(), "Alpha", "li_n_grp", "Navy"), platform::FileError);
    EXPECT_EQ(RegistryBytes(), "[li_n_grp]\r\ngrp=Navy\r\n");
    EXPECT_TRUE(std::filesystem::exists(app / ("projects/Alpha/" + SevenFiles("li_n_grp")[0])));
    std::filesystem::permissions(registry, std::filesystem::perms::owner_all);
    DeleteFaction(app.path(), "Alpha", "li_n_grp", "Navy");
    EXPECT_EQ(RegistryBytes(), "\r\n\r\n\r\n");
    for (const std::string& file : SevenFiles("li_n_grp"))
        EXPECT_FALSE(std::filesystem::exists(app / ("projects/Alpha/" + file))) << file;
    for (const std::string& file : SevenFiles("li_n_grp2"))
        EXPECT_TRUE(std::filesystem::exists(app / ("projects/Alpha/" + file))) << file;
}

TEST(ListFiles, EmptyLinesAreSkippedAndBlankOnesKept) {
    TempFolder dir;
    TempFolder::Write(dir / "Shiplist_x.lst", "one\r\n  \r\n\r\ntwo\r\n\r\n");
    EXPECT_EQ(LoadListFile(dir.path() + "\\shiplist_X.LST"),
              (std::vector<std::string>{"one", "  ", "two"}));
    EXPECT_TRUE(LoadListFile(dir / "none.lst").empty());
    EXPECT_TRUE(FileExists(dir.path() + "\\SHIPLIST_x.lst"));
    EXPECT_FALSE(FileExists(dir.path()));
    EXPECT_FALSE(FileExists(dir / "none.lst"));
}
