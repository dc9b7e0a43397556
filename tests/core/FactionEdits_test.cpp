// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FactionEdits.h"
#include "core/modFunctions.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>

namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>; // path below the project -> bytes

// Three factions. li_n_grp is named in other letter cases in a third faction's files (n: the
// registry's spelling, m and k: others); its ship list's prefix is spelled in capitals on disk.
Files Project(const std::string& n, const std::string& m, const std::string& k) {
    return {
        {"misc/factions.ini", "[" + n +
                                  "]\r\ngrp=Liberty\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n"
                                  "[co_x_grp]\r\ngrp=Corsairs\r\n"},
        {"emphaty/new/grp.ini", "[" + n + "]\r\no_d=-0.3\r\nr_m_s=0.1\r\n[fc_b_grp]\r\no_d=-0.5"},
        {"emphaty/new/reps_" + n + ".facts",
         "[" + n + "]\r\nrep=0.9\r\n[fc_b_grp]\r\nrep=-0.6\r\n"},
        {"emphaty/new/reps_fc_b_grp.facts", "[ " + m + " ]\r\nrep=-0.7\r\n[fc_b_grp]\r\nrep=1\r\n"},
        {"emphaty/new/reps_co_x_grp.facts", "[fc_b_grp]\r\nrep=0.2\r\n"},
        {"emphaty/new/" + n + ".tmp", "[" + n + "]\r\nscratch\r\n"},
        {"faction_prop/grp.ini", "[" + n + "]\r\nLegality=lawful\r\nmsg_id_prefix=li_n_\r\n"},
        {"faction_prop/SHIPLIST_" + n + ".lst", "ship_a\r\n\r\n"},
        {"faction_prop/Voicelist_" + n + ".lst", "voice_" + n + "\r\n\r\n"},
        {"initialworld/grp.ini", "[" + n + "]\r\nids_name=100\r\n" + n +
                                     "=1\r\nfc_b_grp=-0.6\r\n"
                                     "[fc_b_grp]\r\nids_name=200\r\n" +
                                     k +
                                     " = -0.65\r\n\r\n"
                                     "[co_x_grp]\r\nids_name=300\r\n"},
        {"Protocol/protocol.txt", "Original imported: li_n_grp\r\n\r\n"},
        {"compiled/emphaty.ini", "[Group]\r\nnickname = li_n_grp\r\n"},
    };
}
const Files Before = Project("li_n_grp", "LI_N_GRP", "Li_N_Grp");

class FactionEditsTest : public ::testing::Test {
protected:
    FactionEditsTest() { Reset(); }
    void Reset() {
        fs::remove_all(app / "projects");
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "P");
        for (const auto& [path, bytes] : Before)
            TempFolder::Write(Path(path), bytes);
    }
    std::string Path(const std::string& piece) const {
        return fs::path(app / "projects/P").append(piece).string();
    }
    Files Snapshot() const {
        Files files;
        const fs::path root = app / "projects/P";
        for (const auto& entry : fs::recursive_directory_iterator(root))
            if (entry.is_regular_file())
                files[fs::relative(entry.path(), root).generic_string()] =
                    TempFolder::Read(entry.path().string());
        return files;
    }
    void Rename(std::string_view from, std::string_view to) {
        factionEdits::RenameFaction(app.path(), "p", from, to);
    }
    void Duplicate(std::string_view from, std::string_view to,
                   factionEdits::Relations relations = factionEdits::Relations::Copied,
                   std::optional<std::string_view> group = std::nullopt) {
        factionEdits::DuplicateFaction(app.path(), "p", from, to, group, relations);
    }
    TempFolder app;
};

// The faction is found in any case; every header and starting-reputation key naming it, in any
// case, is spelled anew in place; its own files keep the rest of their name as on disk; the
// protocol and the compiled files stay.
TEST_F(FactionEditsTest, RenameSpellsEveryReferenceAnewAndNothingElse) {
    struct Case {
        const char* given;
        const char* renamed;
    };
    for (const Case& c : {Case{"li_n_grp", "li_x_grp"}, Case{"LI_N_GRP", "Li_X_Grp"},
                          Case{"li_n_grp", "LI_N_GRP"}}) {
        Reset();
        Rename(c.given, c.renamed);
        Files expected = Project(c.renamed, c.renamed, c.renamed);
        expected["faction_prop/Voicelist_" + std::string(c.renamed) + ".lst"] =
            "voice_li_n_grp\r\n\r\n"; // values are never touched
        expected["emphaty/new/" + std::string(c.renamed) + ".tmp"] =
            Before.at("emphaty/new/li_n_grp.tmp");
        expected["Protocol/protocol.txt"] = Before.at("Protocol/protocol.txt");
        expected["compiled/emphaty.ini"] = Before.at("compiled/emphaty.ini");
        EXPECT_EQ(Snapshot(), expected) << c.given << " -> " << c.renamed;
    }
}

