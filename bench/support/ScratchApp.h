// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A throw-away application folder with its projects folder, removed with everything in it.
#include "core/modFunctions.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

// Where a benchmark that makes thousands of files measures them rather than how busy the disk
// is with other programs: a memory-backed folder where there is one; ORRINDEL_BENCH_DIR
// chooses another.
inline std::filesystem::path MemoryBackedFolder() {
    if (const char* chosen = std::getenv("ORRINDEL_BENCH_DIR"))
        return chosen;
    if (std::filesystem::is_directory("/dev/shm"))
        return "/dev/shm";
    return std::filesystem::temp_directory_path();
}

struct ScratchApp {
    explicit ScratchApp(
        const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        std::string pattern = (base / "orrindel-bench-XXXXXX").string();
        appDir = ::mkdtemp(pattern.data());
        modFunctions::EnsureProjectsFolder(appDir);
    }
    ScratchApp(const ScratchApp&) = delete;
    ScratchApp& operator=(const ScratchApp&) = delete;
    ~ScratchApp() { std::filesystem::remove_all(appDir); }

    // Creates a project and returns its folder.
    std::string CreateProject(const std::string& name) const {
        modFunctions::CreateProjectFolders(appDir, name);
        return modFunctions::ProjectPath(appDir, name);
    }

    std::string appDir;
};

// "fc_faction_0<suffix>", "fc_faction_1<suffix>", ...
inline std::vector<std::string> FactionNames(int count, const std::string& suffix = {}) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        names.push_back("fc_faction_" + std::to_string(i) + suffix);
    return names;
}
