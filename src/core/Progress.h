// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How far a long run has got, for whoever shows it: the three compilers and the importer all
// report through this one type. `outer` counts whole units (factions, library entries);
// `inner` counts the rows of the unit under way, for the compilers that walk rows.
#include <cstddef>
#include <functional>

namespace progress {

struct Step {
    std::size_t outerDone = 0; // units finished
    std::size_t outerTotal = 0;
    std::size_t innerDone = 0; // rows of the current unit finished
    std::size_t innerTotal = 0;
};

// Called on the thread that runs the work, once before the first unit (all counts done at 0),
// after every row and after every unit. May be empty.
using Report = std::function<void(const Step&)>;

inline void Tell(const Report& report, const Step& step) {
    if (report)
        report(step);
}

} // namespace progress
