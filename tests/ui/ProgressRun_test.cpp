// SPDX-License-Identifier: GPL-3.0-or-later
// Long core calls run off the event loop: the window keeps running its timers, the shown
// progress ends at the last step, input waits.
#include "ui/ProgressRun.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <stdexcept>

class ProgressRunTest : public QObject {
    Q_OBJECT
private slots:
    void TheEventLoopRunsAndTheLastStepIsShownButInputWaits() {
        QLineEdit box;
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        int ticks = 0;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, [&] {
            ++ticks;
            QTest::keyClick(&box, Qt::Key_X); // typing while the work runs
        });
        tick.start(20);
        std::vector<progress::Step> shown;
        std::size_t steps = 0;
        progressrun::Run(
            [&](const progress::Report& report) {
                const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
                while (std::chrono::steady_clock::now() < end)
                    report({++steps, 0, 0, 0});
            },
            [&](const progress::Step& step) { shown.push_back(step); });
        tick.stop();
        QVERIFY(ticks >= 3);
        QVERIFY(!shown.empty() && shown.size() < steps); // not every step is drawn
        QCOMPARE(shown.back().outerDone, steps);
        QCOMPARE(box.text(), QString());
    }

    void AFailureOfTheWorkReachesTheCaller() {
        bool shown = false;
        QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                                 progressrun::Run(
                                     [](const progress::Report& report) {
                                         report({1, 2, 0, 0});
                                         throw std::runtime_error("disk full");
                                     },
                                     [&](const progress::Step&) { shown = true; }));
        QVERIFY(shown); // the bars show how far it got
    }
};

QTEST_MAIN(ProgressRunTest)
#include "ProgressRun_test.moc"
