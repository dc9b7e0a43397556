// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing a faction on the reputation page of a 1000-faction project: four event values
// into the combos (with their write-back) and 1000 rates into the list view.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"
#include "support/QtBenchmarkMain.h"
#include "support/ScratchApp.h"
#include "ui/Dialogs.h"
#include "ui/ReputationPage.h"
#include "ui/Session.h"

#include <QApplication>
#include <QComboBox>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

constexpr int Factions = 1000;

void ChooseFactionWithThousandRows(benchmark::State& state) {
    const ScratchApp scratch;
    const std::string& appDir = scratch.appDir;
    const std::string folder = scratch.CreateProject("Big");
    std::string registry, events;
    for (int i = 0; i < Factions; ++i) {
        const std::string g = "fc_faction_" + std::to_string(i);
        registry += "[" + g + "]\r\ngrp=Group " + std::to_string(i % 17) + "\r\n";
        // Neighbouring factions differ in every value, so each choice changes every combo.
        const std::string v = (i % 2) ? "-0.3" : "0.2";
        events += "[" + g + "]\r\no_d=" + v + "\r\nr_m_s=" + v + "\r\nr_m_f=" + v +
                  "\r\nr_m_a=" + v + "\r\n";
        std::string rates;
        for (int j = 0; j < Factions; ++j)
            rates += "[fc_faction_" + std::to_string(j) + "]\r\nrep=-0." + std::to_string(j % 10) +
                     "\r\n";
        txtReadWrite::WriteFileText(reputation::EmpathyFile(folder, g), rates);
    }
    txtReadWrite::WriteFileText(modFunctions::RegistryPath(appDir, "Big"), registry);
    txtReadWrite::WriteFileText(reputation::EventFile(folder), events);

    Session session;
    session.appDir = appDir;
    session.ActiveProject = "Big";
    SilentDialogs dialogs;
    ReputationPage page(session, dialogs);
    page.resize(900, 600);
    page.show();
    page.AddFactions(modFunctions::LoadRegistry(modFunctions::RegistryPath(appDir, "Big")));
    auto* picker = page.findChild<QComboBox*>("cboemphaty_group");
    auto* list = page.findChild<QTreeWidget*>("lv_emphaty");
    if (picker->count() != Factions || list->topLevelItemCount() != Factions)
        state.SkipWithError("the factions were not listed");

    int next = 0;
    for (auto _ : state) {
        picker->setCurrentIndex(next);
        emit picker->activated(next);
        QApplication::processEvents(); // the list view repaints
        next = (next + 1) % Factions;
    }
    state.counters["rows"] = list->topLevelItemCount();
}
BENCHMARK(ChooseFactionWithThousandRows)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

} // namespace

ORRINDEL_QT_BENCHMARK_MAIN()
