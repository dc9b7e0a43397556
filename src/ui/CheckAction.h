#pragma once
// The registry panel's check button: it checks the active project and shows the findings in
// frmCheck. A double-click on a finding comes back through ShowFinding.
#include "check/ProjectCheck.h"

#include <QObject>
#include <QPointer>

class Dialogs;
class VantelButton;
class frmCheck;
class frmMain;
class Session;

class CheckAction : public QObject {
    Q_OBJECT
public:
    // Findings are shown in the main window, which owns this action and the findings window.
    CheckAction(Session& session, Dialogs& dialogs, VantelButton* btnCheck, frmMain& window);
    // The open findings window, or null.
    frmCheck* FindingsWindow() const;

private slots:
    void btnCheck_Click();

private:
    Session& session;
    Dialogs& dialogs;
    frmMain& mainWindow;
    QPointer<frmCheck> window;
};

// Takes the main window to what a finding is about: its store's page with the faction chosen
// as a user's pick would choose it (the registry list's entry, for the registry), and for a
// list file the list's tab.
void ShowFinding(frmMain& mainWindow, const check::Finding& finding);
