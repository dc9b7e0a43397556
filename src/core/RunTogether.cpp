// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RunTogether.h"

#include <thread>

namespace together {

std::vector<std::exception_ptr> Run(const std::vector<std::function<void()>>& jobs) {
    std::vector<std::exception_ptr> failures(jobs.size());
    const auto runJob = [&](std::size_t i) {
        try {
            jobs[i]();
        } catch (...) {
            failures[i] = std::current_exception();
        }
    };
    {
        // The first job runs on this thread: one thread fewer to start.
        std::vector<std::jthread> others;
        for (std::size_t i = 1; i < jobs.size(); ++i)
            others.emplace_back(runJob, i);
        if (!jobs.empty())
            runJob(0);
    } // joined here
    return failures;
}

} // namespace together
