// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Independent jobs run side by side, one thread each, for a machine with more than one core.
#include <exception>
#include <functional>
#include <vector>

namespace together {

// Runs every job to its end, whatever the others do; failures[i] holds what job i threw
// (null when it succeeded).
std::vector<std::exception_ptr> Run(const std::vector<std::function<void()>>& jobs);

} // namespace together
