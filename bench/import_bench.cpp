// SPDX-License-Identifier: GPL-3.0-or-later
// Import all of a 1000-entry library into an empty project: 54 empathy lines and 1000
// starting reputations per entry, five entries in each of the five lists. And the whole road
// of a 600-faction project, import all and the three compiles, each run beside copying the
// finished project with `cp -r` on the same storage: the file layer should cost little more
// than the copying of the files it writes.
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "import/Import.h"
#include "support/FactionLibrary.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>

namespace {

void BM_ImportAllIntoEmptyProject(benchmark::State& state) {
    static Library library(1000);
    static int run = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const std::string name = "P" + std::to_string(run++);
        modFunctions::CreateProjectFolders(library.app, name);
        state.ResumeTiming();
        const auto result = importer::ImportAllOriginalFactions(
            library.app, modFunctions::ProjectPath(library.app, name));
        benchmark::DoNotOptimize(result.imported.size());
        // The projects stay until the end: deleting thousands of files between runs makes the
        // file system's inode allocation, not the import, the thing measured.
    }
}
BENCHMARK(BM_ImportAllIntoEmptyProject)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

// Import all of 600 factions and compile the three game files through the command-line
// program's own commands, run in this process: `import-all P`, then `compile P`.
Library& Library600() {
    static Library library(600);
    return library;
}

// `cp -r source target`, spawned rather than forked through a shell: a fork copies this
// process's page tables, which after the import runs are large, and that copying is not cp's.
bool CopyWithCpR(const std::string& source, const std::string& target) {
    std::string cp = "cp", r = "-r", from = source, to = target;
    char* argv[] = {cp.data(), r.data(), from.data(), to.data(), nullptr};
    pid_t pid = 0;
    int status = 0;
    return ::posix_spawnp(&pid, "cp", nullptr, nullptr, argv, environ) == 0 &&
           ::waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

double MillisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

// The time is that of import all and compile; each run then copies the finished project
// with `cp -r` (3600 files and the three game files), right after it on the same storage,
// so that both see the machine alike. Counters: cp_ms, and ratio = time / cp_ms.
void BM_ImportAllAndCompile600(benchmark::State& state) {
    Library& library = Library600();
    static int run = 0;
    for (auto _ : state) {
        const std::string name = "C" + std::to_string(run++);
        modFunctions::CreateProjectFolders(library.app, name);
        std::ostringstream out, err;
        const double ms = MillisecondsOf([&] {
            for (const char* command : {"import-all", "compile"})
                if (cli::Run({"--app-dir", library.app, command, name}, out, err) != cli::Ok)
                    state.SkipWithError(err.str().c_str());
        });
        const std::string project = library.app + "/projects/" + name;
        bool copied = false;
        const double cpMs = MillisecondsOf(
            [&] { copied = CopyWithCpR(project, library.app + "/copy" + std::to_string(run)); });
        if (!copied)
            state.SkipWithError("cp -r failed");
        state.SetIterationTime(ms / 1000);
        state.counters["cp_ms"] = cpMs;
        state.counters["ratio"] = ms / cpMs;
    }
}
BENCHMARK(BM_ImportAllAndCompile600)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(11)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
