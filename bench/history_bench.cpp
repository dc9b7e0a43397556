// SPDX-License-Identifier: GPL-3.0-or-later
// The edit history: undoing an import of all factions of a 1000-entry library (about 3000
// files and the registry put back at once), and what recording adds to one edit's write,
// beside the same write without a history. A single edit is a step of its own; typing is
// many writes in one step.
#include "core/EditHistory.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "import/Import.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

namespace {

std::string Nick(int i) {
    return "f" + std::to_string(1000 + i) + "_grp";
}

void Write(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// A library of entries with 54 empathy lines and a reputation towards every other entry.
void WriteLibrary(const std::string& app, int entries) {
    const auto folder = [&](const char* name) {
        auto path = std::filesystem::path(app) / "data" / name / "original_factions";
        std::filesystem::create_directories(path);
        return path;
    };
    const auto rep = folder("emphaty"), props = folder("faction_prop"),
               world = folder("initialworld");
    for (int i = 0; i < entries; ++i) {
        std::string r = "[RepChangeEffects]\r\ngroup = " + Nick(i) +
                        "\r\nevent = object_destruction, -0.05\r\n";
        for (int j = 0; j < 54; ++j)
            r += "emphaty_rate = " + Nick((i + j + 1) % entries) + ", 0.1\r\n";
        Write(rep / Nick(i), r);
        std::string p = "[FactionProps]\r\naffiliation = " + Nick(i) + "\r\nlegality = lawful\r\n";
        for (const char* key : {"npc_ship", "voice", "space_costume", "formation"})
            for (int j = 0; j < 5; ++j)
                p += std::string(key) + " = item_" + std::to_string(j) + "\r\n";
        Write(props / Nick(i), p);
        std::string w = "[Group]\r\nnickname = " + Nick(i) + "\r\nids_name = 1\r\n";
        for (int j = 0; j < entries; ++j)
            w += "rep = 0.25, " + Nick(j) + "\r\n";
        Write(world / Nick(i), w);
    }
}

void BM_UndoImportAllOf1000(benchmark::State& state) {
    static const ScratchApp scratch(MemoryBackedFolder());
    static const bool written = (WriteLibrary(scratch.appDir, 1000), true);
    (void)written;
    static int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string project = scratch.CreateProject("P" + std::to_string(run++));
        EditHistory history(project);
        history.Open("import all");
        importer::ImportAllOriginalFactions(scratch.appDir, project);
        if (history.Close() != EditHistory::Closed::Recorded)
            state.SkipWithError("the import was not recorded");
        state.counters["files"] = static_cast<double>(history.UndoFiles().size());
        state.counters["MiB held"] = static_cast<double>(history.HeldBytes()) / (1 << 20);
        state.ResumeTiming();
        history.Undo();
    }
}
BENCHMARK(BM_UndoImportAllOf1000)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);

// Import all with and without a step open: what recording 6000 new files adds to it.
void BM_ImportAllOf1000(benchmark::State& state) {
    static const ScratchApp scratch(MemoryBackedFolder());
    static const bool written = (WriteLibrary(scratch.appDir, 1000), true);
    (void)written;
    static int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string project = scratch.CreateProject("I" + std::to_string(run++));
        EditHistory history(project);
        state.ResumeTiming();
        if (state.range(0))
            history.Open("import all");
        importer::ImportAllOriginalFactions(scratch.appDir, project);
        if (state.range(0))
            history.Close();
    }
}
BENCHMARK(BM_ImportAllOf1000)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(5);

// A registry-sized INI file: 1000 sections, about 40 KB; or a single faction's small one.
std::string Sections(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "[faction_" + std::to_string(i) + "_grp]\r\ngrp=Group " + std::to_string(i) +
                "\r\nRep=0.0\r\n";
    return text;
}

enum class Recording { None, StepPerEdit, Typing };

void WriteIniEdit(benchmark::State& state, Recording recording) {
    const ScratchApp scratch(MemoryBackedFolder());
    const std::string project = scratch.CreateProject("P");
    const std::string file = project + "\\misc\\factions.ini";
    platform::ReplaceFile(file, Sections(static_cast<int>(state.range(0))));
    auto history = std::make_unique<EditHistory>(project);
    if (recording == Recording::Typing)
        history->Open("typing");
    int i = 0;
    for (auto _ : state) {
        if (recording == Recording::StepPerEdit)
            history->Open("edit");
        txtReadWrite::WriteIni("faction_0_grp", "grp", (++i % 2) ? "one" : "two", file);
        if (recording == Recording::StepPerEdit)
            history->Close();
    }
    if (recording == Recording::Typing)
        history->Close();
}

void BM_WriteIniWithoutHistory(benchmark::State& state) {
    WriteIniEdit(state, Recording::None);
}
void BM_WriteIniAsOneStep(benchmark::State& state) {
    WriteIniEdit(state, Recording::StepPerEdit);
}
void BM_WriteIniWhileTyping(benchmark::State& state) {
    WriteIniEdit(state, Recording::Typing);
}
BENCHMARK(BM_WriteIniWithoutHistory)
    ->Arg(10)
    ->Arg(1000)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_WriteIniAsOneStep)->Arg(10)->Arg(1000)->Repetitions(9)->ReportAggregatesOnly(true);
BENCHMARK(BM_WriteIniWhileTyping)->Arg(10)->Arg(1000)->Repetitions(9)->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
