// SPDX-License-Identifier: GPL-3.0-or-later
// Every command that writes, run once to count its file calls, then once for every N with
// the Nth call failing, as a full disk (ENOSPC) and as a failing device (EIO) would make it:
// the failure is reported, every project file holds its bytes from before the command or
// from after it, and the next successful command leaves no temporary file behind.
#include "cli/CliRunner.h"
#include "core/FileReplacement.h"
#include "core/modFunctions.h"
#include "reputation/ReputationFiles.h"
#include "support/NthCallFails.h"
#include "support/TempFolder.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <optional>
#include <set>

namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>; // path below the app folder -> bytes

bool IsTemporary(const fs::path& path) {
    return path.filename().string().starts_with(".orrindel-");
}

Files Snapshot(const std::string& appDir) {
    Files files;
    for (const auto& entry : fs::recursive_directory_iterator(appDir + "/projects"))
        if (entry.is_regular_file() && !IsTemporary(entry.path()))
            files[entry.path().string().substr(appDir.size())] =
                TempFolder::Read(entry.path().string());
    return files;
}

std::vector<std::string> Temporaries(const std::string& appDir) {
    std::vector<std::string> found;
    for (const auto& entry : fs::recursive_directory_iterator(appDir))
        if (IsTemporary(entry.path()))
            found.push_back(entry.path().string());
    return found;
}

bool IsProtocol(const std::string& path) {
    return path.ends_with(platform::HostPath("/protocol.txt"));
}

// The texts of a protocol's entries ("<date>    <time>: <text>", then two line ends); nullopt
// when the bytes are not whole entries.
std::optional<std::multiset<std::string>> EntryTexts(std::string_view bytes) {
    std::multiset<std::string> texts;
    while (!bytes.empty()) {
        const auto end = bytes.find("\r\n\r\n");
        const auto colon = bytes.substr(0, end).find(": ");
        if (end == std::string_view::npos || colon == std::string_view::npos)
            return std::nullopt;
        texts.emplace(bytes.substr(colon + 2, end - colon - 2));
        bytes.remove_prefix(end + 4);
    }
    return texts;
}

// What may be on disk after a failed command: each file as before or as after; the protocol
// as before with some of the command's whole entries added; a compiled game file may also be
// absent. Returns what is wrong, empty when nothing is.
std::string Judge(const Files& before, const Files& after, const Files& now) {
    std::set<std::string> paths;
    for (const Files* files : {&before, &after, &now})
        for (const auto& [path, bytes] : *files)
            paths.insert(path);
    const auto in = [](const Files& files, const std::string& path) -> std::optional<std::string> {
        const auto it = files.find(path);
        return it == files.end() ? std::nullopt : std::optional(it->second);
    };
    std::string wrong;
    for (const std::string& path : paths) {
        const auto was = in(before, path), will = in(after, path), is = in(now, path);
        if (is == was || is == will)
            continue;
        if (!is && path.find("/compiled/") != std::string::npos)
            continue;
        if (IsProtocol(path) && is && is->starts_with(was.value_or(""))) {
            const auto added = EntryTexts(std::string_view(*is).substr(was.value_or("").size()));
            const auto allowed = EntryTexts(
                std::string_view(will.value_or(""))
                    .substr(std::min(was.value_or("").size(), will.value_or("").size())));
            if (added && allowed &&
                std::includes(allowed->begin(), allowed->end(), added->begin(), added->end()))
                continue;
        }
        wrong += path + " holds \"" + is.value_or("<absent>").substr(0, 200) + "\"\n";
    }
    return wrong;
}

// A command in the app folder: its exit code and what it said on failure.
struct Outcome {
    int code;
    std::string message;
};
using Command = std::function<Outcome(const std::string& appDir)>;

// An orrindel-cli command; "@" at the start of an argument stands for the app folder.
Command Cli(std::vector<std::string> args) {
    return [args](const std::string& appDir) {
        CliRunner cli;
        cli.appDir = appDir;
        std::vector<std::string> given = args;
        for (std::string& arg : given)
            if (arg.starts_with('@'))
                arg = appDir + arg.substr(1);
        const int code = cli.Run(given);
        return Outcome{code, cli.err.str()};
    };
}

// A page edit through the core call the window makes: one rate edited in the rate table.
Outcome EditRate(const std::string& appDir) {
    try {
        reputation::StoreEditedRate(modFunctions::ProjectPath(appDir, "Sweep"), "own_grp",
                                    {"own_grp", "br_m_grp"}, {"0.0", "0.0"}, 1, "0.5", true);
        return {0, {}};
    } catch (const std::exception& error) {
        return {2, error.what()};
    }
}

// An event value chosen on the reputation page.
Outcome EditEvent(const std::string& appDir) {
    try {
        reputation::WriteEvent(reputation::EventFile(modFunctions::ProjectPath(appDir, "Sweep")),
                               "own_grp", 2, "-0.3");
        return {0, {}};
    } catch (const std::exception& error) {
        return {2, error.what()};
    }
}

