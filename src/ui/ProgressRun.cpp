// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ProgressRun.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QProgressBar>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>

namespace progressrun {
namespace {

// The latest step, handed from the worker to the window. The worker publishes only every few
// hundred steps, so a compile of a million rows takes the lock a few thousand times.
class Mailbox {
public:
    void Put(const progress::Step& step) {
        const std::lock_guard lock(mutex_);
        step_ = step;
        fresh_ = true;
    }
    bool Take(progress::Step& step) {
        const std::lock_guard lock(mutex_);
        if (!fresh_)
            return false;
        step = step_;
        fresh_ = false;
        return true;
    }

private:
    std::mutex mutex_;
    progress::Step step_;
    bool fresh_ = false;
};

// Holds back the user's keyboard and mouse while it exists.
class InputHold : public QObject {
public:
    InputHold() { qApp->installEventFilter(this); }
    ~InputHold() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::ContextMenu:
        case QEvent::Close:
            return true;
        default:
            return QObject::eventFilter(watched, event);
        }
    }
};

constexpr unsigned PublishEvery = 256;

} // namespace

void Run(const Work& work, const Show& show) {
    Mailbox mailbox;
    progress::Step last;
    std::exception_ptr failure;
    unsigned sincePublished = 0;
    const progress::Report report = [&](const progress::Step& step) {
        last = step;
        // The first step sets the bars' maximums at once; later ones go out in batches.
        if (sincePublished++ % PublishEvery == 0)
            mailbox.Put(step);
    };

    std::unique_ptr<QThread> worker(QThread::create([&] {
        try {
            work(report);
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    QEventLoop loop;
    QTimer refresh;
    refresh.setInterval(RefreshMs);
    QObject::connect(&refresh, &QTimer::timeout, [&] {
        progress::Step step;
        if (mailbox.Take(step))
            show(step);
    });
    QObject::connect(worker.get(), &QThread::finished, &loop, &QEventLoop::quit);
    {
        const InputHold hold;
        worker->start();
        refresh.start();
        loop.exec();
        refresh.stop();
        // The loop may also end because the application quits: the worker still finishes.
        worker->wait();
    }
    // After wait(), the worker's last step and failure are ours to read.
    if (sincePublished > 0)
        show(last);
    if (failure)
        std::rethrow_exception(failure);
}

Show OnBars(std::vector<Bar> bars) {
    return [bars = std::move(bars)](const progress::Step& step) {
        for (const Bar& each : bars) {
            const bool outer = each.count == Bar::Count::Outer;
            const int done = static_cast<int>(outer ? step.outerDone : step.innerDone);
            const int total = static_cast<int>(outer ? step.outerTotal : step.innerTotal);
            const bool fromZero = each.shows == Bar::Shows::LastIndex && total > 1;
            each.bar->setMaximum(std::max(fromZero ? total - 1 : total, 1));
            each.bar->setValue(fromZero && done > 0 ? done - 1 : done);
        }
    };
}

} // namespace progressrun
