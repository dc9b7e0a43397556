// SPDX-License-Identifier: GPL-3.0-or-later
// The project road of import_bench (import all of 600 factions, then compile) timed without
// Google Benchmark, for the Windows cross build where that library is not at hand: run under
// Wine beside the Linux build of the same program, the two medians give the ratio.
//   road_timing [runs]   (ORRINDEL_BENCH_DIR: where the library and projects go)
#include "cli/Command.h"
#include "support/FactionLibrary.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <sstream>
#include <vector>

int main(int argc, char** argv) {
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    Library library(600);
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const std::string name = "R" + std::to_string(run);
        modFunctions::CreateProjectFolders(library.app, name);
        std::ostringstream out, err;
        const auto start = std::chrono::steady_clock::now();
        for (const char* command : {"import-all", "compile"})
            if (cli::Run({"--app-dir", library.app, command, name}, out, err) != cli::Ok) {
                std::cerr << err.str();
                return 2;
            }
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    std::sort(times.begin(), times.end());
    std::cout << "import-all + compile of 600 factions: median " << times[times.size() / 2]
              << " ms, fastest " << times.front() << " ms of " << runs << " runs\n";
    return 0;
}