void CopyFolder(const std::string& from, const std::string& to) {
    fs::remove_all(to);
    fs::copy(from, to, fs::copy_options::recursive);
}

TEST(WriteFailureSweep, EveryFailingFileCallLeavesEachProjectFileBeforeOrAfter) {
    // In memory where the system has a memory file system: the sweep makes and removes tens of
    // thousands of files, which a disk busy with other work turns into minutes.
    const fs::path memory = "/dev/shm";
    TempFolder temp(fs::is_directory(memory) ? memory : fs::temp_directory_path());
    const std::string app = temp / "app", work = temp / "work";
    // A library of three entries keeps the project small and the sweep quick.
    for (const char* folder : {"emphaty", "faction_prop", "initialworld"}) {
        const std::string library = "/" + std::string(folder) + "/original_factions";
        fs::create_directories(app + "/data" + library);
        for (const char* entry : {"br_m_grp", "br_n_grp", "co_alg_grp"})
            fs::copy_file(std::string(ORRINDEL_TEST_DATA_DIR) + library + "/" + entry,
                          app + "/data" + library + "/" + entry);
    }
    fs::create_directories(app + "/projects");
    const std::vector<std::pair<std::string, Command>> commands = {
        {"create", Cli({"create", "Sweep"})},
        {"add-faction", Cli({"add-faction", "Sweep", "own_grp", "Own"})},
        {"import", Cli({"import", "Sweep", "br_m_grp"})},
        {"import-all", Cli({"import-all", "Sweep"})},
        {"edit rate", EditRate},
        {"edit event", EditEvent},
        {"ini-set",
         Cli({"ini-set", "@/projects/Sweep/misc/factions.ini", "own_grp", "Rep", "0.25"})},
        {"compile emphaty", Cli({"compile", "Sweep", "emphaty"})},
        {"compile faction_prop", Cli({"compile", "Sweep", "faction_prop"})},
        {"compile initialworld", Cli({"compile", "Sweep", "initialworld"})},
        {"compile", Cli({"compile", "Sweep"})},
        {"rename-faction", Cli({"rename-faction", "Sweep", "br_m_grp", "renamed_grp"})},
        {"rename-faction, case only",
         Cli({"rename-faction", "Sweep", "renamed_grp", "RENAMED_GRP"})},
        {"duplicate-faction", Cli({"duplicate-faction", "Sweep", "RENAMED_GRP", "copy_grp"})},
        {"remove-faction", Cli({"remove-faction", "Sweep", "br_n_grp"})},
    };
    int failures = 0, states = 0;
    for (const auto& [name, command] : commands) {
        // The command once as it should go: its count of calls, and the state after it.
        const Files before = Snapshot(app);
        CopyFolder(app, work);
        NthCallFails counting(0, 0);
        {
            const platform::FileCallsInstalled installed(counting);
            ASSERT_EQ(command(app).code, 0) << name;
        }
        const Files after = Snapshot(app);
        ASSERT_NE(before, after) << name;
        ASSERT_GT(counting.Count(), 0) << name;
        for (int n = 1; n <= counting.Count(); ++n)
            for (const int error : {ENOSPC, EIO}) {
                const std::string run =
                    name + ", call " + std::to_string(n) + " failing with " + std::strerror(error);
                const std::string trial = temp / "trial";
                CopyFolder(work, trial);
                NthCallFails failing(n, error);
                Outcome outcome{};
                {
                    const platform::FileCallsInstalled installed(failing);
                    outcome = command(trial);
                }
                ++failures;
                EXPECT_EQ(outcome.code, 2) << run;
                EXPECT_NE(outcome.message.find(std::strerror(error)), std::string::npos)
                    << run << ": " << outcome.message;
                EXPECT_NE(outcome.message.find("Sweep"), std::string::npos)
                    << run << ": " << outcome.message;
                // Paths below each folder: the trial's compare with the app folder's.
                EXPECT_EQ(Judge(before, after, Snapshot(trial)), "") << run;
                ++states;
                // Done again without a failure: it ends as it would have, and tidies up.
                NthCallFails none(0, 0);
                const platform::FileCallsInstalled installed(none);
                EXPECT_EQ(command(trial).code, 0) << run;
                Files again = Snapshot(trial), expected = after;
                std::erase_if(again, [](const auto& file) { return IsProtocol(file.first); });
                std::erase_if(expected, [](const auto& file) { return IsProtocol(file.first); });
                EXPECT_EQ(again, expected) << run;
                EXPECT_EQ(Temporaries(trial), std::vector<std::string>{}) << run;
                states += 2;
                if (::testing::Test::HasFailure())
                    return;
            }
    }
    std::cout << "write failure sweep: " << commands.size() << " commands, " << failures
              << " failures injected, " << states << " states checked\n";
}

} // namespace
