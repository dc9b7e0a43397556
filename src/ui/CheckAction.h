#pragma once
// The registry panel's check button: it checks the active project and shows the findings in
// frmCheck. A double-click on a finding comes back through ShowFinding.
#include "check/ProjectCheck.h"

#include <QObject>
#include <QPointer>

class QWidget;
class Dialogs;
class VantelButton;
class frmCheck;
struct Session;

class CheckAction : public QObject {
    Q_OBJECT
public:
    // owner is the main window: findings are shown in it, and the findings window is its own.
    CheckAction(Session& session, Dialogs& dialogs, VantelButton* btnCheck, QWidget* owner);
    // The open findings window, or null.
    frmCheck* FindingsWindow() const;

private slots:
    void btnCheck_Click();

private:
    Session& session;
    Dialogs& dialogs;
    VantelButton* btnCheck;
    QWidget* owner;
    QPointer<frmCheck> window;
};

// Takes the main window to what a finding is about: the tab of SSTab1 that holds its store's
// page, the faction chosen there as a user's pick would choose it (the registry list's entry
// clicked, for the registry), and for a list file the list's tab of SSTab2. Controls are
// found by object name, so the window's layout may change around them.
void ShowFinding(QWidget& mainWindow, const check::Finding& finding);
