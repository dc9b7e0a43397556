// SPDX-License-Identifier: GPL-3.0-or-later
// Pressing each "INI erstellen" button of the main window on a fully edited project of 300 and
// of 1000 factions, beside the core compile of the same project as the command line runs it
// (registry read, compile, protocol line). The window's time includes its progress bars and
// the hand-over to the worker thread; the two should stay close.
#include "core/ProtocolLines.h"
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "factionprops/FactionPropCompiler.h"
#include "factionprops/ListFiles.h"
#include "factionprops/PropertySheet.h"
#include "initialworld/InitialWorld.h"
#include "initialworld/InitialWorldCompiler.h"
#include "reputation/EmphatyCompiler.h"
#include "reputation/ReputationFiles.h"
#include "support/QtBenchmarkMain.h"
#include "support/ScratchApp.h"
#include "ui/Session.h"
#include "ui/VantelButton.h"
#include "ui/frmMain.h"

#include <QListWidget>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

// Every faction edited on every page: event values, a rate toward every other faction, a full
// property sheet with five lists, IDS numbers and a starting reputation toward every faction.
struct Project {
    explicit Project(int count) : factions(FactionNames(count, "_grp")) {
        std::string registry;
        std::string events;
        std::string sheets;
        std::string world;
        for (const std::string& g : factions) {
            registry += "[" + g + "]\r\ngrp=" + g + " description\r\n";
            events += "[" + g + "]\r\no_d=-0.3\r\nr_m_s=0.1\r\nr_m_f=-0.1\r\nr_m_a=-0.05\r\n";
            std::string rates;
            for (const std::string& other : factions)
                if (other != g)
                    rates += "[" + other + "]\r\nrep=-0.65\r\n";
            txtReadWrite::WriteFileText(reputation::EmpathyFile(folder, g), rates);

            sheets += "[" + g +
                      "]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
                      "msg_id_prefix=gcs_refer_faction_x\r\nmc_costume=mc_li\r\n"
                      "firstname_male=197808\r\nfirstname_female=197809\r\nlastname=226908\r\n"
                      "rank_desig=226909\r\nformation_desig=226910\r\nscan_chance=0.5\r\n"
                      "scan_announce=True\r\nlarge_ship_desig=226911\r\n"
                      "large_ship_names=226912\r\n";
            using factionprops::PickList;
            const auto list = [&](PickList kind, std::size_t n, const std::string& entry) {
                factionprops::WriteListFile(factionprops::ListFilePath(appDir, Name, kind, g),
                                            std::vector<std::string>(n, entry));
            };
            list(PickList::Ships, 8, "li_n_li_elite_d10");
            list(PickList::Voices, 4, "pilot_f_leg_f01");
            list(PickList::Bodyparts, 4, "li_captain_head, li_male_elite_body, comm_br_elite");
            list(PickList::Scan, 2, "commodity_gold");
            list(PickList::Formations, 2, "patrols, fighter_li_n");

            world += "[" + g + "]\r\nids_name=196846\r\nids_short_name=196847\r\nids_info=327\r\n";
            for (const std::string& row : factions)
                world += row + "=-0.65\r\n";
        }
        txtReadWrite::WriteFileText(modFunctions::RegistryPath(appDir, Name), registry);
        txtReadWrite::WriteFileText(reputation::EventFile(folder), events);
        txtReadWrite::WriteFileText(factionprops::PropertyFile(appDir, Name), sheets);
        txtReadWrite::WriteFileText(initialworld::DataFile(folder), world);
    }

    static constexpr const char* Name = "Big";
    ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    std::string folder = scratch.CreateProject(Name);
    std::vector<std::string> factions;
};

Project& TheProject(int count) {
    static std::map<int, std::unique_ptr<Project>> projects;
    auto& project = projects[count];
    if (!project)
        project = std::make_unique<Project>(count);
    return *project;
}

enum GameFile { Emphaty, FactionProp, InitialWorld };
constexpr const char* Buttons[] = {"btnEmphatySave", "btnCompileFP", "VantelButton13"};

// The window with the project loaded, as Load leaves it; the button is pressed each iteration.
void BM_WindowCompile(benchmark::State& state) {
    const auto file = static_cast<GameFile>(state.range(0));
    const Project& project = TheProject(static_cast<int>(state.range(1)));
    Session session;
    session.appDir = project.appDir;
    SilentDialogs dialogs;
    frmMain window(session, dialogs);
    window.show();
    window.findChild<QListWidget*>("lstProjects")->setCurrentRow(0);
    window.findChild<VantelButton*>("VantelButton6")->click();
    if (window.findChild<QTreeWidget*>("lv_newfactions")->topLevelItemCount() !=
        static_cast<int>(project.factions.size()))
        state.SkipWithError("the project did not load");
    VantelButton* button = window.findChild<VantelButton*>(Buttons[file]);
    for (auto _ : state)
        button->click();
    state.counters["factions"] = static_cast<double>(project.factions.size());
}

// What `orrindel-cli compile Big <file>` does for the same file.
void BM_CoreCompile(benchmark::State& state) {
    const auto file = static_cast<GameFile>(state.range(0));
    const Project& project = TheProject(static_cast<int>(state.range(1)));
    for (auto _ : state) {
        const auto factions = modFunctions::RegistryNicknames(
            modFunctions::RegistryPath(project.appDir, Project::Name));
        switch (file) {
        case Emphaty:
            reputation::CompileEmphaty(project.folder, factions, factions);
            modFunctions::WriteProtocol(project.appDir, Project::Name, protocol::EmphatyCompiled);
            break;
        case FactionProp:
            factionprops::CompileFactionProp(project.folder, factions);
            modFunctions::WriteProtocol(project.appDir, Project::Name,
                                        protocol::FactionPropCompiled);
            break;
        case InitialWorld:
            initialworld::CompileInitialWorld(project.folder, factions, factions);
            modFunctions::WriteProtocol(project.appDir, Project::Name,
                                        protocol::InitialWorldCompiled);
            break;
        }
    }
    state.counters["factions"] = static_cast<double>(project.factions.size());
}

void Arguments(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"file", "factions"});
    for (const int count : {300, 1000})
        for (const int file : {Emphaty, FactionProp, InitialWorld})
            bench->Args({file, count});
    bench->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
}
BENCHMARK(BM_CoreCompile)->Apply(Arguments);
BENCHMARK(BM_WindowCompile)->Apply(Arguments);

} // namespace

ORRINDEL_QT_BENCHMARK_MAIN()
