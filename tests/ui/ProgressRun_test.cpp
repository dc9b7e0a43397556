// Long core calls run off the event loop: the window keeps running its timers, the shown
// progress is refreshed about 30 times a second and ends at the last step, input waits.
#include "ui/ProgressRun.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <stdexcept>

class ProgressRunTest : public QObject {
    Q_OBJECT
private slots:
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

    // A bar never becomes a busy indicator (maximum 0), a bar counted from 0 ends at the last
    // index, and a single unit fills its bar.
    void BarsShowTheirCountWithoutEverBecomingBusy() {
        using Shows = progressrun::Bar::Shows;
        struct Case {
            Shows shows;
            std::size_t done, total;
            int maximum, value;
        };
        const Case cases[] = {
            {Shows::Done, 0, 0, 1, 0},        {Shows::Done, 0, 3, 3, 0},
            {Shows::Done, 3, 3, 3, 3},        {Shows::LastIndex, 0, 43, 42, 0},
            {Shows::LastIndex, 1, 43, 42, 0}, {Shows::LastIndex, 43, 43, 42, 42},
            {Shows::LastIndex, 1, 1, 1, 1},   {Shows::LastIndex, 0, 0, 1, 0},
        };
        for (const Case& c : cases) {
            QProgressBar outer;
            QProgressBar inner;
            inner.setRange(0, 7);
            inner.setValue(5);
            progressrun::OnBars({{&outer, progressrun::Bar::Count::Outer, c.shows},
                                 {&inner, progressrun::Bar::Count::Inner}})(
                {c.done, c.total, 2, 4});
            const QString at = QString("%1 of %2").arg(c.done).arg(c.total);
            QVERIFY2(outer.maximum() == c.maximum && outer.value() == c.value, qPrintable(at));
            // Each bar follows its own count.
            QVERIFY(inner.maximum() == 4 && inner.value() == 2);
        }
    }
};

QTEST_MAIN(ProgressRunTest)
#include "ProgressRun_test.moc"
