// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Runs a long core call (a compile, import all) off the event loop, so that the window keeps
// painting and answering while it works, and shows its progress at most about 30 times a
// second instead of once per row. The call returns when the work is done, as a direct call
// would: what follows it (the protocol line, a reload) runs afterwards on the window's thread.
#include "core/Progress.h"

#include <functional>
#include <vector>

class QProgressBar;

namespace progressrun {

// How often the shown progress is refreshed while the work runs.
inline constexpr int RefreshMs = 33;

using Work = std::function<void(const progress::Report&)>;
using Show = std::function<void(const progress::Step&)>;

// Runs work on a worker thread and waits for it in a local event loop. Meanwhile keyboard and
// mouse input to the application's windows is held back (nothing may reach the core while the
// worker uses it; painting, timers and window moves go on), show gets the latest step at most
// every RefreshMs, and once more with the final step when the work ends. An exception of the
// work is rethrown here.
void Run(const Work& work, const Show& show);

// A progress bar that follows one count of the steps.
struct Bar {
    enum class Count { Outer, Inner };
    // Done: the bar runs to the total and shows how many are done. LastIndex: the units are
    // counted from 0 and the bar shows the index of the last one done.
    enum class Shows { Done, LastIndex };
    QProgressBar* bar;
    Count count;
    Shows shows = Shows::Done;
};
// Moves each bar to the step. A maximum of 0 would turn a bar into a busy indicator: a bar
// never gets less than 1, and a run of a single unit fills it when that unit is done.
Show OnBars(std::vector<Bar> bars);

} // namespace progressrun
