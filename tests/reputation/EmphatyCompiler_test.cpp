#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "reputation/EmphatyCompiler.h"
#include "reputation/ReputationFiles.h"
#include "support/TestProject.h"

#include <filesystem>
#include <gtest/gtest.h>
namespace {

class EmphatyCompilerTest : public ::testing::Test {
protected:
    std::string Output() const { return project.Read("compiled/emphaty.ini"); }
    bool OutputExists() const { return project.Exists("compiled/emphaty.ini"); }

    TestProject project{"Mod"};
    TempFolder& app = project.app;
    const std::string folder = project.Folder();
};

const std::string BlockA = "[RepChangeEffects]\r\n"
                           "group = A\r\n"
                           "event = object_destruction, -0.3\r\n"
                           "event = random_mission_success, 0.1\r\n"
                           "event = random_mission_failure, 0.0\r\n"
                           "event = random_mission_abortion, 0.0\r\n"
                           "emphaty_rate = B, -0.65\r\n";

// B was never edited or imported: every value falls back to 0.0.
const std::string BlockB = "[RepChangeEffects]\r\n"
                           "group = B\r\n"
                           "event = object_destruction, 0.0\r\n"
                           "event = random_mission_success, 0.0\r\n"
                           "event = random_mission_failure, 0.0\r\n"
                           "event = random_mission_abortion, 0.0\r\n"
                           "emphaty_rate = A, 0.0\r\n";

TEST_F(EmphatyCompilerTest, TwoFactionsGiveTheirBlocksBetweenBlankLinesAndSkipOwnRow) {
    const std::string events = reputation::EventFile(folder);
    txtReadWrite::WriteIni("A", "o_d", "-0.3", events);
    txtReadWrite::WriteIni("A", "r_m_s", "0.1", events);
    txtReadWrite::WriteIni("A", "rep", "0.9", reputation::EmpathyFile(folder, "A")); // ignored
    txtReadWrite::WriteIni("A", "rep", "0.7", reputation::EmpathyFile(folder, "A"));
    txtReadWrite::WriteIni("B", "rep", "-0.65", reputation::EmpathyFile(folder, "A"));

    reputation::CompileEmphaty(folder, {"A", "B"}, {"A", "B"});
    EXPECT_EQ(Output(), "\r\n\r\n" + BlockA + "\r\n" + "\r\n\r\n" + BlockB + "\r\n");
    // A second run replaces the file rather than adding to it.
    reputation::CompileEmphaty(folder, {"A", "B"}, {"A", "B"});
    EXPECT_EQ(Output(), "\r\n\r\n" + BlockA + "\r\n" + "\r\n\r\n" + BlockB + "\r\n");
}

TEST_F(EmphatyCompilerTest, NamesDifferingOnlyInCaseEachGetALineTowardTheOther) {
    reputation::CompileEmphaty(folder, {"pirates", "Pirates"}, {"pirates", "Pirates"});
    const std::string text = Output();
    EXPECT_NE(text.find("0.0\r\nemphaty_rate = Pirates, 0.0\r\n\r\n\r\n\r\n[Rep"),
              std::string::npos);
    EXPECT_NE(text.find("0.0\r\nemphaty_rate = pirates, 0.0\r\n\r\n"), std::string::npos);
}

TEST_F(EmphatyCompilerTest, NoFactionsDeletesTheOldOutputAndWritesNothing) {
    TempFolder::Write(app / "projects/Mod/compiled/emphaty.ini", "old");
    reputation::CompileEmphaty(folder, {}, {});
    EXPECT_FALSE(OutputExists());
    reputation::CompileEmphaty(folder, {}, {}); // nothing to delete is fine too
    EXPECT_FALSE(OutputExists());
}

TEST_F(EmphatyCompilerTest, ValuesAreCopiedAsStoredAndTheLineBreakEscapeSplitsALine) {
    const std::string events = reputation::EventFile(folder);
    txtReadWrite::WriteIni("A", "o_d", "x\r\ny", events); // stored as x/20&\y
    txtReadWrite::WriteIni("A", "r_m_s", "", events);
    txtReadWrite::WriteIni("A", "r_m_f", "high", events);
    txtReadWrite::WriteIni("B", "rep", "0.50", reputation::EmpathyFile(folder, "A"));

    reputation::CompileEmphaty(folder, {"A"}, {"A", "B"});
    EXPECT_EQ(Output(), "\r\n\r\n"
                        "[RepChangeEffects]\r\n"
                        "group = A\r\n"
                        "event = object_destruction, x\r\n"
                        "y\r\n"
                        "event = random_mission_success, \r\n"
                        "event = random_mission_failure, high\r\n"
                        "event = random_mission_abortion, 0.0\r\n"
                        "emphaty_rate = B, 0.50\r\n"
                        "\r\n");
}

TEST_F(EmphatyCompilerTest, ALeftoverScratchFileOfACompiledFactionIsDeleted) {
    TempFolder::Write(app / "projects/Mod/emphaty/new/A.tmp", "[RepChangeEffects]\r\n");
    TempFolder::Write(app / "projects/Mod/emphaty/new/\xC3\x84.TMP", "half a block");
    TempFolder::Write(app / "projects/Mod/emphaty/new/other.tmp", "not ours to judge");
    reputation::CompileEmphaty(folder, {"A", "\xE4"}, {"A", "\xE4"});
    EXPECT_FALSE(std::filesystem::exists(app / "projects/Mod/emphaty/new/A.tmp"));
    EXPECT_FALSE(std::filesystem::exists(app / "projects/Mod/emphaty/new/\xC3\x84.TMP"));
    EXPECT_TRUE(std::filesystem::exists(app / "projects/Mod/emphaty/new/other.tmp"));
}

TEST_F(EmphatyCompilerTest, AFailedCompileKeepsThePreviousOutput) {
    const std::string output = app / "projects/Mod/compiled/emphaty.ini";
    TempFolder::Write(output, "previous");
    std::filesystem::permissions(output, std::filesystem::perms::owner_read); // read-only
    EXPECT_THROW(reputation::CompileEmphaty(folder, {"A"}, {"A"}), platform::FileError);
    EXPECT_EQ(Output(), "previous");
}

} // namespace
