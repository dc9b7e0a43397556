// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the reputation matrix of a 1000-faction project from each store: 1000 empathy
// files of 1000 rates, or one initial-world file of 1000 sections of 1000 reputations.
#include "core/txtReadWrite.h"
#include "initialworld/InitialWorld.h"
#include "matrix/ReputationMatrix.h"
#include "reputation/ReputationFiles.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

constexpr int FactionCount = 1000;

struct Project {
    Project() {
        std::string world;
        for (const std::string& g : factions) {
            std::string rates;
            world += "[" + g + "]\r\nids_name=1\r\n";
            for (const std::string& other : factions) {
                rates += "[" + other + "]\r\nrep=-0.65\r\n";
                world += other + "=0.35\r\n";
            }
            txtReadWrite::WriteFileText(reputation::EmpathyFile(folder, g), rates);
        }
        txtReadWrite::WriteFileText(initialworld::DataFile(folder), world);
    }
    ScratchApp scratch;
    std::string folder = scratch.CreateProject("Big");
    std::vector<std::string> factions = FactionNames(FactionCount);
};

// Arg 0: empathy rates, 1: starting reputations.
void LoadMatrix(benchmark::State& state) {
    static const Project project;
    const auto store = state.range(0) ? matrix::Store::InitialWorld : matrix::Store::Emphaty;
    for (auto _ : state) {
        const matrix::Matrix loaded = matrix::Load(store, project.folder, project.factions);
        benchmark::DoNotOptimize(loaded.Value(FactionCount - 1, 0).size());
    }
}
BENCHMARK(LoadMatrix)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
