// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ProjectManagerPanel.h"

#include "core/ProjectLayout.h"
#include "core/ProtocolLines.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/txtReadWrite.h"
#include "ui/Dialogs.h"
#include "ui/Named.h"
#include "ui/PanelParts.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextEdit>
#include <QTimer>

namespace {

// The name box, in twips: it grows from 150 to 1455 wide in steps of 30.
constexpr int NameBoxLeft = 2760;
constexpr int NameBoxTop = 2880;
constexpr int NameBoxClosed = 150;
constexpr int NameBoxOpen = 1455;
constexpr int NameBoxHeight = 285;
constexpr int NameBoxStep = 30;

// Error numbers of the creation box, as the runtime numbers these failures.
constexpr int BadFileName = 52;
constexpr int PathFileAccessError = 75;
constexpr int PathNotFound = 76;

// The creation error box's text, with the runtime's number of the failure.
QString CreateProjectError(int number, const QString& description) {
    return QStringLiteral("An error occured during create your project.\r\nError %1: %2")
        .arg(number)
        .arg(description);
}

} // namespace

ProjectManagerPanel::ProjectManagerPanel(Session& session_, Dialogs& dialogs_, QWidget* parent)
    : QGroupBox(parent), session(session_), dialogs(dialogs_) {
    setObjectName(QStringLiteral("Frame1"));

    lstProjects = Named(new QListWidget(this), "lstProjects");
    lstProjects->setAccessibleName(QStringLiteral("Projects"));
    twips::Place(lstProjects, 120, 360, 2400, 3240);
    connect(lstProjects, &QListWidget::currentItemChanged, this,
            &ProjectManagerPanel::lstProjects_Click);
    connect(lstProjects, &QListWidget::itemClicked, this, &ProjectManagerPanel::lstProjects_Click);

    Label5 = panel::MakeLabel(this, "Label5", QStringLiteral("Log:"));
    twips::Place(Label5, 2640, 240, 1200, 255);
    rtfLog = Named(new QTextEdit(this), "rtfLog");
    rtfLog->setReadOnly(true);
    rtfLog->setAcceptRichText(false);
    rtfLog->setLineWrapMode(QTextEdit::NoWrap);
    rtfLog->setTabChangesFocus(true); // Tab goes on to the buttons
    Label5->setBuddy(rtfLog);
    twips::Place(rtfLog, 2640, 480, 7080, 2280);

    txtdateiname = Named(new QLineEdit(this), "txtdateiname");
    txtdateiname->setAccessibleName(QStringLiteral("Project name"));
    twips::Place(txtdateiname, NameBoxLeft, NameBoxTop, NameBoxClosed, NameBoxHeight);
    txtdateiname->hide();
    connect(txtdateiname, &QLineEdit::returnPressed, this,
            &ProjectManagerPanel::txtdateiname_KeyPress);

    lblNoProject = panel::MakeLabel(this, "lblNoProject", QString());
    lblNoProject->setStyleSheet(QStringLiteral("color: #b00000; font-weight: bold;"));
    twips::Place(lblNoProject, 4440, 2910, 3000, 255);
    lblNoProject->hide();

    lblActiveProject = panel::MakeLabel(this, "lblActiveProject", QString());
    QFont bold = lblActiveProject->font();
    bold.setBold(true);
    lblActiveProject->setFont(bold);
    lblActiveProject->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    twips::Place(lblActiveProject, 5400, 3300, 4320, 255);
    connect(&session, &Session::ActiveProjectCaptionChanged, this,
            [this] { lblActiveProject->setText(text::ToQt(session.ActiveProjectCaption())); });

    // Created, and so reached with Tab, in the order they stand from left to right.
    VantelButton7 = panel::MakeButton(this, "VantelButton7");
    VantelButton4 = panel::MakeButton(this, "VantelButton4");
    VantelButton6 = panel::MakeButton(this, "VantelButton6");
    VantelButton5 = panel::MakeButton(this, "VantelButton5");
    int left = 120;
    for (VantelButton* button : {VantelButton7, VantelButton4, VantelButton6, VantelButton5}) {
        twips::Place(button, left, 3720, panel::ButtonWidth, panel::ButtonHeight);
        left += panel::ButtonWidth + 120;
    }
    connect(VantelButton4, &VantelButton::Click, this, &ProjectManagerPanel::VantelButton4_Click);
    connect(VantelButton5, &VantelButton::Click, this, &ProjectManagerPanel::VantelButton5_Click);
    connect(VantelButton6, &VantelButton::Click, this, &ProjectManagerPanel::VantelButton6_Click);
    connect(VantelButton7, &VantelButton::Click, this, &ProjectManagerPanel::VantelButton7_Click);

    Timer1 = panel::MakeTimer(this, "Timer1", 1);
    Timer2 = panel::MakeTimer(this, "Timer2", 1);
    Timer7 = panel::MakeTimer(this, "Timer7", 2000);
    connect(Timer1, &QTimer::timeout, this, &ProjectManagerPanel::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &ProjectManagerPanel::Timer2_Timer);
    connect(Timer7, &QTimer::timeout, this, &ProjectManagerPanel::Timer7_Timer);
}

