#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(ReputationFilesTest, StoringAColumnEqualsRowByRowWrites) {
    TempFolder app;
    modFunctions::EnsureProjectsFolder(app.path());
    modFunctions::CreateProjectFolders(app.path(), "Mod");
    const std::string folder = modFunctions::ProjectPath(app.path(), "Mod");
    // An imported file: no own section, and a section in another letter case than the row.
    const std::string imported = "[B]\r\nrep=0.2\r\n[C]\r\nrep=-0.1\r\n\r\n";
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_A.facts", imported);
    TempFolder::Write(app / "projects/Mod/emphaty/new/reps_X.facts", imported);
    const std::vector<std::string> rows = {"A", "c", "B", "D"};
    const std::vector<std::string> rates = {"0.0", "0.5", "0.2", "x\r\ny"};

    reputation::StoreRates(reputation::EmpathyFile(folder, "A"), rows, rates);
    for (std::size_t i = 0; i < rows.size(); ++i)
        txtReadWrite::WriteIni(rows[i], "rep", rates[i], reputation::EmpathyFile(folder, "X"));

    EXPECT_EQ(TempFolder::Read(app / "projects/Mod/emphaty/new/reps_A.facts"),
              TempFolder::Read(app / "projects/Mod/emphaty/new/reps_X.facts"));
    EXPECT_EQ(reputation::ReadRates(reputation::EmpathyFile(folder, "A"), rows), rates);
}

} // namespace
