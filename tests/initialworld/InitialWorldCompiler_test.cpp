#include "core/IniDocument.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "initialworld/InitialWorld.h"
#include "initialworld/InitialWorldCompiler.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

// The comment block byte for byte: the German line holds two u-umlauts as single 0xFC bytes.
const std::string Header =
    "//Warning: The Orrindel 2.0 can't know your (modded) system properties.\r\n"
    "//Add these above the reputationlist before you use this file\r\n"
    "\r\n"
    "//Achtung: Der Orrindel 2.0 kann deine (gemoddeten) Systemeigenschaften nicht wissen.\r\n"
    "//F\xFC"
    "ge diese \xFC"
    "ber die Reputation-Liste ein, bevor du diese Datei benutzt.\r\n";
const std::string FourEmptyLines = "\r\n\r\n\r\n\r\n";
const std::string FinalEmptyLine = "\r\n";

class InitialWorldCompilerTest : public ::testing::Test {
protected:
    void SetUp() override {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "Mod");
        folder = modFunctions::ProjectPath(app.path(), "Mod");
    }
    std::string OutputPath() const { return app / "projects/Mod/compiled/initialworld.ini"; }
    std::string Output() const { return TempFolder::Read(OutputPath()); }
    void Data(std::string_view bytes) const {
        TempFolder::Write(app / "projects/Mod/initialworld/grp.ini", bytes);
    }

    TempFolder app;
    std::string folder;
};

TEST_F(InitialWorldCompilerTest, ProjectWithoutFactionsGivesCommentBlockAndEmptyLinesOnly) {
    initialworld::CompileInitialWorld(folder, {}, {});
    EXPECT_EQ(Output(), Header + FourEmptyLines + FinalEmptyLine);
}

TEST_F(InitialWorldCompilerTest, GermanCommentLineIsWindows1252NotUtf8) {
    initialworld::CompileInitialWorld(folder, {}, {});
    const std::string bytes = Output();
    EXPECT_NE(bytes.find("//F\xFCge diese \xFC"
                         "ber die"),
              std::string::npos);
    EXPECT_EQ(bytes.find("\xC3\xBC"), std::string::npos);
}

TEST_F(InitialWorldCompilerTest, NeverEditedFactionGetsEmptyIdsAndDefaultReputationTowardEveryRow) {
    Data("[li_police]\r\nids_name=196846\r\n");
    initialworld::CompileInitialWorld(folder, {"fresh"}, {"li_police", "fresh"});
    EXPECT_EQ(Output(), Header + FourEmptyLines +
                            "[Group]\r\n"
                            "nickname = fresh\r\n"
                            "ids_name = \r\n"
                            "ids_info = \r\n"
                            "ids_short_name = \r\n"
                            "rep = 0.0, li_police\r\n"
                            "rep = 0.0, fresh\r\n"
                            "\r\n" +
                            FinalEmptyLine);
}

TEST_F(InitialWorldCompilerTest, SectionsFollowFactionOrderWithStoredTextCopiedUnchanged) {
    // Keys out of order in the file, a hand-written blank around "=", the editor's "error"
    // write-back, a line-break escape, and case differences between keys and nicknames.
    Data("[Li_Police]\r\n"
         "ids_short_name=error\r\n"
         "ids_info=error\r\n"
         "ids_name=error\r\n"
         "LI_POLICE=1\r\n"
         "rh_grp = -0.65\r\n"
         "[rh_grp]\r\n"
         "ids_name=1/20&\\2\r\n"
         "ids_info=+0.30\r\n"
         "li_police=-0.9\r\n");
    initialworld::CompileInitialWorld(folder, {"rh_grp", "li_police"}, {"li_police", "rh_grp"});
    EXPECT_EQ(Output(), Header + FourEmptyLines +
                            "[Group]\r\n"
                            "nickname = rh_grp\r\n"
                            "ids_name = 1\r\n2\r\n"
                            "ids_info = +0.30\r\n"
                            "ids_short_name = \r\n"
                            "rep = -0.9, li_police\r\n"
                            "rep = 0.0, rh_grp\r\n"
                            "\r\n"
                            "[Group]\r\n"
                            "nickname = li_police\r\n"
                            "ids_name = error\r\n"
                            "ids_info = error\r\n"
                            "ids_short_name = error\r\n"
                            "rep = 1, li_police\r\n"
                            "rep = -0.65, rh_grp\r\n"
                            "\r\n" +
                            FinalEmptyLine);
}

TEST_F(InitialWorldCompilerTest, SecondRunReplacesOutputWithTheSameBytes) {
    Data("[a]\r\nids_name=1\r\nb=0.5\r\n");
    initialworld::CompileInitialWorld(folder, {"a", "b"}, {"a", "b"});
    const std::string first = Output();
    initialworld::CompileInitialWorld(folder, {"a", "b"}, {"a", "b"});
    EXPECT_EQ(Output(), first);
}

TEST_F(InitialWorldCompilerTest, FailedWriteLeavesPreviousOutputWhole) {
    initialworld::CompileInitialWorld(folder, {}, {});
    const std::string previous = Output();
    std::filesystem::permissions(OutputPath(), std::filesystem::perms::owner_read);
    Data("[a]\r\nids_name=1\r\n");
    EXPECT_THROW(initialworld::CompileInitialWorld(folder, {"a"}, {"a"}), platform::FileError);
    EXPECT_EQ(Output(), previous);
}

TEST_F(InitialWorldCompilerTest, MissingCompiledFolderThrowsAndWritesNothing) {
    std::filesystem::remove(app / "projects/Mod/compiled");
    EXPECT_THROW(initialworld::CompileInitialWorld(folder, {"a"}, {"a"}), platform::FileError);
    EXPECT_FALSE(std::filesystem::exists(OutputPath()));
}

TEST(InitialWorldCompilerProgress, ReportsFactionsAndRowsInWalkOrder) {
    std::string trace;
    initialworld::CompileProgress progress;
    progress.started = [&](std::size_t n) { trace += "S" + std::to_string(n); };
    progress.factionStarted = [&](std::size_t n) { trace += " F" + std::to_string(n); };
    progress.rowDone = [&](std::size_t j) { trace += " r" + std::to_string(j); };
    progress.factionDone = [&](std::size_t i) { trace += " D" + std::to_string(i); };
    initialworld::CompiledText(IniDocument(), {"a", "b"}, {"a", "b", "c"}, progress);
    EXPECT_EQ(trace, "S2 F3 r1 r2 r3 D1 F3 r1 r2 r3 D2");
}

} // namespace
