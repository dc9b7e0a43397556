// Long core calls run off the event loop: the window keeps running its timers, the shown
// progress is refreshed about 30 times a second and ends at the last step, input waits.
#include "ui/ProgressRun.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <stdexcept>

class ProgressRunTest : public QObject {
    Q_OBJECT
private slots:
    void ShowsAboutThirtyTimesASecondAndEndsAtTheLastStep() {
        QLineEdit box;
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        int ticks = 0;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, [&] {
            ++ticks;
            // Typing while the work runs does not reach the controls.
            QTest::keyClick(&box, Qt::Key_X);
        });
        tick.start(20);

        std::vector<progress::Step> shown;
        QElapsedTimer clock;
        clock.start();
        std::size_t steps = 0;
        progressrun::Run(
            [&](const progress::Report& report) {
                const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
                while (std::chrono::steady_clock::now() < end)
                    report({++steps, 0, 0, 0});
            },
            [&](const progress::Step& step) { shown.push_back(step); });
        const qint64 elapsed = clock.elapsed();
        tick.stop();

        QVERIFY(ticks >= 5); // the event loop ran all along
        QVERIFY2(shown.size() >= 3 && shown.size() <= std::size_t(elapsed / 33 + 3),
                 qPrintable(QString("%1 refreshes in %2 ms").arg(shown.size()).arg(elapsed)));
        QCOMPARE(shown.back().outerDone, steps);
        for (std::size_t i = 1; i < shown.size(); ++i)
            QVERIFY(shown[i].outerDone >= shown[i - 1].outerDone);
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
