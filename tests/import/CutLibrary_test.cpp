#include "LibraryFixture.h"
#include "core/FolderOperations.h"
#include "core/platformBasics.h"
#include "factionprops/FactionPropCompiler.h"
#include "import/CutLibrary.h"
#include "import/Import.h"
#include "initialworld/InitialWorldCompiler.h"
#include "reputation/EmphatyCompiler.h"
#include "support/TestProject.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace importer;

namespace {

void CompileAll(const std::string& project, const std::vector<std::string>& factions) {
    reputation::CompileEmphaty(project, factions, factions);
    factionprops::CompileFactionProp(project, factions);
    initialworld::CompileInitialWorld(project, factions, factions);
}

std::string Compiled(const std::string& project, const char* name) {
    return txtReadWrite::ReadFileText(project + "\\compiled\\" + name);
}

} // namespace

// Refused or repeated names write nothing; a cut that fails part-way removes the folders it
// made.
TEST(CutLibrary, ARefusedOrFailedCutLeavesNothingBehind) {
    TempFolder temp;
    TempFolder::Write(temp / "e.ini", "[RepChangeEffects]\r\ngroup = a_grp\r\n"
                                      "[RepChangeEffects]\r\ngroup = A_GRP\r\n");
    TempFolder::Write(temp / "f.ini", "[FactionProps]\r\naffiliation = x:y\r\n");
    TempFolder::Write(temp / "w.ini", "[Group]\r\nnickname = li.n_grp\r\n");
    // 101 letters "\xE9" are 202 bytes as a file name.
    TempFolder::Write(temp / "long.ini", "[Group]\r\nnickname = " + std::string(101, '\xE9'));
    EXPECT_THROW(CutLibrary(temp / "lib", {temp / "e.ini", {}, {}}), CutError);
    EXPECT_THROW(CutLibrary(temp / "lib", {{}, temp / "f.ini", {}}), CutError);
    EXPECT_THROW(CutLibrary(temp / "lib", {{}, {}, temp / "w.ini"}), CutError);
    try {
        CutLibrary(temp / "lib", {{}, {}, temp / "long.ini"});
        ADD_FAILURE() << "a name too long on disk was cut";
    } catch (const CutError& error) {
        EXPECT_NE(std::string(error.what()).find("longer than 200 bytes"), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(temp / "lib"));
    TempFolder::Write(temp / "e.ini", "[RepChangeEffects]\r\ngroup = a_grp\r\n");
    TempFolder::Write(temp / "f.ini", "[FactionProps]\r\naffiliation = a_grp\r\n");
    std::filesystem::create_directory(temp.path() + "/lib");
    // A file where the second library folder must go: the first is made before that fails.
    TempFolder::Write(temp / "lib/faction_prop", "");
    EXPECT_THROW(CutLibrary(temp / "lib", {temp / "e.ini", temp / "f.ini", {}}),
                 platform::FileError);
    EXPECT_TRUE(platform::ListFolder(temp / "lib", platform::EntryKind::Folders).empty());
}

// Compile a project, cut a library from the three files, import it all into a new project
// whose registry then follows the library's order, compile again: the same three files.
TEST(CutLibrary, RoundTripGivesTheSameCompiledFiles) {
    const std::vector<std::string> factions = {"Ab_grp", "cd_grp", "ef_grp"};
    TestProject source;
    source.Fill(factions);
    const std::string p = source.Folder();
    CompileAll(p, factions);

    LibraryFixture target;
    const auto cut = CutLibrary(target.app.path() + "/data",
                                {p + "\\compiled\\emphaty.ini", p + "\\compiled\\faction_prop.ini",
                                 p + "\\compiled\\initialworld.ini"});
    EXPECT_EQ(cut.reputation, factions);
    const auto result = ImportAllOriginalFactions(target.app.path(), target.Folder());
    EXPECT_EQ(result.imported, factions);
    EXPECT_TRUE(result.refused.empty());
    CompileAll(target.Folder(), factions);
    for (const char* name : {"emphaty.ini", "faction_prop.ini", "initialworld.ini"})
        EXPECT_EQ(Compiled(target.Folder(), name), Compiled(p, name)) << name;
}
