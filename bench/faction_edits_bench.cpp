// SPDX-License-Identifier: GPL-3.0-or-later
// Renaming and duplicating one faction of a 1000-faction project in which every faction's
// empathy file names it (argument: the entries of each empathy file; 1000 is the whole
// column that the reputation page stores with each edit). Each faction has a property sheet,
// event values, five list files, and 50 starting reputations that include the one faction.
#include "core/FactionEdits.h"
#include "core/platform.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <unistd.h>

namespace {

constexpr int Factions = 1000;
const std::string Edited = "fc_faction_500";

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void FillProject(const std::string& projectPath, int empathyEntries) {
    const std::string folder = platform::HostPath(projectPath);
    const auto names = FactionNames(Factions);
    std::string registry, events, sheets, world;
    for (int i = 0; i < Factions; ++i) {
        const std::string& name = names[static_cast<std::size_t>(i)];
        registry += "[" + name + "]\r\ngrp=Group " + std::to_string(i % 40) + "\r\n";
        events += "[" + name + "]\r\no_d=-0.3\r\nr_m_s=0.1\r\nr_m_f=-0.1\r\nr_m_a=-0.05\r\n";
        sheets += "[" + name +
                  "]\r\nLegality=lawful\r\nplurality=plural\r\njump=both\r\nmsg_id_prefix=gcs_\r\n"
                  "mc_costume=mc_a\r\nfirstname_male=1\r\nfirstname_female=2\r\nlastname=3\r\n"
                  "rank_desig=4\r\nformation_desig=5\r\nscan_chance=0.5\r\nscan_announce=True\r\n"
                  "large_ship_desig=6\r\nlarge_ship_names=7\r\n";
        world += "[" + name + "]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n" + Edited +
                 "=-0.5\r\n";
        for (int k = 1; k < 50; ++k)
            world += names[static_cast<std::size_t>((i + k * 17) % Factions)] + "=0.2\r\n";
        std::string rates = "[" + Edited + "]\r\nrep=-0.4\r\n";
        for (int k = 1; k < empathyEntries; ++k)
            rates += "[" + names[static_cast<std::size_t>((i + k) % Factions)] + "]\r\nrep=0.1\r\n";
        Write(folder + "/emphaty/new/reps_" + name + ".facts", rates);
        for (const char* list :
             {"Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_"})
            Write(folder + "/faction_prop/" + list + name + ".lst", "entry_a\r\nentry_b\r\n\r\n");
    }
    Write(folder + "/misc/factions.ini", registry);
    Write(folder + "/emphaty/new/grp.ini", events);
    Write(folder + "/faction_prop/grp.ini", sheets);
    Write(folder + "/initialworld/grp.ini", world);
    // The setup's own megabytes reach the disk before the clock runs: the first commit's sync
    // would otherwise wait for them.
    ::sync();
}

void BM_RenameFaction(benchmark::State& state) {
    const ScratchApp scratch;
    FillProject(scratch.CreateProject("P"), static_cast<int>(state.range(0)));
    bool renamed = false;
    for (auto _ : state) {
        // Back and forth: every round renames the same faction in the same files.
        factionEdits::RenameFaction(scratch.appDir, "P", renamed ? "fc_renamed" : Edited,
                                    renamed ? Edited : "fc_renamed");
        renamed = !renamed;
    }
}
BENCHMARK(BM_RenameFaction)
    ->Arg(100)
    ->Arg(1000)
    ->Iterations(6)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

void BM_DuplicateFaction(benchmark::State& state) {
    const ScratchApp scratch;
    FillProject(scratch.CreateProject("P"), static_cast<int>(state.range(0)));
    int copies = 0;
    for (auto _ : state)
        factionEdits::DuplicateFaction(scratch.appDir, "P", Edited,
                                       "fc_copy_" + std::to_string(copies++), std::nullopt,
                                       factionEdits::Relations::Copied);
}
BENCHMARK(BM_DuplicateFaction)
    ->Arg(100)
    ->Arg(1000)
    ->Iterations(6)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

} // namespace
BENCHMARK_MAIN();
