// SPDX-License-Identifier: GPL-3.0-or-later
// The storage core on files of a realistic size: a 1000-section INI file (about 40 KB)
// and a 1000-faction registry.
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <filesystem>

namespace {

std::string ThousandSections() {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "[faction_" + std::to_string(i) + "_grp]\r\ngrp=Group " + std::to_string(i) +
                "\r\nRep=0.0\r\n";
    return text;
}

void BM_ReadIniUnchangedFile(benchmark::State& state) {
    const ScratchApp scratch;
    const std::string file = scratch.appDir + "/factions.ini";
    platform::ReplaceFile(file, ThousandSections());
    txtReadWrite::ReadIni("faction_500_grp", "grp", "", file);
    for (auto _ : state)
        benchmark::DoNotOptimize(txtReadWrite::ReadIni("faction_500_grp", "grp", "", file));
}
BENCHMARK(BM_ReadIniUnchangedFile)->Repetitions(9)->ReportAggregatesOnly(true);

void BM_WriteIniExistingKey(benchmark::State& state) {
    const ScratchApp scratch;
    const std::string file = scratch.appDir + "/factions.ini";
    platform::ReplaceFile(file, ThousandSections());
    int i = 0;
    for (auto _ : state)
        txtReadWrite::WriteIni("faction_500_grp", "grp", (++i % 2) ? "one" : "two", file);
}
BENCHMARK(BM_WriteIniExistingKey)->Repetitions(9)->ReportAggregatesOnly(true);

void BM_LoadThousandFactionRegistry(benchmark::State& state) {
    const ScratchApp scratch;
    const std::string file = scratch.appDir + "/factions.ini";
    platform::ReplaceFile(file, ThousandSections());
    int i = 0;
    for (auto _ : state) {
        state.PauseTiming();
        // A registry just changed on disk: nothing may come from the cache.
        platform::ReplaceFile(file, ThousandSections() + ((++i % 2) ? "\r\n" : ""));
        state.ResumeTiming();
        benchmark::DoNotOptimize(modFunctions::LoadRegistry(file));
    }
}
BENCHMARK(BM_LoadThousandFactionRegistry)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
