// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A faction library laid out like <app dir>\data, with the given number of entries: 54
// empathy lines and a starting reputation towards every entry per entry, five entries in each
// of the five lists. Shared by the benchmarks and the timing harness that runs where Google
// Benchmark is not at hand.
#include "core/modFunctions.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

inline std::string Nick(int i) {
    return "f" + std::to_string(1000 + i) + "_grp";
}

inline void Write(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// A library laid out like <app dir>\data, built once for every run.
struct Library {
    explicit Library(int entries) {
        // One run creates about 6000 files. On a disk, how fast the file system hands out
        // inodes depends on what was deleted there in the last seconds (other runs, other
        // tests) far more than on the import; a memory-backed folder, where there is one,
        // measures the import itself. ORRINDEL_BENCH_DIR chooses another folder.
        std::filesystem::path base = std::filesystem::temp_directory_path();
        if (const char* chosen = std::getenv("ORRINDEL_BENCH_DIR"))
            base = chosen;
        else if (std::filesystem::is_directory("/dev/shm"))
            base = "/dev/shm";
        // A folder of its own, named by the moment: the harness runs on Windows too.
        for (auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();; ++stamp) {
            const auto folder = base / ("orrindel-import-bench-" + std::to_string(stamp));
            if (std::filesystem::create_directory(folder)) {
                app = folder.string();
                break;
            }
        }
        const auto folder = [&](const char* name) {
            auto path = std::filesystem::path(app) / "data" / name / "original_factions";
            std::filesystem::create_directories(path);
            return path;
        };
        const auto rep = folder("emphaty"), props = folder("faction_prop"),
                   world = folder("initialworld");
        for (int i = 0; i < entries; ++i) {
            std::string r = "[RepChangeEffects]\r\ngroup = " + Nick(i) +
                            "\r\nevent = object_destruction, -0.05\r\n"
                            "event = random_mission_success, 0.03\r\n"
                            "event = random_mission_failure, -0.02\r\n"
                            "event = random_mission_abortion, -0.01\r\n";
            for (int j = 0; j < 54; ++j)
                r += "emphaty_rate = " + Nick((i + j + 1) % entries) + ", 0.1\r\n";
            Write(rep / Nick(i), r);
            std::string p = "[FactionProps]\r\naffiliation = " + Nick(i) +
                            "\r\nlegality = lawful\r\nnickname_plurality = singular\r\n"
                            "msg_id_prefix = gcs_refer_faction_x\r\njump_preference = jumpgate\r\n"
                            "mc_costume = mc_li\r\nfirstname_male = 1, 2\r\nlastname = 3, 4\r\n"
                            "scan_announce = True\r\nscan_chance = 0.5\r\n";
            for (const char* key :
                 {"npc_ship", "voice", "space_costume", "scan_for_cargo", "formation"})
                for (int j = 0; j < 5; ++j)
                    p += std::string(key) + " = item_" + std::to_string(j) + "\r\n";
            Write(props / Nick(i), p);
            std::string w = "[Group]\r\nnickname = " + Nick(i) +
                            "\r\nids_name = 1\r\nids_info = 2\r\nids_short_name = 3\r\n";
            for (int j = 0; j < entries; ++j)
                w += "rep = 0.25, " + Nick(j) + "\r\n";
            Write(world / Nick(i), w);
        }
        modFunctions::EnsureProjectsFolder(app);
    }
    ~Library() { std::filesystem::remove_all(app); }
    std::string app;
};
