// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/CheckAction.h"

#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmCheck.h"

CheckAction::CheckAction(Session& session_, Dialogs& dialogs_, VantelButton* btnCheck,
                         Window window_)
    : QObject(&window_.widget), session(session_), dialogs(dialogs_), owner(std::move(window_)) {
    setObjectName(QStringLiteral("checkAction"));
    connect(btnCheck, &VantelButton::Click, this, &CheckAction::btnCheck_Click);
}

frmCheck* CheckAction::FindingsWindow() const {
    return window.data();
}

void CheckAction::btnCheck_Click() {
    if (session.ActiveProject.empty())
        return;
    std::vector<check::Finding> findings;
    const bool checked = dialogs.Attempt(
        [&] { findings = check::CheckProject(session.appDir, session.ActiveProject); },
        [](const std::exception& error) {
            return QStringLiteral("The project could not be checked.\r\n") +
                   Dialogs::Describe(error);
        });
    if (!checked)
        return;
    // A new check replaces the findings shown before, in a window at the same place.
    QRect place;
    if (window) {
        place = window->geometry();
        window->close();
    }
    window = new frmCheck(std::move(findings), text::ToQt(session.ActiveProject), owner.showFinding,
                          owner.language(), &owner.widget);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (place.isValid())
        window->setGeometry(place);
    window->show();
    window->raise();
}
