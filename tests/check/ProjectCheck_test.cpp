#include "check/ProjectCheck.h"
#include "core/modFunctions.h"
#include "import/Import.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace {

using check::Finding;
using check::Severity;
using check::Store;

const std::vector<std::string> Factions = {"a_grp", "b_grp", "c_grp"};

// A project of three factions with every store complete and every value sound.
class ProjectCheckTest : public ::testing::Test {
protected:
    ProjectCheckTest() {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "P");
        std::string registry, events, props, world;
        for (const std::string& g : Factions) {
            registry += "[" + g + "]\r\ngrp=Group " + g + "\r\n";
            events += "[" + g + "]\r\no_d=-0.1\r\nr_m_s=0.05\r\nr_m_f=-0.02\r\nr_m_a=0\r\n";
            props += "[" + g +
                     "]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
                     "mc_costume=mc_br\r\nscan_chance=0.25\r\nscan_announce=True\r\n";
            world += "[" + g + "]\r\nids_name=1001\r\nids_short_name=1002\r\nids_info=1003\r\n";
            std::string rates;
            for (const std::string& other : Factions) {
                // Both halves of every pair stored, with different values: that is allowed.
                rates += "[" + other + "]\r\nrep=" + (g < other ? "0.5" : "-0.25") + "\r\n";
                world += other + "=" + (g < other ? "0.75" : "1") + "\r\n";
            }
            Write("emphaty/new/reps_" + g + ".facts", rates);
            Write("faction_prop/Shiplist_" + g + ".lst", "br_m_ge_fighter2_d1-4\r\n\r\n");
            Write("faction_prop/Voicelist_" + g + ".lst", "atc_leg_f01\r\nking\r\n\r\n");
            Write("faction_prop/Bodylist_" + g + ".lst",
                  "benchmark_male_head, benchmark_male_body, comm_br_brighton\r\n\r\n");
            Write("faction_prop/Scanlist_" + g + ".lst", "commodity_gold\r\n\r\n");
            Write("faction_prop/Formationlist_" + g + ".lst", "ANY, armored_basic\r\n\r\n");
        }
        Write("misc/factions.ini", registry);
        Write("emphaty/new/grp.ini", events);
        Write("faction_prop/grp.ini", props);
        Write("initialworld/grp.ini", world);
    }

    std::string File(const std::string& piece) const { return app / ("projects/P/" + piece); }
    void Write(const std::string& piece, std::string_view bytes) const {
        TempFolder::Write(File(piece), bytes);
    }
    // Replaces the first occurrence of a text in a project file.
    void Edit(const std::string& piece, std::string_view from, std::string_view to) const {
        std::string bytes = TempFolder::Read(File(piece));
        const std::size_t at = bytes.find(from);
        ASSERT_NE(at, std::string::npos) << piece << " lacks " << from;
        bytes.replace(at, from.size(), to);
        Write(piece, bytes);
    }
    std::vector<Finding> Check() const { return check::CheckProject(app.path(), "P"); }

    // The one finding the check must report, compared field by field.
    void ExpectOnly(Severity severity, Store store, std::string_view faction, std::string_view file,
                    std::string_view where, std::string_view stored,
                    std::string_view messagePart) const {
        const auto findings = Check();
        ASSERT_EQ(findings.size(), 1u) << check::TextReport(findings);
        const Finding& f = findings[0];
        EXPECT_EQ(f.severity, severity) << f.message;
        EXPECT_EQ(f.store, store) << f.message;
        EXPECT_EQ(f.faction, faction);
        EXPECT_EQ(f.file, file);
        EXPECT_EQ(f.where, where);
        EXPECT_EQ(f.stored, stored);
        EXPECT_NE(f.message.find(messagePart), std::string::npos) << f.message;
    }

    TempFolder app;
};

TEST_F(ProjectCheckTest, SoundProjectHasNoFinding) {
    EXPECT_EQ(check::TextReport(Check()), "");
}

