// Import all of a 1000-entry library into an empty project: 54 empathy lines and 1000
// starting reputations per entry, five entries in each of the five lists. And the whole road
// of a 600-faction project, import all and the three compiles, each run beside copying the
// finished project with `cp -r` on the same storage: the file layer should cost little more
// than the copying of the files it writes.
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "import/Import.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>

namespace {

std::string Nick(int i) {
    return "f" + std::to_string(1000 + i) + "_grp";
}

void Write(const std::filesystem::path& path, const std::string& text) {
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
        std::string pattern = (base / "orrindel-import-bench-XXXXXX").string();
        app = ::mkdtemp(pattern.data());
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
