// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(ReputationFilesTest, AnEditStoresTheColumnAndTheMirrorAsRowByRowWritesWould) {
    TempFolder app;
    modFunctions::EnsureProjectsFolder(app.path());
    modFunctions::CreateProjectFolders(app.path(), "Mod");
    const std::string folder = modFunctions::ProjectPath(app.path(), "Mod");
    // An imported file: no own section, and a section in another letter case than the row.
    const std::string imported = "[B]\r\nrep=0.2\r\n[C]\r\nrep=-0.1\r\n\r\n";
    for (const char* file : {"reps_A.facts", "reps_X.facts", "reps_c.facts"})
        TempFolder::Write(app / "projects/Mod/emphaty/new/" + file, imported);
    const std::vector<std::string> rows = {"A", "c", "B", "D"};
    const std::vector<std::string> rates = {"0.0", "0.5", "0.2", "x\r\ny"};

    reputation::StoreEditedRate(folder, "A", rows, rates, 1, "-0.7", true);
    std::vector<std::string> shown = rates;
    shown[1] = "-0.7";
    for (std::size_t i = 0; i < rows.size(); ++i)
        txtReadWrite::WriteIni(rows[i], "rep", shown[i], reputation::EmpathyFile(folder, "X"));

    const auto read = [&](const std::string& file) {
        return TempFolder::Read(app / "projects/Mod/emphaty/new/" + file);
    };
    EXPECT_EQ(read("reps_A.facts"), read("reps_X.facts"));
    EXPECT_EQ(read("reps_c.facts"), imported + "[A]\r\nrep=-0.7\r\n");
    EXPECT_EQ(reputation::ReadRates(reputation::EmpathyFile(folder, "A"), rows), shown);
    EXPECT_THROW(reputation::StoreEditedRate(folder, "A", rows, rates, 4, "v", false),
                 std::invalid_argument);
}

} // namespace
