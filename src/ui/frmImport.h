// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The import dialog: the library entries of the reputation folder, "Import" and "Close".
// It does not block the main window; each import goes into the project that
// lblActiveProject shows at that moment.
#include <QDialog>
#include <string>

class QListWidget;
class QListWidgetItem;
class Dialogs;
class VantelButton;
class Session;

class frmImport : public QDialog {
    Q_OBJECT
public:
    frmImport(Session& session, Dialogs& dialogs, QWidget* owner);

    // Points File1 at the reputation folder. False (after the error box) when the folder
    // cannot be read; the caller then lets the dialog go.
    bool Form_Load();
    // The name of the entry clicked last; re-reading the list does not change it.
    const std::string& ChosenNickname() const { return chosenNickname; }

private slots:
    void File1_Click(QListWidgetItem* item);
    void btnImport_Click();
    void VantelButton1_Click();

private:
    // Re-reads File1 from the folder it is pointed at.
    void ShowFolder(const std::string& folder);

    Session& session;
    Dialogs& dialogs;
    std::string chosenNickname;

    QListWidget* File1;
    VantelButton* btnImport;
    VantelButton* VantelButton1;
};
