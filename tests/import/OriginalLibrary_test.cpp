#include "import/OriginalLibrary.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace importer;

namespace {

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

long LineOfError(std::string_view text, auto parse) {
    try {
        parse(text, std::string("entry"));
    } catch (const LibraryError& error) {
        EXPECT_EQ(error.file(), "entry");
        EXPECT_NE(std::string(error.what()).find("line " + std::to_string(error.line())),
                  std::string::npos);
        return error.line();
    }
    return -1;
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
    ASSERT_EQ(reputation.events.size(), 4u);
    EXPECT_EQ(reputation.events[0].name, "object_destruction");
    EXPECT_EQ(reputation.events[0].value, "-0.1");
    EXPECT_EQ(reputation.events[1].name, "bogus");
    EXPECT_EQ(reputation.events[2].value, "-0.2");
    EXPECT_EQ(reputation.events[3].name, "andom_mission_failure");
    ASSERT_EQ(reputation.empathy.size(), 4u);
    EXPECT_EQ(reputation.empathy[0].nickname, "li_p_grp");
    EXPECT_EQ(reputation.empathy[0].value, "0.25");
    EXPECT_EQ(reputation.empathy[1].value, ".5");
    EXPECT_EQ(reputation.empathy[2].nickname, "li_p_grp"); // the same nickname twice: both kept
    EXPECT_EQ(reputation.empathy[3].value, "");            // ", " with nothing after: empty
}

TEST(ReadOriginalReputation, ReadsTheGroupAsAnIniValueAndOnlySixtyLines) {
    std::string text = Lines({"[RepChangeEffects]", "group   =   the group  "});
    for (int line = 3; line <= 59; ++line)
        text += "; filler\r\n";
    text += "event = object_destruction, -0.5\r\n"; // line 60
    text += "event = random_mission_success, 0.5\r\nnot a rule: no comma\r\n";
    text += "emphaty_rate = x\r\n"; // malformed, but past the lines read
    const auto reputation = ParseOriginalReputation(text, "entry");
    EXPECT_EQ(reputation.group, "the group");
    ASSERT_EQ(reputation.events.size(), 1u);
    EXPECT_EQ(reputation.events[0].value, "-0.5");
}

TEST(ReadOriginalFactionProps, SingleValuesAndFiveListsByPrefix) {
    const auto props = ParseOriginalFactionProps(
        Lines({"[FactionProps]", "affiliation = x_grp", "legality = lawful",
               "formation_desig = 100, 101", "formation = fighters, fighter_basic",
               "npc_ship = ship_a", "voice = ", "space_costume = h, b, c",
               "scan_for_cargo = commodity_gold", " npc_ship = skipped", "NPC_SHIP = skipped",
               "npc_ship =  two blanks "}),
        "entry");
    EXPECT_EQ(props.values[0], "lawful");
    EXPECT_EQ(props.values[8], "100, 101"); // formation_desig
    EXPECT_EQ(props.values[12], "");        // scan_chance missing
    EXPECT_EQ(props.ships, (std::vector<std::string>{"ship_a", " two blanks "}));
    EXPECT_EQ(props.voices, (std::vector<std::string>{""}));
    EXPECT_EQ(props.bodyParts, (std::vector<std::string>{"h, b, c"}));
    EXPECT_EQ(props.scans, (std::vector<std::string>{"commodity_gold"}));
    EXPECT_EQ(props.formations, (std::vector<std::string>{"fighters, fighter_basic"}));
}

TEST(ReadOriginalInitialWorld, ValueComesBeforeTheNickname) {
    const auto world = ParseOriginalInitialWorld(
        Lines({"[Group]", "nickname = x_grp", "ids_name = 1", "ids_short_name = 3",
               "rep = 0.5, li_n_grp", "rep = -0.2,br_n_grp", " rep = 9, skipped"}),
        "entry");
    EXPECT_EQ(world.idsName, "1");
    EXPECT_EQ(world.idsInfo, "");
    EXPECT_EQ(world.idsShortName, "3");
    ASSERT_EQ(world.reputations.size(), 2u);
    EXPECT_EQ(world.reputations[0].value, "0.5");
    EXPECT_EQ(world.reputations[0].nickname, "li_n_grp");
    EXPECT_EQ(world.reputations[1].nickname, "r_n_grp");
}

TEST(OriginalLibraryValidation, MalformedRecognisedLinesAreNamedByLine) {
    const auto rep = [](std::string_view t, const std::string& p) {
        ParseOriginalReputation(t, p);
    };
    const auto fp = [](std::string_view t, const std::string& p) {
        ParseOriginalFactionProps(t, p);
    };
    const auto iw = [](std::string_view t, const std::string& p) {
        ParseOriginalInitialWorld(t, p);
    };
    EXPECT_EQ(LineOfError(Lines({"[RepChangeEffects]", "event = object_destruction -0.1"}), rep),
              2);
    EXPECT_EQ(LineOfError(Lines({"", "", "emphaty_rate = li_n_grp,"}), rep), 3);
    EXPECT_EQ(LineOfError(Lines({"emphaty_rate"}), rep), 1);
    EXPECT_EQ(LineOfError(Lines({"eventful"}), rep), 1); // shorter than "event = " plus nothing
    EXPECT_EQ(LineOfError(Lines({"[FactionProps]", "voice ="}), fp), 2);
    EXPECT_EQ(LineOfError(Lines({"[Group]", "ids_name = 1", "rep = 0.5"}), iw), 3);
    EXPECT_EQ(LineOfError(Lines({"[Group]", "rep"}), iw), 2);
    EXPECT_EQ(LineOfError(Lines({"[FactionProps]", "voice = ", "formation_desig"}), fp), -1);
}

TEST(OriginalLibraryValidation, AMissingFileIsRefused) {
    TempFolder temp;
    EXPECT_THROW(ReadOriginalInitialWorld(temp / "none"), LibraryError);
}

TEST(ListOriginalFactions, OnlyFilesWithoutADotSortedIgnoringCase) {
    TempFolder temp;
    for (const char* name : {"b_grp", "A_grp", "c_grp.bak", "readme.txt", "a_grp2"})
        TempFolder::Write(temp / name, "x");
    std::filesystem::create_directory(temp / "sub");
    EXPECT_EQ(ListOriginalFactions(temp.path()),
              (std::vector<std::string>{"A_grp", "a_grp2", "b_grp"}));
    EXPECT_TRUE(ListOriginalFactions(temp / "missing").empty());
}

TEST(ListOriginalFactions, TheShippedLibraryKeepsItsInvariant) {
    const std::string data = ORRINDEL_TEST_DATA_DIR;
    const auto reputation = ListOriginalFactions(data + "/emphaty/original_factions");
    EXPECT_EQ(reputation.size(), 43u);
    EXPECT_EQ(ListOriginalFactions(data + "/faction_prop/original_factions"), reputation);
    EXPECT_EQ(ListOriginalFactions(data + "/initialworld/original_factions"), reputation);
    for (const std::string& name : reputation) {
        const auto rep = ReadOriginalReputation(data + "/emphaty/original_factions/" + name);
        EXPECT_EQ(rep.events.size(), 4u) << name;
        EXPECT_EQ(rep.empathy.size(), 42u) << name;
        const auto world =
            ReadOriginalInitialWorld(data + "/initialworld/original_factions/" + name);
        EXPECT_EQ(world.reputations.size(), 43u) << name;
        // Every faction has all fourteen property keys and all five lists.
        const auto props =
            ReadOriginalFactionProps(data + "/faction_prop/original_factions/" + name);
        for (const std::string& value : props.values)
            EXPECT_FALSE(value.empty()) << name;
        for (const auto* list :
             {&props.ships, &props.voices, &props.bodyParts, &props.scans, &props.formations})
            EXPECT_FALSE(list->empty()) << name;
    }
}
