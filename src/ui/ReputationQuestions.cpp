// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ReputationQuestions.h"

#include "reputation/ReputationFiles.h"
#include "ui/Dialogs.h"
#include "ui/Text.h"

namespace reputationQuestions {

// The default is always "0.0", never the value being replaced.
QString AskEmpathyRate(Dialogs& dialogs) {
    return dialogs.InputBox(QStringLiteral("Reputation"), QStringLiteral("REP"),
                            text::ToQt(reputation::DefaultValue));
}

QString AskStartingReputation(Dialogs& dialogs) {
    return dialogs.InputBox(QStringLiteral("Reputation"), QStringLiteral("Initialworld"),
                            QStringLiteral("0.0"));
}

} // namespace reputationQuestions