TEST_F(ProjectCheckTest, ValuesTheGameReadsAsNumbers) {
    Edit("emphaty/new/grp.ini", "o_d=-0.1", "o_d=0,5");
    ExpectOnly(Severity::Error, Store::Reputation, "a_grp", "emphaty\\new\\grp.ini", "[a_grp] o_d",
               "0,5", "decimal point, not a comma");
    Edit("emphaty/new/grp.ini", "o_d=0,5", "o_d=");
    ExpectOnly(Severity::Error, Store::Reputation, "a_grp", "emphaty\\new\\grp.ini", "[a_grp] o_d",
               "", "is empty");
    Edit("emphaty/new/grp.ini", "o_d=", "o_d=-.5e1");
    EXPECT_TRUE(Check().empty()) << "an exponent and a bare point are numbers";
    // The event value past its range is no reputation: only the number matters there.

    Edit("emphaty/new/reps_b_grp.facts", "rep=0.5", "rep=1.5");
    ExpectOnly(Severity::Error, Store::Reputation, "b_grp", "emphaty\\new\\reps_b_grp.facts",
               "[c_grp] rep", "1.5", "outside -1 to 1");
    Edit("emphaty/new/reps_b_grp.facts", "rep=1.5", "rep=+1");
    EXPECT_TRUE(Check().empty()) << "1 with a sign is still inside";

    Edit("faction_prop/grp.ini", "scan_chance=0.25", "scan_chance=25%");
    ExpectOnly(Severity::Error, Store::FactionProps, "a_grp", "faction_prop\\grp.ini",
               "[a_grp] scan_chance", "25%", "not a number");
    Edit("faction_prop/grp.ini", "scan_chance=25%", "scan_chance=0.25");

    Edit("initialworld/grp.ini", "ids_short_name=1002", "ids_short_name=error");
    ExpectOnly(Severity::Error, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] ids_short_name", "error", "never set");
    Edit("initialworld/grp.ini", "ids_short_name=error", "ids_short_name=10.5");
    ExpectOnly(Severity::Error, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] ids_short_name", "10.5", "not a whole number");
    Edit("initialworld/grp.ini", "ids_short_name=10.5\r\n", "");
    ExpectOnly(Severity::Error, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] ids_short_name", "", "compiles as an empty value");
    Edit("initialworld/grp.ini", "ids_name=1001", "ids_short_name=1002\r\nids_name=1001");

    Edit("initialworld/grp.ini", "c_grp=0.75", "c_grp=-1.01");
    ExpectOnly(Severity::Error, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] c_grp", "-1.01", "outside -1 to 1");
}

TEST_F(ProjectCheckTest, EntriesAndFilesOfUnregisteredFactions) {
    Edit("emphaty/new/reps_a_grp.facts", "[a_grp]", "[gone_grp]\r\nrep=0.1\r\n[a_grp]");
    ExpectOnly(Severity::Warning, Store::Reputation, "a_grp", "emphaty\\new\\reps_a_grp.facts",
               "[gone_grp] rep", "0.1", "left behind by a deleted faction");
    Edit("emphaty/new/reps_a_grp.facts", "[gone_grp]\r\nrep=0.1\r\n", "");

    Edit("initialworld/grp.ini", "ids_info=1003", "ids_info=1003\r\ngone_grp=0.2");
    ExpectOnly(Severity::Warning, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] gone_grp", "0.2", "left behind by a deleted faction");
    Edit("initialworld/grp.ini", "ids_info=1003\r\ngone_grp=0.2", "ids_info=1003");

    Write("emphaty/new/REPS_gone_grp.facts", "[a_grp]\r\nrep=0.1\r\n");
    ExpectOnly(Severity::Warning, Store::Reputation, "gone_grp",
               "emphaty\\new\\REPS_gone_grp.facts", "", "", "not registered");
    std::filesystem::remove(File("emphaty/new/REPS_gone_grp.facts"));

    Write("faction_prop/shiplist_gone_grp.lst", "no_such_ship\r\n");
    ExpectOnly(Severity::Warning, Store::FactionProps, "gone_grp",
               "faction_prop\\shiplist_gone_grp.lst", "", "", "not registered");
    std::filesystem::remove(File("faction_prop/shiplist_gone_grp.lst"));

    // The shared stores keep a deleted faction's section: worth a note, not more.
    Edit("faction_prop/grp.ini", "[a_grp]",
         "[gone_grp]\r\nLegality=bogus\r\nscan_chance=x\r\n[a_grp]");
    ExpectOnly(Severity::Note, Store::FactionProps, "gone_grp", "faction_prop\\grp.ini",
               "[gone_grp]", "", "not registered");
}

TEST_F(ProjectCheckTest, RegisteredFactionsMissingFromAStore) {
    Edit("emphaty/new/grp.ini", "[b_grp]", "[b_grp_old]");
    const auto findings = Check();
    ASSERT_EQ(findings.size(), 2u) << check::TextReport(findings);
    EXPECT_EQ(findings[0].severity, Severity::Note); // the renamed section is nobody's
    EXPECT_EQ(findings[1].severity, Severity::Warning);
    EXPECT_EQ(findings[1].faction, "b_grp");
    EXPECT_EQ(findings[1].where, "[b_grp]");
    EXPECT_NE(findings[1].message.find("compile as \"0.0\""), std::string::npos);
    Edit("emphaty/new/grp.ini", "[b_grp_old]", "[b_grp]");

    std::filesystem::remove(File("emphaty/new/reps_c_grp.facts"));
    ExpectOnly(Severity::Warning, Store::Reputation, "c_grp", "emphaty\\new\\reps_c_grp.facts", "",
               "", "no empathy file");
    Write("emphaty/new/reps_c_grp.facts", "[a_grp]\r\nrep=-0.25\r\n[b_grp]\r\nrep=-0.25\r\n");

    Edit("misc/factions.ini", "grp=Group b_grp\r\n", "");
    ExpectOnly(Severity::Warning, Store::Registry, "b_grp", "misc\\factions.ini", "[b_grp] grp", "",
               "no group");
    Edit("misc/factions.ini", "[b_grp]", "[b_grp]\r\ngrp=[Error]");
    ExpectOnly(Severity::Warning, Store::Registry, "b_grp", "misc\\factions.ini", "[b_grp] grp",
               "[Error]", "placeholder");
}

