// SPDX-License-Identifier: GPL-3.0-or-later
// Compiling a 1000-faction project: 1000 sections of 1000 reputation lines each.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "initialworld/InitialWorld.h"
#include "initialworld/InitialWorldCompiler.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int FactionCount = 1000;

struct Project {
    Project() {
        std::string data;
        for (const std::string& g : factions) {
            data += "[" + g + "]\r\nids_name=196846\r\nids_short_name=196847\r\nids_info=327" +
                    std::to_string(g.size()) + "\r\n";
            for (const std::string& row : factions)
                data += row + "=-0.65\r\n";
        }
        data.resize(data.size() - 2); // the writer adds the last line end
        txtReadWrite::WriteFileText(initialworld::DataFile(folder), data);
        dataFile = appDir + "/projects/Big/initialworld/grp.ini";
    }
    ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    std::string folder = scratch.CreateProject("Big");
    std::string dataFile;
    std::vector<std::string> factions = FactionNames(FactionCount);
};

Project& TheProject() {
    static Project project;
    return project;
}

// As after editing: the parsed initial-world file is still cached.
void BM_CompileInitialWorld(benchmark::State& state) {
    Project& project = TheProject();
    txtReadWrite::LoadIni(initialworld::DataFile(project.folder));
    for (auto _ : state)
        initialworld::CompileInitialWorld(project.folder, project.factions, project.factions);
}
BENCHMARK(BM_CompileInitialWorld)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The file changed behind the cache each time, so every compile parses it anew.
void BM_CompileInitialWorldColdParse(benchmark::State& state) {
    Project& project = TheProject();
    auto stamp = std::filesystem::last_write_time(project.dataFile);
    for (auto _ : state) {
        state.PauseTiming();
        stamp += std::chrono::seconds(1);
        std::filesystem::last_write_time(project.dataFile, stamp);
        state.ResumeTiming();
        initialworld::CompileInitialWorld(project.folder, project.factions, project.factions);
    }
}
BENCHMARK(BM_CompileInitialWorldColdParse)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The text alone, without the file write.
void BM_CompiledText(benchmark::State& state) {
    Project& project = TheProject();
    const auto data = txtReadWrite::LoadIni(initialworld::DataFile(project.folder));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            initialworld::CompiledText(*data, project.factions, project.factions));
}
BENCHMARK(BM_CompiledText)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
