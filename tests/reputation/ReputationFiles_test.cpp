#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

class ReputationFilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "Mod");
        folder = modFunctions::ProjectPath(app.path(), "Mod");
    }
    TempFolder app;
    std::string folder;
};

TEST_F(ReputationFilesTest, PathsFollowTheProjectLayout) {
    EXPECT_EQ(reputation::EventFile("P"), "P\\emphaty\\new\\grp.ini");
    EXPECT_EQ(reputation::EmpathyFile("P", "li_n_grp"), "P\\emphaty\\new\\reps_li_n_grp.facts");
    EXPECT_EQ(reputation::CompiledFile("P"), "P\\compiled\\emphaty.ini");
}

TEST_F(ReputationFilesTest, MissingValuesReadAsZeroAndStoredOnesAsWritten) {
    const std::string events = reputation::EventFile(folder);
    auto values = reputation::ReadEvents(events, "A");
    EXPECT_EQ(values, (std::array<std::string, 4>{"0.0", "0.0", "0.0", "0.0"}));
    reputation::WriteEvent(events, "A", 3, "-0.25");
    reputation::WriteEvent(events, "A", 0, "abc");
    values = reputation::ReadEvents(events, "a"); // sections match without regard to case
    EXPECT_EQ(values, (std::array<std::string, 4>{"abc", "0.0", "0.0", "-0.25"}));
    EXPECT_EQ(TempFolder::Read(app / "projects/Mod/emphaty/new/grp.ini"),
              "[A]\r\nr_m_a=-0.25\r\no_d=abc\r\n");
}

TEST_F(ReputationFilesTest, StoringAColumnEqualsRowByRowWrites) {
    // An imported file: own section missing, one section in a different order.
    const std::string imported = "[B]\r\nrep=0.2\r\n[C]\r\nrep=-0.1\r\n\r\n";
    const std::string one = reputation::EmpathyFile(folder, "A");
    const std::string other = reputation::EmpathyFile(folder, "X");
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_A.facts", imported);
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_X.facts", imported);
    const std::vector<std::string> rows = {"A", "c", "B", "D"};
    const std::vector<std::string> rates = {"0.0", "0.5", "0.2", "x\r\ny"};

    reputation::StoreRates(one, rows, rates);
    for (std::size_t i = 0; i < rows.size(); ++i)
        txtReadWrite::WriteIni(rows[i], "rep", rates[i], other);

    const std::string expected = TempFolder::Read(app / "projects/Mod/emphaty/new/reps_X.facts");
    EXPECT_EQ(TempFolder::Read(app / "projects/Mod/emphaty/new/reps_A.facts"), expected);
    EXPECT_EQ(reputation::ReadRates(one, rows),
              (std::vector<std::string>{"0.0", "0.5", "0.2", "x\r\ny"}));
    EXPECT_EQ(reputation::ReadRates(reputation::EmpathyFile(folder, "none"), {"A", "B"}),
              (std::vector<std::string>{"0.0", "0.0"}));
}

TEST_F(ReputationFilesTest, AFailedColumnStoreLeavesNoFile) {
    const std::string missingFolder = modFunctions::ProjectPath(app.path(), "Gone");
    EXPECT_THROW(reputation::StoreRates(reputation::EmpathyFile(missingFolder, "A"), {"A"}, {"1"}),
                 IniWriteError);
}

} // namespace
