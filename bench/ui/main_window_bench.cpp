// SPDX-License-Identifier: GPL-3.0-or-later
// Loading a project of 1000 factions into the main window: the registry list, the
// editors' list views and their pickers, as the Load and Reload buttons do.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "support/QtBenchmarkMain.h"
#include "support/ScratchApp.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/VantelButton.h"
#include "ui/frmMain.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

constexpr int Factions = 1000;

void LoadThousandFactions(benchmark::State& state) {
    const ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    scratch.CreateProject("Big");
    std::string registry;
    for (int i = 0; i < Factions; ++i)
        registry += "[fc_faction_" + std::to_string(i) + "]\r\ngrp=Group " +
                    std::to_string(i % 17) + "\r\nRep=0." + std::to_string(i % 10) + "\r\n";
    txtReadWrite::WriteFileText(modFunctions::RegistryPath(appDir, "Big"), registry);

    Session session;
    session.appDir = appDir;
    SilentDialogs dialogs;
    frmMain window(session, dialogs);
    window.show();
    auto* projects = window.findChild<QListWidget*>("lstProjects");
    projects->setCurrentRow(0);
    emit window.findChild<VantelButton*>("VantelButton6")->Click();
    auto* registryList = window.findChild<QTreeWidget*>("lv_newfactions");
    if (registryList->topLevelItemCount() != Factions)
        state.SkipWithError("the project did not load");

    for (auto _ : state) {
        window.LoadFactionRegistry();
        benchmark::DoNotOptimize(registryList->topLevelItemCount());
    }
    state.counters["factions"] = registryList->topLevelItemCount();
    // What the pages hold after the load (-1: the page has no such control yet).
    for (const char* name : {"lv_emphaty", "lv_Init"}) {
        const auto* view = window.findChild<QTreeWidget*>(name);
        state.counters[name] = view ? view->topLevelItemCount() : -1;
    }
    for (const char* name : {"cboemphaty_group", "cboFP_group", "cboInit_group"}) {
        const auto* picker = window.findChild<QComboBox*>(name);
        state.counters[name] = picker ? picker->count() : -1;
    }
}
BENCHMARK(LoadThousandFactions)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

} // namespace

ORRINDEL_QT_BENCHMARK_MAIN()
