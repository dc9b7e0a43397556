// SPDX-License-Identifier: GPL-3.0-or-later
// Compiling the reputation data of a 1000-faction project: 1000 blocks of 999 rate lines.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "reputation/EmphatyCompiler.h"
#include "reputation/ReputationFiles.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int FactionCount = 1000;

// Every faction imported: four event values and a rate toward every other faction.
struct Project {
    Project() {
        std::string events;
        for (const std::string& g : factions) {
            events += "[" + g + "]\r\no_d=-0.3\r\nr_m_s=0.1\r\nr_m_f=-0.1\r\nr_m_a=-0.05\r\n";
            std::string rates;
            for (const std::string& other : factions)
                if (other != g)
                    rates += "[" + other + "]\r\nrep=-0.65\r\n";
            txtReadWrite::WriteFileText(reputation::EmpathyFile(folder, g), rates);
        }
        txtReadWrite::WriteFileText(reputation::EventFile(folder), events);
    }
    ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    std::string folder = scratch.CreateProject("Big");
    std::vector<std::string> factions = FactionNames(FactionCount);
};

Project& TheProject() {
    static Project project;
    return project;
}

// The whole compile as the button runs it, with a progress callback per row. The project
// has more empathy files than the parsed-file cache keeps, so each run parses them anew.
void BM_CompileEmphaty(benchmark::State& state) {
    Project& project = TheProject();
    std::size_t calls = 0;
    const auto progress = [&](const progress::Step&) { ++calls; };
    for (auto _ : state)
        reputation::CompileEmphaty(project.folder, project.factions, project.factions, progress);
    benchmark::DoNotOptimize(calls);
}
BENCHMARK(BM_CompileEmphaty)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
