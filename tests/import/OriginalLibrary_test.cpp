// SPDX-License-Identifier: GPL-3.0-or-later
#include "LibraryFixture.h"
#include "import/OriginalLibrary.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace importer;

namespace {

// Pairs as "first=second;" in their order.
template <class Entries, class First, class Second>
std::string Pairs(const Entries& entries, First first, Second second) {
    std::string text;
    for (const auto& entry : entries)
        text += entry.*first + "=" + entry.*second + ";";
    return text;
}

} // namespace

TEST(ReadOriginalReputation, ReadsEventAndEmpathyLinesByPositionAndCase) {
    const auto reputation = ParseOriginalReputation(
        Lines({"[RepChangeEffects]", "event = object_destruction, -0.1",
               "emphaty_rate = li_p_grp, 0.25", "event = bogus, 1",
               "event = object_destruction, -0.2",   // the same event again: both are kept
               " event = random_mission_success, 9", // a blank before the key
               "Event = random_mission_failure, 9",  // a capital letter
               "event =random_mission_failure, 0.3", // cut one character too far
               "empathy_x_yz = br_n_grp,0.5",        // no blank after the comma
               "emphaty_rate = li_p_grp, 0.3", "emphaty_rate = gd_z_grp, "}),
        "entry");
    EXPECT_EQ(reputation.group, "[Error]");
    // The same event or nickname twice: both are kept; ", " with nothing after: empty.
    EXPECT_EQ(Pairs(reputation.events, &EventEntry::name, &EventEntry::value),
              "object_destruction=-0.1;bogus=1;object_destruction=-0.2;andom_mission_failure=0.3;");
    EXPECT_EQ(Pairs(reputation.empathy, &EmpathyEntry::nickname, &EmpathyEntry::value),
              "li_p_grp=0.25;br_n_grp=.5;li_p_grp=0.3;gd_z_grp=;");
}

TEST(OriginalLibraryValidation, MalformedRecognisedLinesAreNamedByLine) {
    enum Kind { Rep, Props, World };
    const struct {
        Kind kind;
        std::string text;
        long line; // -1: accepted
    } cases[] = {
        {Rep, Lines({"[RepChangeEffects]", "event = object_destruction -0.1"}), 2},
        {Rep, Lines({"", "", "emphaty_rate = li_n_grp,"}), 3},
        {Rep, Lines({"emphaty_rate"}), 1},
        {Rep, Lines({"eventful"}), 1}, // shorter than "event = " plus nothing
        {Props, Lines({"[FactionProps]", "voice ="}), 2},
        {Props, Lines({"[FactionProps]", "voice = ", "formation_desig"}), -1},
        {World, Lines({"[Group]", "ids_name = 1", "rep = 0.5"}), 3},
        {World, Lines({"[Group]", "rep"}), 2},
    };
    for (const auto& c : cases) {
        long line = -1;
        try {
            if (c.kind == Rep)
                ParseOriginalReputation(c.text, "entry");
            else if (c.kind == Props)
                ParseOriginalFactionProps(c.text, "entry");
            else
                ParseOriginalInitialWorld(c.text, "entry");
        } catch (const LibraryError& error) {
            EXPECT_EQ(error.file(), "entry");
            EXPECT_NE(std::string(error.what()).find("line " + std::to_string(error.line())),
                      std::string::npos);
            line = error.line();
        }
        EXPECT_EQ(line, c.line) << c.text;
    }
}

TEST(ListOriginalFactions, OnlyFilesWithoutADotSortedIgnoringCase) {
    TempFolder temp;
    for (const char* name : {"b_grp", "A_grp", "c_grp.bak", "readme.txt", "a_grp2"})
        TempFolder::Write(temp / name, "x");
    std::filesystem::create_directory(temp / "sub");
    EXPECT_EQ(ListOriginalFactions(temp.path()),
              (std::vector<std::string>{"A_grp", "a_grp2", "b_grp"}));
    EXPECT_TRUE(ListOriginalFactions(temp / "missing").empty());
    EXPECT_THROW(ReadOriginalInitialWorld(temp / "none"), LibraryError);
}
