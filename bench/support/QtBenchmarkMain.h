// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Window benchmarks run in an offscreen application; modal questions get no answer.
#include "ui/Dialogs.h"

#include <QApplication>
#include <benchmark/benchmark.h>

class SilentDialogs : public Dialogs {
public:
    QString InputBox(const QString&, const QString&, const QString&) override { return {}; }
    void MessageBox(QMessageBox::Icon, const QString&, const QString&) override {}
};

#define ORRINDEL_QT_BENCHMARK_MAIN()                                                               \
    int main(int argc, char** argv) {                                                              \
        qputenv("QT_QPA_PLATFORM", "offscreen");                                                   \
        QApplication app(argc, argv);                                                              \
        benchmark::Initialize(&argc, argv);                                                        \
        benchmark::RunSpecifiedBenchmarks();                                                       \
        benchmark::Shutdown();                                                                     \
        return 0;                                                                                  \
    }
