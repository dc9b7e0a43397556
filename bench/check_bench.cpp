// SPDX-License-Identifier: GPL-3.0-or-later
// Checking a 1000-faction project: every store complete, a rate and a starting reputation
// toward every faction (one million of each), five list files per faction.
#include "check/ProjectCheck.h"
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

constexpr int FactionCount = 1000;

struct Project {
    Project() {
        std::string registry, events, props, world;
        for (const std::string& g : factions) {
            registry += "[" + g + "]\r\ngrp=" + g + "\r\n";
            events += "[" + g + "]\r\no_d=-0.3\r\nr_m_s=0.1\r\nr_m_f=-0.1\r\nr_m_a=-0.05\r\n";
            props += "[" + g +
                     "]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
                     "msg_id_prefix=ignore\r\nmc_costume=mc_li\r\nfirstname_male=300000, 300011\r\n"
                     "scan_chance=0.13\r\nscan_announce=True\r\n";
            world +=
                "[" + g + "]\r\nids_name=420000\r\nids_short_name=420002\r\nids_info=420001\r\n";
            std::string rates;
            for (const std::string& other : factions) {
                if (other != g)
                    rates += "[" + other + "]\r\nrep=-0.65\r\n";
                world += other + "=0.5\r\n";
            }
            Write("\\emphaty\\new\\reps_" + g + ".facts", rates);
            Write("\\faction_prop\\Shiplist_" + g + ".lst",
                  "li_n_li_elite_d10\r\nli_p_li_fighter_d3\r\nmy_own_ship\r\n");
            Write("\\faction_prop\\Voicelist_" + g + ".lst", "atc_leg_f01\r\nking\r\n");
            Write("\\faction_prop\\Bodylist_" + g + ".lst",
                  "benchmark_male_head, benchmark_male_body, comm_br_brighton\r\n");
            Write("\\faction_prop\\Scanlist_" + g + ".lst", "commodity_gold\r\n");
            Write("\\faction_prop\\Formationlist_" + g + ".lst", "ANY, armored_basic\r\n");
        }
        Write("\\misc\\factions.ini", registry);
        Write("\\emphaty\\new\\grp.ini", events);
        Write("\\faction_prop\\grp.ini", props);
        Write("\\initialworld\\grp.ini", world);
    }
    void Write(const std::string& piece, const std::string& text) const {
        txtReadWrite::WriteFileText(folder + piece, text);
    }
    ScratchApp scratch;
    std::string folder = scratch.CreateProject("Big");
    std::vector<std::string> factions = FactionNames(FactionCount);
};

Project& TheProject() {
    static Project project;
    return project;
}

// The whole check as the button and the command run it; each run reads every file anew.
// The one unknown ship per faction gives 1000 findings to build.
void BM_CheckProject(benchmark::State& state) {
    Project& project = TheProject();
    std::size_t findings = 0;
    for (auto _ : state)
        findings = check::CheckProject(project.scratch.appDir, "Big").size();
    state.counters["findings"] = static_cast<double>(findings);
}
BENCHMARK(BM_CheckProject)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
