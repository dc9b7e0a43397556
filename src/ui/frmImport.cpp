// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmImport.h"

#include "core/ProtocolLines.h"
#include "core/platform.h"
#include "import/Import.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
// The run-time error of a folder that cannot be found.
constexpr int PathNotFound = 76;
} // namespace

frmImport::frmImport(Session& session_, Dialogs& dialogs_, QWidget* owner)
    : QDialog(owner), session(session_), dialogs(dialogs_) {
    setObjectName(QStringLiteral("frmImport"));
    setWindowTitle(QStringLiteral("Import..."));
    setModal(false);

    File1 = new QListWidget(this);
    File1->setObjectName(QStringLiteral("File1"));
    btnImport = new VantelButton(this);
    btnImport->setObjectName(QStringLiteral("btnImport"));
    btnImport->setCaption(QStringLiteral("Import"));
    btnImport->setEnabled(false); // until an entry is chosen
    VantelButton1 = new VantelButton(this);
    VantelButton1->setObjectName(QStringLiteral("VantelButton1"));
    VantelButton1->setCaption(QStringLiteral("Close"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(File1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(btnImport);
    buttons->addStretch();
    buttons->addWidget(VantelButton1);
    layout->addLayout(buttons);
    resize(300, 360);

    connect(File1, &QListWidget::itemClicked, this, &frmImport::File1_Click);
    // Choosing an entry with the keyboard counts as clicking it.
    connect(File1, &QListWidget::itemSelectionChanged, this, [this] {
        if (const auto selected = File1->selectedItems(); !selected.isEmpty())
            File1_Click(selected.front());
    });
    connect(btnImport, &VantelButton::Click, this, &frmImport::btnImport_Click);
    connect(VantelButton1, &VantelButton::Click, this, &frmImport::VantelButton1_Click);
}

bool frmImport::Form_Load() {
    const std::string folder = importer::ReputationFolder(session.appDir);
    if (!platform::IsDirectory(folder)) {
        dialogs.MessageBox(QMessageBox::Critical, QStringLiteral("Orrindel 2.0"),
                           QString::number(PathNotFound) + QStringLiteral(": Path not found"));
        return false;
    }
    ShowFolder(folder);
    return true;
}

void frmImport::ShowFolder(const std::string& folder) {
    File1->clear();
    for (const std::string& name : importer::ListOriginalFactions(folder))
        File1->addItem(text::ToQt(name));
}

void frmImport::File1_Click(QListWidgetItem* item) {
    if (!item)
        return;
    chosenNickname = text::ToFile(item->text());
    btnImport->setEnabled(!chosenNickname.empty());
}

void frmImport::btnImport_Click() {
    if (chosenNickname.empty())
        return;
    if (session.ActiveProjectCaption().empty()) {
        dialogs.ShowError(QStringLiteral("No project is loaded; nothing was imported."));
        return;
    }
    const bool imported = dialogs.Attempt(
        [&] {
            importer::ImportOriginalFaction(session.appDir, chosenNickname,
                                            session.CaptionProjectPath());
        },
        [this](const std::exception& error) {
            return text::ToQt(chosenNickname) + QStringLiteral(" was not imported:\n") +
                   Dialogs::Describe(error);
        });
    if (!imported)
        return;
    ShowFolder(importer::ReputationFolder(session.appDir));
    emit session.RegistryChanged();
    dialogs.Attempt([this] { session.WriteProtocol(protocol::OriginalImported); },
                    [](const std::exception& error) {
                        return QStringLiteral("The protocol could not be written:\n") +
                               Dialogs::Describe(error);
                    });
}

void frmImport::VantelButton1_Click() {
    close();
}
