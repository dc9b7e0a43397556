#include "ui/ProgressRun.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
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

} // namespace progressrun
