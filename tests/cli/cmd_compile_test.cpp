// SPDX-License-Identifier: GPL-3.0-or-later
// The compile command end to end, and its game files compiled side by side when only some of
// them fail.
#include "cli/CliRunner.h"
#include "core/RunTogether.h"
#include "support/TestProject.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

namespace {

struct GameFile {
    const char* name;     // on the command line
    const char* output;   // in the project
    const char* protocol; // the line a successful compile adds
};
const GameFile Files[] = {
    {"emphaty", "compiled/emphaty.ini", "Emphaty.ini compiled..."},
    {"faction_prop", "compiled/faction_prop.ini", "Faction_Prop.ini created..."},
    {"initialworld", "compiled/initialworld.ini", "Initialworld.ini created..."},
};

// The protocol's entries that name a game file, in the order they were written.
std::vector<std::string> ProtocolLines(const TestProject& project) {
    std::vector<std::string> lines;
    std::istringstream text(project.Read("Protocol/protocol.txt"));
    for (std::string line; std::getline(text, line);)
        for (const GameFile& file : Files)
            if (line.find(file.protocol) != std::string::npos)
                lines.push_back(file.protocol);
    return lines;
}

TEST(CompileCommand, OnlyTheFilesWrittenGetProtocolLinesInTheUsualOrderAndEveryFailureIsTold) {
    // Indices into Files of the game files whose output cannot be replaced: a folder stands
    // where each of them belongs.
    const std::vector<std::vector<int>> failing = {{}, {0}, {1}, {2}, {0, 2}, {0, 1, 2}};
    for (const auto& fail : failing) {
        TestProject project;
        project.Fill({"a", "b"});
        // A large empathy file of a's makes the first game file finish long after the others,
        // so the protocol shows whether its lines follow the usual order or the finishing one.
        std::string slow = project.Read("emphaty/new/reps_a.facts");
        for (int i = 0; i < 60000; ++i)
            slow += "[other" + std::to_string(i) + "]\r\nrep=0.1\r\n";
        project.Write("emphaty/new/reps_a.facts", slow);
        for (const int i : fail)
            std::filesystem::create_directory(project.File(Files[i].output));
        CliRunner cli;
        cli.appDir = project.app.path();

        const int exit = cli.Run({"compile", "P"});

        const std::string context = "failing " + std::to_string(fail.size());
        EXPECT_EQ(exit, fail.empty() ? 0 : 2) << context << cli.err.str();
        std::vector<std::string> expected;
        for (int i = 0; i < 3; ++i) {
            const bool failed = std::find(fail.begin(), fail.end(), i) != fail.end();
            const std::string name = std::filesystem::path(Files[i].output).filename().string();
            EXPECT_EQ(cli.err.str().find(name) != std::string::npos, failed)
                << context << " " << name << ": " << cli.err.str();
            EXPECT_EQ(std::filesystem::is_regular_file(project.File(Files[i].output)), !failed)
                << context << " " << name;
            if (!failed)
                expected.push_back(Files[i].protocol);
        }
        EXPECT_EQ(ProtocolLines(project), expected) << context;
    }
    // Named game files alone are compiled, in the order named.
    TestProject project;
    project.Fill({"a"});
    CliRunner cli;
    cli.appDir = project.app.path();
    ASSERT_EQ(cli.Run({"compile", "p", "initialworld", "faction_prop"}), 0) << cli.err.str();
    EXPECT_EQ(ProtocolLines(project),
              (std::vector<std::string>{Files[2].protocol, Files[1].protocol}));
    EXPECT_EQ(cli.Run({"compile", "P", "emphaty", "world"}), 1);
    EXPECT_FALSE(project.Exists(Files[0].output));
}

TEST(RunTogether, EveryJobRunsToItsEndAndEachFailureStaysWithItsJob) {
    // Failures on this thread and on the others, first and last.
    for (const std::vector<bool>& fails :
         std::vector<std::vector<bool>>{{}, {true, false, true}, {false, true, false, true}}) {
        std::vector<int> ran(fails.size(), 0);
        std::vector<std::function<void()>> jobs;
        for (std::size_t i = 0; i < fails.size(); ++i)
            jobs.emplace_back([&, i] {
                ran[i] = 1;
                if (fails[i])
                    throw std::runtime_error("job " + std::to_string(i));
            });
        const auto failures = together::Run(jobs);
        ASSERT_EQ(failures.size(), fails.size());
        for (std::size_t i = 0; i < fails.size(); ++i) {
            EXPECT_EQ(ran[i], 1) << i;
            ASSERT_EQ(failures[i] != nullptr, fails[i]) << i;
            if (fails[i])
                try {
                    std::rethrow_exception(failures[i]);
                } catch (const std::runtime_error& e) {
                    EXPECT_EQ(std::string(e.what()), "job " + std::to_string(i));
                }
        }
    }
}

} // namespace
