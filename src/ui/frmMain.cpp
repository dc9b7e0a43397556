// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmMain.h"

#include "check/ProjectCheck.h"
#include "core/modFunctions.h"
#include "ui/Captions.h"
#include "ui/CheckAction.h"
#include "ui/Dialogs.h"
#include "ui/EditSteps.h"
#include "ui/FactionPropsPage.h"
#include "ui/InitialWorldPage.h"
#include "ui/MatrixPage.h"
#include "ui/PanelParts.h"
#include "ui/ProjectManagerPanel.h"
#include "ui/RegistryPanel.h"
#include "ui/ReputationPage.h"
#include "ui/Session.h"
#include "ui/SlideAnimation.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"
#include "ui/XmlScriptPage.h"
#include "ui/frmAbout.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

// Placement of the two panels, in twips.
constexpr int FrameTop = 1080;
constexpr int FrameHeight = 4215;
constexpr int Frame1Left = 120;
constexpr int Frame2Left = 9960;
constexpr int Frame2Width = 15;

// Assistive technology sees the main window as a window named by its title (a plain widget
// would be announced as a nameless filler).
class MainWindowAccessible : public QAccessibleWidget {
public:
    explicit MainWindowAccessible(QWidget* window)
        : QAccessibleWidget(window, QAccessible::Window) {}
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name)
            return widget()->windowTitle();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* MainWindowFactory(const QString& className, QObject* object) {
    if (className == QLatin1String("frmMain") && object && object->isWidgetType())
        return new MainWindowAccessible(static_cast<QWidget*>(object));
    return nullptr;
}

void RegisterAccessibleOnce() {
    static const bool registered = [] {
        QAccessible::installFactory(MainWindowFactory);
        return true;
    }();
    (void)registered;
}

} // namespace

frmMain::frmMain(Session& session_, Dialogs& dialogs_, QWidget* parent)
    : QWidget(parent), session(session_), dialogs(dialogs_) {
    RegisterAccessibleOnce();
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Dialogs::ApplicationTitle());

    auto* layout = new QVBoxLayout(this);
    BuildTopButtons();
    BuildHistoryButtons();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(VantelButton1);
    buttons->addWidget(VantelButton2);
    buttons->addStretch();
    buttons->addWidget(btnUndo);
    buttons->addWidget(btnRedo);
    buttons->addWidget(VantelButton3);
    layout->addLayout(buttons);

    SSTab1 = Named(new QTabWidget(this), "SSTab1");
    SSTab1->addTab(BuildProjectsPage(), QString());
    layout->addWidget(SSTab1);

    // The captions stored with the window are the German ones. The pages are not there
    // yet, so they keep the captions they were built with until the first switch.
    German();

    AddPage(new ReputationPage(session, dialogs, this), QStringLiteral("Emphaty.ini"));
    factionPropsPage = new FactionPropsPage(session, dialogs, this);
    AddPage(factionPropsPage, QStringLiteral("Faction_Prop.ini"));
    AddPage(new InitialWorldPage(session, dialogs, this), QStringLiteral("Initialworld.ini"));
    AddPage(new XmlScriptPage(dialogs, this), QStringLiteral("XML-Script"));
    AddPage(new MatrixPage(session, dialogs, this), QStringLiteral("Matrix"));
    // The project check, with its findings window.
    VantelButton* btnCheck = registryPanel->AddButton("btnCheck");
    btnCheck->setCaption(QStringLiteral("Prüfen"));
    new CheckAction(session, dialogs, btnCheck,
                    {*this, [this] { return ShownLanguage(); },
                     [this](const check::Finding& finding) { ShowFinding(finding); }});

    Form_Load();
}

