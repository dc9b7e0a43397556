// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ImportActions.h"

#include "import/Import.h"
#include "ui/Dialogs.h"
#include "ui/ProgressRun.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmImport.h"

#include <QProgressBar>

ImportActions::ImportActions(Session& session_, Dialogs& dialogs_, VantelButton* btnImport_,
                             VantelButton* btnImportAll_, QProgressBar* pgImportAll_,
                             QWidget* owner_)
    : QObject(owner_), session(session_), dialogs(dialogs_), btnImport(btnImport_),
      btnImportAll(btnImportAll_), pgImportAll(pgImportAll_), owner(owner_) {
    setObjectName(QStringLiteral("importActions"));
    connect(btnImport, &VantelButton::Click, this, &ImportActions::btnImport_Click);
    connect(btnImportAll, &VantelButton::Click, this, &ImportActions::btnImportAll_Click);
    UpdateEnabled();
}

frmImport* ImportActions::ImportDialog() const {
    return dialog.data();
}

void ImportActions::UpdateEnabled() {
    const bool active = !session.ActiveProject.empty();
    btnImport->setEnabled(active);
    btnImportAll->setEnabled(active);
}

void ImportActions::btnImport_Click() {
    if (dialog) {
        dialog->raise();
        dialog->activateWindow();
        return;
    }
    dialog = new frmImport(session, dialogs, owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (!dialog->Form_Load()) {
        dialog->deleteLater();
        return;
    }
    dialog->show();
}

void ImportActions::btnImportAll_Click() {
    if (session.ActiveProject.empty())
        return;
    // The bar runs from 0 to the last entry's index, as the entries are counted from 0.
    const progressrun::Show show = progressrun::OnBars(
        {{pgImportAll, progressrun::Bar::Count::Outer, progressrun::Bar::Shows::LastIndex}});
    const std::string folder = session.ProjectPath();
    importer::ImportAllResult result;
    const bool imported = dialogs.Attempt(QStringLiteral("Nothing was imported."), [&] {
        progressrun::Run(
            [&](const progress::Report& report) {
                result = importer::ImportAllOriginalFactions(session.appDir, folder, report);
            },
            show);
    });
    if (!imported) {
        pgImportAll->setValue(0);
        return;
    }
    emit session.RegistryChanged();
    pgImportAll->setValue(0);
    if (!result.refused.empty()) {
        QString text = QStringLiteral("These library entries were not imported:");
        for (const importer::LibraryError& refused : result.refused)
            text += QStringLiteral("\n") + Dialogs::Describe(refused);
        dialogs.ShowError(text);
    }
}
