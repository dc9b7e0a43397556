// SPDX-License-Identifier: GPL-3.0-or-later
#include "LibraryFixture.h"
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
