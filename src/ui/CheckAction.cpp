#include "ui/CheckAction.h"

#include "ui/Captions.h"
#include "ui/Dialogs.h"
#include "ui/RegistryPanel.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmCheck.h"
#include "ui/frmMain.h"

CheckAction::CheckAction(Session& session_, Dialogs& dialogs_, VantelButton* btnCheck,
                         frmMain& window)
    : QObject(&window), session(session_), dialogs(dialogs_), mainWindow(window) {
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
    try {
        findings = check::CheckProject(session.appDir, session.ActiveProject);
    } catch (const std::exception& error) {
        dialogs.ShowError(QStringLiteral("The project could not be checked.\r\n") +
                          Dialogs::Describe(error));
        return;
    }
    // A new check replaces the findings shown before, in a window at the same place.
    QRect place;
    if (window) {
        place = window->geometry();
        window->close();
    }
    window = new frmCheck(
        std::move(findings), text::ToQt(session.ActiveProject),
        [this](const check::Finding& finding) { ShowFinding(mainWindow, finding); },
        mainWindow.ShownLanguage(), &mainWindow);
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (place.isValid())
        window->setGeometry(place);
    window->show();
    window->raise();
}

void ShowFinding(frmMain& mainWindow, const check::Finding& finding) {
    switch (finding.store) {
    case check::Store::Registry:
        mainWindow.ShowFaction(frmMain::Projects, {});
        mainWindow.Registry().ChooseFaction(finding.faction);
        break;
    case check::Store::Reputation:
        mainWindow.ShowFaction(frmMain::Emphaty, finding.faction);
        break;
    case check::Store::FactionProps:
        mainWindow.ShowFaction(frmMain::FactionProp, finding.faction);
        if (finding.list)
            mainWindow.ShowPickList(*finding.list);
        break;
    case check::Store::InitialWorld:
        mainWindow.ShowFaction(frmMain::InitialWorld, finding.faction);
        break;
    }
    mainWindow.raise();
    mainWindow.activateWindow();
}
