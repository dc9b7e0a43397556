// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The input boxes that ask for a reputation value. The one-faction pages and the matrix page
// ask the same question for the same store, so each box is defined once here.
#include <QString>

class Dialogs;

namespace reputationQuestions {
// An empathy rate (reps_<nickname>.facts): prompt "Reputation", title "REP", default "0.0".
QString AskEmpathyRate(Dialogs& dialogs);
// A starting reputation (initialworld\grp.ini): prompt "Reputation", title "Initialworld",
// default "0.0".
QString AskStartingReputation(Dialogs& dialogs);
} // namespace reputationQuestions