void frmMain::BuildTopButtons() {
    VantelButton1 = panel::MakeButton(this, "VantelButton1");
    VantelButton2 = panel::MakeButton(this, "VantelButton2");
    VantelButton3 = panel::MakeButton(this, "VantelButton3");
    for (VantelButton* button : {VantelButton1, VantelButton2, VantelButton3})
        button->setFixedSize(twips::ToPixels(panel::ButtonWidth),
                             twips::ToPixels(panel::ButtonHeight));
    VantelButton3->setCaption(QStringLiteral("?"));
    VantelButton3->setBold(true);
    connect(VantelButton1, &VantelButton::Click, this, &frmMain::VantelButton1_Click);
    connect(VantelButton2, &VantelButton::Click, this, &frmMain::VantelButton2_Click);
    connect(VantelButton3, &VantelButton::Click, this, &frmMain::VantelButton3_Click);
}

void frmMain::BuildHistoryButtons() {
    steps = new EditSteps(
        session, dialogs, [this] { return ShownLanguage(); }, this);
    btnUndo = panel::MakeButton(this, "btnUndo");
    btnRedo = panel::MakeButton(this, "btnRedo");
    for (VantelButton* button : {btnUndo, btnRedo}) {
        button->setFixedSize(twips::ToPixels(panel::ButtonWidth),
                             twips::ToPixels(panel::ButtonHeight));
        steps->Exempt(button);
    }
    connect(btnUndo, &VantelButton::Click, steps, &EditSteps::Undo);
    connect(btnRedo, &VantelButton::Click, steps, &EditSteps::Redo);
    // Anywhere in the window; a text field with typing of its own to undo keeps the keys.
    const auto shortcut = [this](QKeyCombination keys, void (EditSteps::*action)()) {
        auto* key = new QShortcut(QKeySequence(keys), this);
        key->setContext(Qt::WindowShortcut);
        connect(key, &QShortcut::activated, steps, action);
    };
    shortcut(Qt::CTRL | Qt::Key_Z, &EditSteps::Undo);
    shortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &EditSteps::Redo);
    shortcut(Qt::CTRL | Qt::Key_Y, &EditSteps::Redo);
    connect(steps, &EditSteps::Changed, this, &frmMain::ShowHistory);
    connect(steps, &EditSteps::Restored, this, &frmMain::ShowRestoredFiles);
}

void frmMain::ShowHistory() {
    btnUndo->setEnabled(steps->CanUndo());
    btnRedo->setEnabled(steps->CanRedo());
    btnUndo->setToolTip(steps->UndoTip());
    btnRedo->setToolTip(steps->RedoTip());
}

void frmMain::ShowRestoredFiles() {
    // The faction each page shows, by its picker, chosen again once the lists are refilled.
    std::vector<std::pair<RegistryView*, std::string>> chosen;
    for (int page = 0; page < SSTab1->count(); ++page)
        if (auto* view = dynamic_cast<RegistryView*>(SSTab1->widget(page)))
            for (const QComboBox* picker : SSTab1->widget(page)->findChildren<QComboBox*>())
                if (picker->objectName().endsWith(QLatin1String("_group")) &&
                    !picker->currentText().isEmpty())
                    chosen.emplace_back(view, text::ToFile(picker->currentText()));
    const int shown = SSTab1->currentIndex();
    registryPanel->LoadFactionRegistry();
    registryPanel->ShowFactionCount();
    for (const auto& [view, nickname] : chosen)
        view->ChooseFaction(nickname);
    SSTab1->setCurrentIndex(shown);
}

QWidget* frmMain::BuildProjectsPage() {
    auto* page = Named(new QWidget, "ProjectsPage");
    page->setMinimumSize(twips::ToPixels(10200), twips::ToPixels(FrameTop + FrameHeight + 120));
    Frame1 = new ProjectManagerPanel(session, dialogs, page);
    registryPanel = new RegistryPanel(session, dialogs, page);
    twips::Place(Frame1, Frame1Left, FrameTop, panel::Frame1Width, FrameHeight);
    twips::Place(registryPanel, Frame2Left, FrameTop, Frame2Width, FrameHeight);
    registryPanel->hide();
    slides = new SlideAnimation(session, page, Frame1, registryPanel);
    connect(Frame1, &ProjectManagerPanel::ProjectLoaded, this, &frmMain::Frame1_ProjectLoaded);
    connect(Frame1, &ProjectManagerPanel::ProjectDeleted, registryPanel,
            &RegistryPanel::UpdateImportButtons);
    connect(Frame1, &ProjectManagerPanel::ProjectDeleted, this, [this] {
        if (session.ActiveProject.empty())
            steps->StartHistory();
    });
    return page;
}

