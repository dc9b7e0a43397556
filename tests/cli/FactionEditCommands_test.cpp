// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class FactionEditCommandsTest : public ::testing::Test, protected CliRunner {
protected:
    using CliRunner::Run;
    FactionEditCommandsTest() {
        appDir = app.path();
        fs::copy(ORRINDEL_TEST_DATA_DIR, app / "data", fs::copy_options::recursive);
        EXPECT_EQ(Run({"create", "P"}), 0);
        EXPECT_EQ(Run({"import", "P", "br_m_grp", "br_n_grp", "co_alg_grp"}), 0) << err.str();
    }
    std::string File(const std::string& piece) const {
        return TempFolder::Read(app / ("projects/P/" + piece));
    }
    // The three compiled game files, as the compile command writes them now.
    std::string Compiled() {
        EXPECT_EQ(Run({"compile", "P"}), 0) << err.str();
        return File("compiled/emphaty.ini") + File("compiled/faction_prop.ini") +
               File("compiled/initialworld.ini");
    }
    static std::string Replaced(std::string text, const std::string& from, const std::string& to) {
        for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at))
            text.replace(at, from.size(), to), at += to.size();
        return text;
    }
    TempFolder app;
};

// Compiling after a rename gives the files compiled before it with the nickname replaced, the
// registry's order kept; renaming back gives them exactly.
TEST_F(FactionEditCommandsTest, CompilingAfterARenameGivesTheSameFilesWithTheNewNickname) {
    const std::string before = Compiled();
    ASSERT_NE(before.find("br_n_grp"), std::string::npos);
    EXPECT_EQ(Run({"rename-faction", "p", "BR_N_GRP", "br_q_grp"}), 0) << err.str();
    EXPECT_EQ(Compiled(), Replaced(before, "br_n_grp", "br_q_grp"));
    EXPECT_EQ(Run({"factions", "P"}), 0);
    EXPECT_EQ(out.str().find("br_q_grp"), out.str().find('\n') + 1); // still second
    EXPECT_EQ(Run({"rename-faction", "P", "br_q_grp", "br_n_grp"}), 0) << err.str();
    EXPECT_EQ(Compiled(), before);
}

TEST_F(FactionEditCommandsTest, ExitCodesAndMessagesSayWhatHappened) {
    struct Case {
        std::vector<std::string> args;
        int exit;
        const char* said; // on stderr
    };
    // Why a refusal is refused is the core's test; here its exit code and message.
    const Case cases[] = {
        {{"duplicate-faction", "P", "br_m_grp", "x", "g", "--relations"}, 1, "usage"},
        {{"rename-faction", "P", "br_m_grp", "BR_N_GRP"}, 2, "registered already"},
        {{"rename-faction", "Q", "br_m_grp", "x"}, 2, "no project \"Q\""},
    };
    const std::string registry = File("misc/factions.ini");
    for (const Case& c : cases) {
        EXPECT_EQ(Run(c.args), c.exit) << c.said;
        EXPECT_NE(err.str().find(c.said), std::string::npos) << err.str();
        EXPECT_EQ(File("misc/factions.ini"), registry) << c.said;
    }
    // The group given, and the relations left: no third faction's file names the copy.
    const std::string rates = File("emphaty/new/reps_br_n_grp.facts");
    EXPECT_EQ(Run({"duplicate-faction", "P", "br_m_grp", "br_x_grp", "Copies", "--no-relations"}),
              0)
        << err.str();
    EXPECT_EQ(File("misc/factions.ini"), registry + "[br_x_grp]\r\ngrp=Copies\r\n");
    EXPECT_EQ(File("emphaty/new/reps_br_n_grp.facts"), rates);
    EXPECT_EQ(Run({"duplicate-faction", "P", "br_m_grp", "br_y_grp"}), 0) << err.str();
    EXPECT_NE(File("emphaty/new/reps_br_n_grp.facts"), rates);
}

} // namespace