TEST_F(ProjectCheckTest, ListLinesNoCatalogueHoldsAndBlankLines) {
    Write("faction_prop/Shiplist_a_grp.lst", "br_m_ge_fighter2_d1-4\r\nmy_own_ship\r\n\r\n");
    ExpectOnly(Severity::Warning, Store::FactionProps, "a_grp", "faction_prop\\Shiplist_a_grp.lst",
               "line 2", "my_own_ship", "fine if the mod");
    Write("faction_prop/Shiplist_a_grp.lst", "br_m_ge_fighter2_d1-4\r\n\r\n  \r\n\r\n");
    const auto blanks = Check();
    ASSERT_EQ(blanks.size(), 2u) << check::TextReport(blanks);
    EXPECT_EQ(blanks[0].where, "line 2");
    EXPECT_EQ(blanks[1].where, "line 3");
    EXPECT_EQ(blanks[1].stored, "  ");
    Write("faction_prop/Shiplist_a_grp.lst", "\r\n"); // an empty list is no finding
    EXPECT_TRUE(Check().empty());

    Write("faction_prop/Bodylist_b_grp.lst", "benchmark_male_head, benchmark_male_body\r\n\r\n");
    ExpectOnly(Severity::Warning, Store::FactionProps, "b_grp", "faction_prop\\Bodylist_b_grp.lst",
               "line 1", "benchmark_male_head, benchmark_male_body", "head, body and accessory");
    Write("faction_prop/Formationlist_b_grp.lst", "ANY, armored_basic\r\nANY, wedge\r\n\r\n");
    Write("faction_prop/Bodylist_b_grp.lst", "\r\n");
    ExpectOnly(Severity::Warning, Store::FactionProps, "b_grp",
               "faction_prop\\Formationlist_b_grp.lst", "line 2", "ANY, wedge", "\"wedge\"");
}

TEST_F(ProjectCheckTest, ValuesCutByTheReadLimitOrHoldingTheLineBreakEscape) {
    const std::string longName(255, 'x');
    Edit("faction_prop/grp.ini", "Legality=lawful",
         "Legality=lawful\r\nlarge_ship_names=" + longName);
    ExpectOnly(Severity::Warning, Store::FactionProps, "a_grp", "faction_prop\\grp.ini",
               "[a_grp] large_ship_names", longName, "255 bytes");
    Edit("faction_prop/grp.ini", "x\r\n", "\r\n"); // 254 bytes: read whole
    EXPECT_TRUE(Check().empty());
    Edit("faction_prop/grp.ini", "large_ship_names=" + std::string(254, 'x'),
         "large_ship_names=a/20&\\b");
    const auto escaped = Check();
    ASSERT_EQ(escaped.size(), 1u) << check::TextReport(escaped);
    EXPECT_EQ(escaped[0].severity, Severity::Error);
    EXPECT_NE(escaped[0].message.find("split"), std::string::npos);
}

TEST_F(ProjectCheckTest, NicknamesThatDifferOnlyInLetterCase) {
    Edit("misc/factions.ini", "[c_grp]", "[B_grp]\r\ngrp=Again\r\n[c_grp]");
    ExpectOnly(Severity::Error, Store::Registry, "B_grp", "misc\\factions.ini", "[B_grp]", "",
               "only in letter case");
}

TEST_F(ProjectCheckTest, MirrorPairsWithOneHalfMissingAreNotes) {
    Edit("emphaty/new/reps_c_grp.facts", "[a_grp]\r\nrep=-0.25\r\n", "");
    ExpectOnly(Severity::Note, Store::Reputation, "c_grp", "emphaty\\new\\reps_c_grp.facts",
               "[a_grp] rep", "", "rate back is \"0.5\"");
    // A missing half against a stored "0.0" compiles alike on both sides.
    Edit("emphaty/new/reps_a_grp.facts", "[c_grp]\r\nrep=0.5", "[c_grp]\r\nrep=0.0");
    EXPECT_TRUE(Check().empty());

    Edit("initialworld/grp.ini", "b_grp=0.75\r\n", "");
    ExpectOnly(Severity::Note, Store::InitialWorld, "a_grp", "initialworld\\grp.ini",
               "[a_grp] b_grp", "", "one back is \"1\"");
}