int frmMain::AddPage(QWidget* page, const QString& caption) {
    if (auto* view = dynamic_cast<RegistryView*>(page))
        registryPanel->AddView(view);
    return SSTab1->addTab(page, caption);
}

void frmMain::ShowPickList(factionprops::PickList list) {
    factionPropsPage->ShowList(list);
}

bool frmMain::ShowFaction(int page, const std::string& nickname) {
    if (page < 0 || page >= SSTab1->count())
        return false;
    SSTab1->setCurrentIndex(page);
    auto* view = dynamic_cast<RegistryView*>(SSTab1->widget(page));
    return view && view->ChooseFaction(nickname);
}

void frmMain::ShowFinding(const check::Finding& finding) {
    switch (finding.store) {
    case check::Store::Registry:
        ShowFaction(Projects, {});
        registryPanel->ChooseFaction(finding.faction);
        break;
    case check::Store::Reputation:
        ShowFaction(Emphaty, finding.faction);
        break;
    case check::Store::FactionProps:
        ShowFaction(FactionProp, finding.faction);
        if (finding.list)
            ShowPickList(*finding.list);
        break;
    case check::Store::InitialWorld:
        ShowFaction(InitialWorld, finding.faction);
        break;
    }
    raise();
    activateWindow();
}

// ---- languages ----

void frmMain::German() {
    dialogs.SetLanguage(captions::Language::German);
    captions::Apply(*this, captions::Language::German);
    if (factionPropsPage)
        factionPropsPage->NameListsByTabs();
    ShowHistory();
}

void frmMain::English() {
    dialogs.SetLanguage(captions::Language::English);
    captions::Apply(*this, captions::Language::English);
    if (factionPropsPage)
        factionPropsPage->NameListsByTabs();
    ShowHistory();
}

captions::Language frmMain::ShownLanguage() const {
    return VantelButton2->Caption() == QLatin1String(captions::OfferEnglish)
               ? captions::Language::German
               : captions::Language::English;
}

void frmMain::VantelButton2_Click() {
    if (ShownLanguage() == captions::Language::German)
        English();
    else
        German();
}

// ---- start-up and end ----

void frmMain::Form_Load() {
    dialogs.Attempt(QStringLiteral("The projects folder could not be created."),
                    [this] { modFunctions::EnsureProjectsFolder(session.appDir); });
    SSTab1->setCurrentIndex(0);
    factionPropsPage->ShowFirstList();
    Frame1->RefreshProjectList();
}

void frmMain::closeEvent(QCloseEvent* event) {
    // Every change is on disk already: closing ends the program, other windows included.
    event->accept();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != this && window->isVisible())
            window->close();
    QCoreApplication::quit();
}

void frmMain::VantelButton1_Click() {
    close();
}

void frmMain::VantelButton3_Click() {
    // A closed About window may still wait for its deletion: only a shown one is raised.
    if (about && about->isVisible()) {
        about->raise();
        about->activateWindow();
        return;
    }
    about = new frmAbout;
    about->show();
}

// ---- panels ----

void frmMain::LoadFactionRegistry() {
    registryPanel->LoadFactionRegistry();
}

void frmMain::Frame1_ProjectLoaded() {
    steps->StartHistory(); // another project, another history
    registryPanel->LoadFactionRegistry();
    QCoreApplication::processEvents();
    registryPanel->ShowFactionCount();
    registryPanel->UpdateImportButtons();
    slides->Label4_Click();
}
