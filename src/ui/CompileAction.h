// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "INI erstellen" button of each game file's page: the compile runs off the event loop
// with the page's bars moving, and its protocol line goes to the project that
// lblActiveProject names.
#include "compile/Compile.h"
#include "ui/ProgressRun.h"

#include <QString>

class Dialogs;
class Session;

namespace compileAction {

// A failure is told as `failure` (the game file was not written) or as the protocol line not
// written, each followed by the core's description.
void Run(Dialogs& dialogs, const Session& session, const compile::Job& job, const QString& failure,
         std::vector<progressrun::Bar> bars);

} // namespace compileAction