TEST_F(ProjectCheckTest, CheckChangesNoByteOnDisk) {
    Edit("emphaty/new/grp.ini", "o_d=-0.1", "o_d=0,5");
    Edit("initialworld/grp.ini", "ids_info=1003", "ids_info=error");
    Write("faction_prop/shiplist_gone_grp.lst", "x\r\n");
    Edit("misc/factions.ini", "grp=Group b_grp\r\n", "");
    const auto snapshot = [this] {
        std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(app.path()))
            files[entry.path().string()] = {
                entry.is_regular_file() ? TempFolder::Read(entry.path().string()) : "",
                entry.last_write_time()};
        return files;
    };
    const auto before = snapshot();
    EXPECT_TRUE(check::HasError(Check()));
    EXPECT_EQ(snapshot(), before);
}

TEST_F(ProjectCheckTest, MissingProjectFolderIsAnErrorAndEmptyProjectHasNoFinding) {
    EXPECT_THROW(check::CheckProject(app.path(), "Nope"), std::exception);
    modFunctions::CreateProjectFolders(app.path(), "Empty");
    EXPECT_TRUE(check::CheckProject(app.path(), "Empty").empty());
}

TEST(ProjectCheckLibrary, ShippedLibraryImportedWholeHasNoFinding) {
    TempFolder app;
    std::filesystem::copy(ORRINDEL_TEST_DATA_DIR, app / "data",
                          std::filesystem::copy_options::recursive);
    modFunctions::EnsureProjectsFolder(app.path());
    modFunctions::CreateProjectFolders(app.path(), "P");
    const auto result =
        importer::ImportAllOriginalFactions(app.path(), modFunctions::ProjectPath(app.path(), "P"));
    ASSERT_GT(result.imported.size(), 40u);
    EXPECT_EQ(check::TextReport(check::CheckProject(app.path(), "P")), "");
}

TEST(ProjectCheckReport, TextAndJsonForms) {
    const std::vector<Finding> findings = {
        {Severity::Error, Store::Reputation, "a_grp", "emphaty\\new\\grp.ini", "[a_grp] o_d", "0,5",
         "The event value \"0,5\" is not a number."},
        {Severity::Note, Store::Registry,
         "K\xE4"
         "fer",
         "misc\\factions.ini", "", "a\tb\r\n", "Two\tfields."},
    };
    EXPECT_EQ(check::TextReport(findings),
              "error\ta_grp\temphaty\\new\\grp.ini\t[a_grp] o_d\tThe event value \"0,5\" is not "
              "a number.\n"
              "note\tK\xE4"
              "fer\tmisc\\factions.ini\t\tTwo fields.\n");
    EXPECT_EQ(check::JsonReport(findings),
              "[\n"
              "  {\"severity\": \"error\", \"faction\": \"a_grp\", \"file\": "
              "\"emphaty\\\\new\\\\grp.ini\", \"where\": \"[a_grp] o_d\", \"stored\": \"0,5\", "
              "\"message\": \"The event value \\\"0,5\\\" is not a number.\"},\n"
              "  {\"severity\": \"note\", \"faction\": \"K\xE4"
              "fer\", \"file\": "
              "\"misc\\\\factions.ini\", \"where\": \"\", \"stored\": \"a\\u0009b\\u000d\\u000a\", "
              "\"message\": \"Two\\u0009fields.\"}\n"
              "]\n");
    EXPECT_EQ(check::JsonReport({}), "[]\n");
    EXPECT_TRUE(check::HasError(findings));
    EXPECT_FALSE(check::HasError({findings[1]}));
}

} // namespace

TEST_F(ProjectCheckTest, FilesOfAFactionNamedBeyondAsciiAreRead) {
    const std::string nick = "K\xE4"
                             "fer"; // its files are named in UTF-8 on disk
    Edit("misc/factions.ini", "[a_grp]", "[" + nick + "]\r\ngrp=Beetles\r\n[a_grp]");
    Write("emphaty/new/reps_K\xC3\xA4"
          "fer.facts",
          "[a_grp]\r\nrep=2\r\n");
    Write("faction_prop/Shiplist_K\xC3\xA4"
          "fer.lst",
          "no_such_ship\r\n\r\n");
    std::map<std::string, std::string> byFile; // file -> messages of the faction's findings
    for (const Finding& f : Check())
        if (f.faction == nick)
            byFile[f.file] += f.message + "\n";
    EXPECT_NE(byFile["emphaty\\new\\reps_K\xE4"
                     "fer.facts"]
                  .find("outside -1 to 1"),
              std::string::npos);
    EXPECT_NE(byFile["faction_prop\\Shiplist_K\xE4"
                     "fer.lst"]
                  .find("No catalogue holds \"no_such_ship\""),
              std::string::npos);
}
