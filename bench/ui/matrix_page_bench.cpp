// SPDX-License-Identifier: GPL-3.0-or-later
// The matrix page on a 1000-faction project with both stores filled: opening it (reading the
// chosen store and painting the first screen) and scrolling the grid one screen further.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "initialworld/InitialWorld.h"
#include "reputation/ReputationFiles.h"
#include "support/QtBenchmarkMain.h"
#include "support/ScratchApp.h"
#include "ui/MatrixPage.h"
#include "ui/Session.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <benchmark/benchmark.h>
#include <memory>
#include <string>

namespace {

constexpr int Factions = 1000;

// Counts the paints of the grid, so that a run that paints nothing is noticed.
class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

// The project's files, written once for every run (no window object lives this long).
struct BigProject {
    BigProject() {
        const std::string folder = scratch.CreateProject("Big");
        const auto names = FactionNames(Factions);
        std::string registry, world;
        for (int i = 0; i < Factions; ++i) {
            const std::string& g = names[static_cast<std::size_t>(i)];
            registry += "[" + g + "]\r\ngrp=Group " + std::to_string(i % 17) + "\r\n";
            std::string rates;
            world += "[" + g + "]\r\nids_name=" + std::to_string(i) + "\r\n";
            for (int j = 0; j < Factions; ++j) {
                const std::string value = (i + j) % 3 ? "-0." + std::to_string((i * j) % 10)
                                                      : "0." + std::to_string((i + j) % 10);
                rates += "[" + names[static_cast<std::size_t>(j)] + "]\r\nrep=" + value + "\r\n";
                world += names[static_cast<std::size_t>(j)] + "=" + value + "\r\n";
            }
            txtReadWrite::WriteFileText(reputation::EmpathyFile(folder, g), rates);
        }
        txtReadWrite::WriteFileText(modFunctions::RegistryPath(scratch.appDir, "Big"), registry);
        txtReadWrite::WriteFileText(initialworld::DataFile(folder), world);
    }
    ScratchApp scratch;
};

// The page of one benchmark run on that project, its grid's paints counted.
struct OpenPage {
    OpenPage() {
        static const BigProject project;
        session.appDir = project.scratch.appDir;
        session.ActiveProject = "Big";
        page = std::make_unique<MatrixPage>(session, dialogs);
        page->resize(1280, 800);
        page->AddFactions(
            modFunctions::LoadRegistry(modFunctions::RegistryPath(session.appDir, "Big")));
        grid = page->findChild<QTableView*>("grdMatrix");
        grid->viewport()->installEventFilter(&counter);
    }

    Session session;
    SilentDialogs dialogs;
    PaintCounter counter;
    std::unique_ptr<MatrixPage> page;
    QTableView* grid = nullptr;
};

// Arg 0: empathy rates (1000 files), 1: starting reputations (one file).
void OpenMatrixPage(benchmark::State& state) {
    OpenPage project;
    project.page
        ->findChild<QRadioButton*>(state.range(0) ? "optMatrixInitialworld" : "optMatrixEmphaty")
        ->setChecked(true);
    const int paintsBefore = project.counter.paints;
    for (auto _ : state) {
        project.page->hide();
        project.page->show(); // reads the store
        QApplication::processEvents();
    }
    if (project.grid->model()->rowCount() != Factions)
        state.SkipWithError("the matrix was not read");
    state.counters["paints"] = benchmark::Counter(project.counter.paints - paintsBefore,
                                                  benchmark::Counter::kAvgIterations);
}
BENCHMARK(OpenMatrixPage)
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

void ScrollOneScreen(benchmark::State& state) {
    OpenPage project;
    project.page->show();
    QApplication::processEvents();
    QScrollBar* bar = project.grid->verticalScrollBar();
    const int paintsBefore = project.counter.paints;
    for (auto _ : state) {
        const int next = bar->value() + bar->pageStep();
        bar->setValue(next > bar->maximum() ? 0 : next);
        project.grid->viewport()->repaint(); // the whole new screen, painted now
    }
    state.counters["cells"] = (project.grid->viewport()->height() / 20 + 1) *
                              (project.grid->viewport()->width() / 46 + 1);
    state.counters["paints"] = benchmark::Counter(project.counter.paints - paintsBefore,
                                                  benchmark::Counter::kAvgIterations);
}
BENCHMARK(ScrollOneScreen)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(7)
    ->ReportAggregatesOnly(true);

} // namespace

ORRINDEL_QT_BENCHMARK_MAIN()