QString ProjectManagerPanel::SelectedProject() const {
    const QListWidgetItem* item = lstProjects->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void ProjectManagerPanel::RefreshProjectList() {
    lstProjects->clear();
    std::vector<std::string> leftOut;
    for (const std::string& name : modFunctions::ListProjects(session.appDir, &leftOut))
        lstProjects->addItem(text::ToQt(name));
    for (const std::string& message : leftOut)
        dialogs.ShowError(text::ToQt(message));
}

void ProjectManagerPanel::lstProjects_Click() {
    const QListWidgetItem* item = lstProjects->currentItem();
    if (!item)
        return;
    const std::string path =
        ProjectLayout::Of(session.appDir, text::ToFile(item->text())).ProtocolFile();
    QString log;
    dialogs.Attempt(QStringLiteral("The protocol could not be read."),
                    [&] { log = text::ToQt(txtReadWrite::ReadFileText(path)); });
    log.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    rtfLog->setPlainText(log);
}

void ProjectManagerPanel::CreateProject(const QString& name) {
    const auto bytes = text::ToFileExact(name);
    if (!bytes) {
        dialogs.ShowError(
            CreateProjectError(BadFileName, QStringLiteral("Project name \"%1\" is refused: it "
                                                           "holds a character that file names "
                                                           "of projects cannot hold")
                                                .arg(name)));
        return;
    }
    const bool created =
        dialogs.Attempt([&] { modFunctions::CreateProjectFolders(session.appDir, *bytes); },
                        [](const std::exception& error) {
                            const bool refused = dynamic_cast<const names::NameRefused*>(&error);
                            return CreateProjectError(refused ? BadFileName : PathFileAccessError,
                                                      Dialogs::Describe(error));
                        });
    if (!created)
        return;
    RefreshProjectList();
    dialogs.Attempt([this] { session.WriteProtocol(protocol::ProjectCreated); },
                    [](const std::exception& error) {
                        return CreateProjectError(PathNotFound, Dialogs::Describe(error));
                    });
}

void ProjectManagerPanel::txtdateiname_KeyPress() {
    // Enter: the box's text as typed names the project; the box closes again.
    CreateProject(txtdateiname->text());
    VantelButton7_Click();
}

void ProjectManagerPanel::VantelButton4_Click() {
    RefreshProjectList();
}

void ProjectManagerPanel::ShowNoProject() {
    lblNoProject->show();
    Timer7->start();
}

void ProjectManagerPanel::VantelButton5_Click() {
    const QString selected = SelectedProject();
    if (selected.isEmpty()) {
        ShowNoProject();
        return;
    }
    const std::string name = text::ToFile(selected);
    if (name == session.ActiveProject)
        session.ActiveProject.clear();
    modFunctions::TrashProjectFolder(session.appDir, name);
    emit ProjectDeleted();
    QCoreApplication::processEvents();
    RefreshProjectList();
}

void ProjectManagerPanel::VantelButton6_Click() {
    const QString selected = SelectedProject();
    if (selected.isEmpty()) {
        ShowNoProject();
        return;
    }
    session.ActiveProject = text::ToFile(selected);
    session.SetActiveProjectCaption(session.ActiveProject);
    emit ProjectLoaded();
}

void ProjectManagerPanel::VantelButton7_Click() {
    if (txtdateiname->isHidden())
        Timer1->start();
    else
        Timer2->start();
}

void ProjectManagerPanel::Timer1_Timer() {
    if (txtdateiname->isHidden()) {
        txtdateiname->show();
        txtdateiname->setFocus();
        txtdateiname->selectAll();
    }
    twips::SetWidth(txtdateiname, twips::Width(txtdateiname) + NameBoxStep);
    if (twips::Width(txtdateiname) >= NameBoxOpen)
        Timer1->stop();
}

void ProjectManagerPanel::Timer2_Timer() {
    twips::SetWidth(txtdateiname, twips::Width(txtdateiname) - NameBoxStep);
    if (twips::Width(txtdateiname) <= NameBoxClosed) {
        txtdateiname->hide();
        Timer2->stop();
    }
}

void ProjectManagerPanel::Timer7_Timer() {
    lblNoProject->hide();
    Timer7->stop();
}
