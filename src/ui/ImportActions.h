// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The main window's two import buttons: "Importiere Original" opens the import dialog,
// "Alle importieren" imports the whole library with pgImportAll showing the progress.
#include <QObject>
#include <QPointer>

class QProgressBar;
class QWidget;
class Dialogs;
class VantelButton;
class frmImport;
class Session;

class ImportActions : public QObject {
    Q_OBJECT
public:
    ImportActions(Session& session, Dialogs& dialogs, VantelButton* btnImport,
                  VantelButton* btnImportAll, QProgressBar* pgImportAll, QWidget* owner);

    // Both buttons work only while a project is active; the main window calls this after
    // loading or deleting a project.
    void UpdateEnabled();
    // The open import dialog, or null.
    frmImport* ImportDialog() const;

private slots:
    void btnImport_Click();
    void btnImportAll_Click();

private:
    Session& session;
    Dialogs& dialogs;
    VantelButton* btnImport;
    VantelButton* btnImportAll;
    QProgressBar* pgImportAll;
    QWidget* owner;
    QPointer<frmImport> dialog;
};
