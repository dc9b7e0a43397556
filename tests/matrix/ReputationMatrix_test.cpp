// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/ReputationMatrix.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>

namespace {

using matrix::Kind;
using matrix::Store;

class ReputationMatrixTest : public ::testing::Test {
protected:
    ReputationMatrixTest() {
        // A: its own row, a section in another letter case, an out-of-range and a word.
        project.Write("emphaty/new/reps_A.facts",
                      "[A]\r\nrep=1.5\r\n[b]\r\nrep=-0.5\r\n[\xC4]\r\nrep=friendly\r\n");
        // B: an escaped line break, a blank value; \xC4 has no file at all.
        project.Write("emphaty/new/reps_B.facts",
                      "[A]\r\nrep=  0.3 \r\n[B]\r\nrep=\r\n[\xC4]\r\nrep=a/20&\\b\r\n");
        project.Write("initialworld/grp.ini",
                      "[A]\r\nids_name=1\r\nB=0.9\r\n[B]\r\nA=-1\r\nb=+.5\r\n"
                      "[\xC4]\r\nA=1,0\r\n");
    }
    // Each cell as "value" or "-" when not stored, row by row.
    static std::vector<std::string> Cells(const matrix::Matrix& m) {
        std::vector<std::string> cells;
        for (std::size_t r = 0; r < m.Size(); ++r)
            for (std::size_t c = 0; c < m.Size(); ++c)
                cells.push_back(m.IsStored(r, c) ? m.Value(r, c) : "-");
        return cells;
    }

    TestProject project{"Mod"};
    const std::string folder = project.Folder();
    const std::vector<std::string> factions = {"A", "B", "\xC4"};
};

TEST_F(ReputationMatrixTest, CellsAreWhatAReadOfEachStoreReturns) {
    const auto rates = matrix::Load(Store::Emphaty, folder, factions);
    EXPECT_EQ(Cells(rates), (std::vector<std::string>{"1.5", "-0.5", "friendly", //
                                                      "0.3", "", "a\r\nb",       //
                                                      "-", "-", "-"}));
    const auto world = matrix::Load(Store::InitialWorld, folder, factions);
    EXPECT_EQ(Cells(world), (std::vector<std::string>{"-", "0.9", "-",  //
                                                      "-1", "+.5", "-", //
                                                      "1,0", "-", "-"}));
}

// Which texts are numbers is the number rule's test; here the scale and the missing value.
TEST(ReputationMatrix, ValuesReadOnTheScaleAsTheGameReadsNumbers) {
    EXPECT_EQ(matrix::Read("", false).kind, Kind::Missing);
    EXPECT_EQ(matrix::Read("+.5", true).number, 0.5);
    for (const char* text : {"-1.0", "1"})
        EXPECT_EQ(matrix::Read(text, true).kind, Kind::Number) << text;
    for (const char* text : {"1.01", "-7"})
        EXPECT_EQ(matrix::Read(text, true).kind, Kind::OutOfRange) << text;
    EXPECT_EQ(matrix::Read("0,5", true).kind, Kind::NotANumber);
}

TEST_F(ReputationMatrixTest, EditsLeaveTheMatrixAsAFreshLoadReadsIt) {
    for (const Store store : {Store::Emphaty, Store::InitialWorld}) {
        auto m = matrix::Load(store, folder, factions);
        matrix::Edit(store, folder, m, 2, 0, " -0.25", true); // stored as typed, read trimmed
        matrix::Edit(store, folder, m, 0, 1, "0.7", false);
        matrix::Edit(store, folder, m, 1, 1, "x", true); // its own row: one entry
        EXPECT_EQ(Cells(m), Cells(matrix::Load(store, folder, factions)));
        EXPECT_EQ(m.Value(2, 0), "-0.25");
        EXPECT_EQ(m.Value(0, 2), "-0.25");
        EXPECT_EQ(m.Value(0, 1), "0.7");
        EXPECT_EQ(m.Value(1, 1), "x");
    }
    // The reputation page stores its whole column: missing rates as "0.0". Names on disk are
    // UTF-8.
    EXPECT_EQ(project.Read("emphaty/new/reps_\xC3\x84.facts"),
              "[A]\r\nrep= -0.25\r\n[B]\r\nrep=0.0\r\n[\xC4]\r\nrep=0.0\r\n");
    EXPECT_EQ(project.Read("initialworld/grp.ini"),
              "[A]\r\nids_name=1\r\nB=0.7\r\n\xC4= -0.25\r\n[B]\r\nA=-1\r\nb=x\r\n[\xC4]\r\nA= "
              "-0.25\r\n");
}

// Numbers compare by value (how is the number rule's test); a missing entry is not a blank one.
TEST(ReputationMatrix, AsymmetryComparesNumbersByValueAndAMissingEntryApart) {
    matrix::Matrix m({"A", "B", "C"});
    m.Set(0, 1, "0.5");
    m.Set(1, 0, "0.50");
    EXPECT_FALSE(matrix::Differ(m, 0, 1));
    EXPECT_FALSE(matrix::Differ(m, 0, 2)); // neither stored
    m.Set(2, 0, "");
    EXPECT_TRUE(matrix::Differ(m, 0, 2)); // stored blank against missing
    m.Set(1, 0, "-0.5");
    EXPECT_TRUE(matrix::Differ(m, 0, 1));
}

} // namespace
