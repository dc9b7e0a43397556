// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Items made on a second thread while the caller uses those made already: for work in two
// stages of about equal cost (reading files, then building from them), so that a second core
// does the one while the first does the other. Items are taken in order, each once.
#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

template <typename T> class ReadAhead {
public:
    // make(i) runs on the second thread for i = 0 .. count - 1, in order. It must not touch
    // what the caller changes meanwhile.
    ReadAhead(std::size_t count, std::function<T(std::size_t)> make)
        : items_(count), failures_(count), make_(std::move(make)),
          worker_([this](std::stop_token stop) { MakeAll(stop); }) {}
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    // Stops the second thread after its current item and waits for it.
    ~ReadAhead() = default;

    // Item i, once made; what make(i) threw is thrown here. Items are taken in order, each
    // once: anything else is a mistake of the caller's (std::logic_error). Throws
    // std::runtime_error when the second thread was stopped before it made item i.
    T Take(std::size_t i) {
        {
            std::unique_lock lock(mutex_);
            if (i != taken_ || i >= items_.size())
                throw std::logic_error("ReadAhead: item " + std::to_string(i) + " taken, item " +
                                       std::to_string(taken_) + " expected");
            if (made_ <= i) {
                // Caught up: wait for a batch rather than for each item, so that the threads
                // hand over a few dozen times instead of once per item.
                wanted_ = std::min(items_.size(), i + Batch);
                callerWaits_ = true;
                changed_.wait(lock, worker_.get_stop_token(), [&] { return made_ >= wanted_; });
                callerWaits_ = false;
                if (made_ <= i)
                    throw std::runtime_error("ReadAhead: stopped before the item was made");
            }
            taken_ = i + 1; // whether the item is handed over or its failure thrown
            if (makerWaits_ && taken_ >= room_)
                changed_.notify_all();
        }
        if (failures_[i])
            std::rethrow_exception(failures_[i]);
        T item = std::move(*items_[i]);
        items_[i].reset();
        return item;
    }

    // Stops the second thread after its current item; a Take waiting for an item not made
    // yet returns with an error.
    void Stop() { worker_.request_stop(); }

private:
    // Items made but not taken stay below this many: the memory they hold is bounded, and
    // reused by the items that follow.
    static constexpr std::size_t Window = 4 * 16;
    static constexpr std::size_t Batch = 16;

    void MakeAll(const std::stop_token& stop) {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            {
                std::unique_lock lock(mutex_);
                if (i >= taken_ + Window) {
                    // Ahead by a whole window: go on once the caller has taken a batch.
                    room_ = i + Batch - Window;
                    makerWaits_ = true;
                    const bool room = changed_.wait(lock, stop, [&] { return taken_ >= room_; });
                    makerWaits_ = false;
                    if (!room)
                        return;
                }
            }
            if (stop.stop_requested())
                return;
            try {
                items_[i].emplace(make_(i));
            } catch (...) {
                failures_[i] = std::current_exception();
            }
            const std::lock_guard lock(mutex_);
            made_ = i + 1;
            if (callerWaits_ && made_ >= wanted_)
                changed_.notify_all();
        }
    }

    std::vector<std::optional<T>> items_;
    std::vector<std::exception_ptr> failures_;
    std::function<T(std::size_t)> make_;
    std::mutex mutex_;
    std::condition_variable_any changed_; // made_ reached wanted_, or taken_ reached room_
    std::size_t made_ = 0;                // items made so far
    std::size_t taken_ = 0;               // items taken so far
    std::size_t wanted_ = 0;              // what the caller waits for, when it waits
    std::size_t room_ = 0;                // what the maker waits for, when it waits
    bool callerWaits_ = false, makerWaits_ = false;
    std::jthread worker_; // last: started once everything it uses is ready, stopped first
};