// The copy holds the source's own values and nothing the source lacks; toward each other the
// two hold what the source holds toward itself; with relations the third factions' rates
// toward the source are given toward the copy.
TEST_F(FactionEditsTest, DuplicateCopiesTheSourcesValuesAndOptionallyItsRelations) {
    using factionEdits::Relations;
    Files copied = Before;
    copied["misc/factions.ini"] += "[li_c_grp]\r\ngrp=Liberty\r\n";
    copied["emphaty/new/grp.ini"] += "\r\n[li_c_grp]\r\no_d=-0.3\r\nr_m_s=0.1\r\n";
    copied["emphaty/new/reps_li_n_grp.facts"] += "[li_c_grp]\r\nrep=0.9\r\n";
    copied["emphaty/new/reps_li_c_grp.facts"] = copied["emphaty/new/reps_li_n_grp.facts"];
    copied["faction_prop/grp.ini"] += "[li_c_grp]\r\nLegality=lawful\r\nmsg_id_prefix=li_n_\r\n";
    copied["faction_prop/SHIPLIST_li_c_grp.lst"] = Before.at("faction_prop/SHIPLIST_li_n_grp.lst");
    copied["faction_prop/Voicelist_li_c_grp.lst"] =
        Before.at("faction_prop/Voicelist_li_n_grp.lst");
    copied["initialworld/grp.ini"] = "[li_n_grp]\r\nids_name=100\r\nli_n_grp=1\r\nfc_b_grp=-0.6\r\n"
                                     "li_c_grp=1\r\n"
                                     "[fc_b_grp]\r\nids_name=200\r\nLi_N_Grp = -0.65\r\n\r\n"
                                     "[co_x_grp]\r\nids_name=300\r\n"
                                     "[li_c_grp]\r\nids_name=100\r\nli_n_grp=1\r\nfc_b_grp=-0.6\r\n"
                                     "li_c_grp=1\r\n";
    Files related = copied;
    related["emphaty/new/reps_fc_b_grp.facts"] += "[li_c_grp]\r\nrep=-0.7\r\n";
    related["initialworld/grp.ini"] =
        "[li_n_grp]\r\nids_name=100\r\nli_n_grp=1\r\nfc_b_grp=-0.6\r\n"
        "li_c_grp=1\r\n"
        "[fc_b_grp]\r\nids_name=200\r\nLi_N_Grp = -0.65\r\n"
        "li_c_grp=-0.65\r\n\r\n"
        "[co_x_grp]\r\nids_name=300\r\n"
        "[li_c_grp]\r\nids_name=100\r\nli_n_grp=1\r\nfc_b_grp=-0.6\r\n"
        "li_c_grp=1\r\n";
    Files regrouped = related;
    regrouped["misc/factions.ini"] =
        Before.at("misc/factions.ini") + "[li_c_grp]\r\ngrp=Copies\r\n";
    // A source without event values, list files or a rate toward itself gives none of them.
    Files sparse = Before;
    sparse["misc/factions.ini"] += "[co_y_grp]\r\ngrp=Corsairs\r\n";
    sparse["emphaty/new/reps_co_y_grp.facts"] = Before.at("emphaty/new/reps_co_x_grp.facts");
    sparse["initialworld/grp.ini"] += "[co_y_grp]\r\nids_name=300\r\n";

    struct Case {
        const char* source;
        const char* copy;
        Relations relations;
        std::optional<std::string_view> group;
        const Files& expected;
    };
    for (const Case& c : {Case{"li_n_grp", "li_c_grp", Relations::Left, {}, copied},
                          Case{"LI_N_GRP", "li_c_grp", Relations::Copied, {}, related},
                          Case{"li_n_grp", "li_c_grp", Relations::Copied, "Copies", regrouped},
                          Case{"co_x_grp", "co_y_grp", Relations::Copied, {}, sparse}}) {
        Reset();
        Duplicate(c.source, c.copy, c.relations, c.group);
        EXPECT_EQ(Snapshot(), c.expected) << c.source << " " << static_cast<int>(c.relations);
    }
}

// Every refusal says why and leaves every byte as it was.
TEST_F(FactionEditsTest, RefusalsSayWhyAndChangeNothing) {
    // Leftovers of a deleted faction: a section in a grp.ini, and a list file.
    TempFolder::Write(Path("initialworld/grp.ini"),
                      Before.at("initialworld/grp.ini") + "[old_grp]\r\nids_name=1\r\n");
    TempFolder::Write(Path("faction_prop/scanlist_gone_grp.lst"), "\r\n");
    const Files before = Snapshot();
    struct Case {
        std::function<void()> edit;
        const char* why;
    };
    const Case cases[] = {
        {[&] { Rename("xx_grp", "yy_grp"); }, "\"xx_grp\" is not registered"},
        {[&] { Rename("li_n_grp", "bad=name"); }, "\"bad=name\" is refused"},
        {[&] { Rename("li_n_grp", "FC_B_GRP"); }, "registered already as \"fc_b_grp\""},
        {[&] { Rename("li_n_grp", "old_grp"); }, "still holds data for \"old_grp\""},
        {[&] { Rename("li_n_grp", "gone_grp"); }, "scanlist_gone_grp.lst exists already"},
        {[&] { Duplicate("xx_grp", "yy_grp"); }, "\"xx_grp\" is not registered"},
        {[&] { Duplicate("li_n_grp", "Li_N_Grp"); }, "registered already as \"li_n_grp\""},
        {[&] { Duplicate("li_n_grp", "co_x_grp"); }, "\"co_x_grp\" is registered already"},
        {[&] { Duplicate("li_n_grp", "old_grp"); }, "still holds data for \"old_grp\""},
        {[&] { Duplicate("li_n_grp", "gone_grp"); }, "exists already"},
        {[&] { Duplicate("li_n_grp", ""); }, "is refused"},
    };
    for (const Case& c : cases) {
        try {
            c.edit();
            ADD_FAILURE() << "not refused: " << c.why;
        } catch (const factionEdits::Refused& refused) {
            EXPECT_NE(std::string(refused.what()).find(c.why), std::string::npos) << refused.what();
        }
        EXPECT_EQ(Snapshot(), before) << c.why;
    }
}

} // namespace
