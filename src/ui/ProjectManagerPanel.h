// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The project manager (Frame1 on the first page): the project list, the protocol view, the
// buttons New, Refresh, Load and Delete, the growing and shrinking name box and the notice
// that no project is selected.
#include <QGroupBox>
#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextEdit;
class QTimer;
class Dialogs;
class Session;
class VantelButton;

class ProjectManagerPanel : public QGroupBox {
    Q_OBJECT
public:
    ProjectManagerPanel(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);

    // Fills the project list from the projects folder.
    void RefreshProjectList();

signals:
    // Load made the selected project the active one; lblActiveProject shows it.
    void ProjectLoaded();
    // Delete removed a project (perhaps the active one).
    void ProjectDeleted();

private slots:
    void lstProjects_Click();
    void txtdateiname_KeyPress();
    void VantelButton4_Click();
    void VantelButton5_Click();
    void VantelButton6_Click();
    void VantelButton7_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer7_Timer();

private:
    void CreateProject(const QString& name);
    void ShowNoProject();
    QString SelectedProject() const;

    Session& session;
    Dialogs& dialogs;

    QListWidget* lstProjects;
    QLabel* Label5;
    QTextEdit* rtfLog;
    QLineEdit* txtdateiname;
    QLabel* lblNoProject;
    QLabel* lblActiveProject;
    VantelButton* VantelButton4;
    VantelButton* VantelButton5;
    VantelButton* VantelButton6;
    VantelButton* VantelButton7;
    QTimer* Timer1;
    QTimer* Timer2;
    QTimer* Timer7;
};
