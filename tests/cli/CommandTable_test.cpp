// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CliRunner.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

const cli::Command* Listed(std::string_view name) {
    for (const cli::Command& command : cli::Commands())
        if (command.name == name)
            return &command;
    return nullptr;
}

class CommandTable : public ::testing::Test, protected CliRunner {
protected:
    using CliRunner::Run; // not the test's own Run
    CommandTable() { appDir = app.path(); }
    TempFolder app;
};

// A command's file is named after it (cmd_add_faction.cpp holds add-faction), so a file whose
// command the table forgot shows up here, as does a command missing from the help.
TEST_F(CommandTable, EveryCommandFileIsListedAndTheHelpShowsItsSynopsis) {
    std::ostringstream listing;
    ASSERT_EQ(cli::Run({"--help"}, listing, err), cli::Ok);
    const std::string help = listing.str();
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ORRINDEL_CLI_SOURCE_DIR)) {
        const std::string file = entry.path().filename().string();
        if (!file.starts_with("cmd_") || !file.ends_with(".cpp"))
            continue;
        ++files;
        std::string name = file.substr(4, file.size() - 8);
        std::replace(name.begin(), name.end(), '_', '-');
        const cli::Command* command = Listed(name);
        ASSERT_NE(command, nullptr) << file << " is not in the command table";
        const std::string head = "\n  " + name + " " + std::string(command->arguments);
        const auto line = help.find(head);
        ASSERT_NE(line, std::string::npos) << name;
        const std::string tail = "  " + std::string(command->summary) + "\n";
        EXPECT_EQ(help.find(tail, line), help.find('\n', line + 1) + 1 - tail.size()) << name;

        EXPECT_EQ(Run({name, "--help"}), cli::Ok);
        EXPECT_EQ(out.str(), "usage: orrindel-cli " + name + " " + std::string(command->arguments) +
                                 "\n  " + std::string(command->summary) + "\n");
    }
    EXPECT_EQ(files, cli::Commands().size());
}

} // namespace
