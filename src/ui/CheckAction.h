// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The registry panel's check button: it checks the active project and shows the findings in
// frmCheck. A double-click on a finding goes to the window that takes the user there.
#include "check/ProjectCheck.h"
#include "ui/Captions.h"

#include <QObject>
#include <QPointer>
#include <functional>

class Dialogs;
class QWidget;
class VantelButton;
class frmCheck;
class Session;

class CheckAction : public QObject {
    Q_OBJECT
public:
    // What the action asks of the window it works for.
    struct Window {
        QWidget& widget;                              // owns this action and the findings window
        std::function<captions::Language()> language; // the findings window opens in it
        std::function<void(const check::Finding&)> showFinding;
    };
    CheckAction(Session& session, Dialogs& dialogs, VantelButton* btnCheck, Window window);
    // The open findings window, or null.
    frmCheck* FindingsWindow() const;

private slots:
    void btnCheck_Click();

private:
    Session& session;
    Dialogs& dialogs;
    Window owner;
    QPointer<frmCheck> window;
};
