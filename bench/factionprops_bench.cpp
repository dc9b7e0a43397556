// SPDX-License-Identifier: GPL-3.0-or-later
// Compiling faction_prop.ini for 1000 factions, each with a full property sheet and
// 20 list lines spread over its five list files (the voice files named as the compiler
// does not spell them, so every lookup has to ignore case).
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "factionprops/FactionPropCompiler.h"
#include "factionprops/ListFiles.h"
#include "factionprops/PropertySheet.h"
#include "support/ScratchApp.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int FactionCount = 1000;

struct Project {
    Project() {
        std::string sheets;
        for (const std::string& n : factions) {
            sheets +=
                "[" + n +
                "]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
                "msg_id_prefix=gcs_refer_faction_x\r\nmc_costume=mc_li\r\nfirstname_male=197808\r\n"
                "firstname_female=\r\nlastname=226908\r\nrank_desig=\r\nformation_desig=\r\n"
                "scan_chance=0.5\r\nscan_announce=True\r\nlarge_ship_desig=\r\nlarge_ship_names="
                "\r\n";
            using factionprops::PickList;
            factionprops::WriteListFile(
                factionprops::ListFilePath(appDir, "Big", PickList::Ships, n),
                std::vector<std::string>(8, "li_n_li_elite_d10"));
            factionprops::WriteListFile(
                factionprops::ListFilePath(appDir, "Big", PickList::Voices, n),
                std::vector<std::string>(4, "pilot_f_leg_f01"));
            factionprops::WriteListFile(
                factionprops::ListFilePath(appDir, "Big", PickList::Bodyparts, n),
                std::vector<std::string>(4, "li_captain_head, li_male_elite_body, comm_br_elite"));
            factionprops::WriteListFile(
                factionprops::ListFilePath(appDir, "Big", PickList::Scan, n),
                std::vector<std::string>(2, "commodity_gold"));
            factionprops::WriteListFile(
                factionprops::ListFilePath(appDir, "Big", PickList::Formations, n),
                std::vector<std::string>(2, "patrols, fighter_li_n"));
        }
        txtReadWrite::WriteFileText(factionprops::PropertyFile(appDir, "Big"), sheets);
    }
    ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    std::string folder = scratch.CreateProject("Big");
    std::vector<std::string> factions = FactionNames(FactionCount, "_grp");
};

Project& TheProject() {
    static Project project;
    return project;
}

void BM_CompileFactionProp(benchmark::State& state) {
    Project& project = TheProject();
    for (auto _ : state)
        factionprops::CompileFactionProp(project.folder, project.factions);
}
BENCHMARK(BM_CompileFactionProp)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

} // namespace

BENCHMARK_MAIN();
