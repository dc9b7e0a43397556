#include "ui/frmMain.h"

#include "core/modFunctions.h"
#include "core/names.h"
#include "core/txtReadWrite.h"
#include "ui/Captions.h"
#include "ui/CheckAction.h"
#include "ui/Dialogs.h"
#include "ui/FactionPropsPage.h"
#include "ui/ImportActions.h"
#include "ui/InitialWorldPage.h"
#include "ui/ReputationPage.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"
#include "ui/XmlScriptPage.h"
#include "ui/frmAbout.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QProgressBar>
#include <QSlider>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Placement of the two panels and the name box, in twips.
constexpr int FrameTop = 1080;
constexpr int FrameHeight = 4215;
constexpr int Frame1Left = 120;
constexpr int Frame1Width = 9840;
constexpr int Frame2Left = 9960;
constexpr int Frame2Width = 15;
constexpr int NameBoxLeft = 2760;
constexpr int NameBoxTop = 2880;
constexpr int NameBoxClosed = 150;
constexpr int NameBoxOpen = 1455;
constexpr int NameBoxHeight = 285;
constexpr int NameBoxStep = 30;
constexpr int ButtonWidth = 127 * twips::PerPixel;
constexpr int ButtonHeight = 22 * twips::PerPixel;

// Error numbers of the creation box, as the runtime numbers these failures.
constexpr int BadFileName = 52;
constexpr int PathFileAccessError = 75;
constexpr int PathNotFound = 76;

const QString Title = Dialogs::ApplicationTitle();

bool Blank(const QString& text) {
    for (const QChar c : text)
        if (c != u' ' && c != u'\t')
            return false;
    return true;
}

QLabel* MakeLabel(QWidget* parent, const char* name, const QString& caption) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

VantelButton* MakeButton(QWidget* parent, const char* name) {
    auto* button = new VantelButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

QTimer* MakeTimer(QObject* parent, const char* name, int interval) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(QString::fromLatin1(name));
    timer->setInterval(interval);
    timer->setTimerType(Qt::PreciseTimer);
    return timer;
}

} // namespace

frmMain::frmMain(Session& session_, Dialogs& dialogs_, QWidget* parent)
    : QWidget(parent), session(session_), dialogs(dialogs_) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Title);

    session.activeProjectCaption = [this] { return ActiveProjectCaption(); };
    session.loadFactionRegistry = [this] { LoadFactionRegistry(); };

    auto* layout = new QVBoxLayout(this);
    BuildTopButtons();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(VantelButton1);
    buttons->addWidget(VantelButton2);
    buttons->addStretch();
    buttons->addWidget(VantelButton3);
    layout->addLayout(buttons);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(BuildProjectsPage(), QString());
    layout->addWidget(SSTab1);
    BuildTimers();

    // The captions stored with the window are the German ones. The pages are not there
    // yet, so they keep the captions they were built with until the first switch.
    German();

    reputationPage = new ReputationPage(session, dialogs, this);
    factionPropsPage = new FactionPropsPage(session, dialogs, this);
    initialWorldPage = new InitialWorldPage(session, dialogs, this);
    xmlScriptPage = new XmlScriptPage(dialogs, this);
    SSTab1->addTab(reputationPage, QStringLiteral("Emphaty.ini"));
    SSTab1->addTab(factionPropsPage, QStringLiteral("Faction_Prop.ini"));
    SSTab1->addTab(initialWorldPage, QStringLiteral("Initialworld.ini"));
    SSTab1->addTab(xmlScriptPage, QStringLiteral("XML-Script"));
    registryViews = {reputationPage, factionPropsPage, initialWorldPage};
    importActions = new ImportActions(session, dialogs, btnImport, btnImportAll, pgImportAll, this);

    Form_Load();
}

void frmMain::BuildTopButtons() {
    VantelButton1 = MakeButton(this, "VantelButton1");
    VantelButton2 = MakeButton(this, "VantelButton2");
    VantelButton3 = MakeButton(this, "VantelButton3");
    for (VantelButton* button : {VantelButton1, VantelButton2, VantelButton3})
        button->setFixedSize(twips::ToPixels(ButtonWidth), twips::ToPixels(ButtonHeight));
    VantelButton3->setCaption(QStringLiteral("?"));
    VantelButton3->setBold(true);
    connect(VantelButton1, &VantelButton::Click, this, &frmMain::VantelButton1_Click);
    connect(VantelButton2, &VantelButton::Click, this, &frmMain::VantelButton2_Click);
    connect(VantelButton3, &VantelButton::Click, this, &frmMain::VantelButton3_Click);
}

QWidget* frmMain::BuildProjectsPage() {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("ProjectsPage"));
    page->setMinimumSize(twips::ToPixels(10200), twips::ToPixels(FrameTop + FrameHeight + 120));

    Label1 = MakeLabel(page, "Label1", QString());
    twips::Place(Label1, 120, 360, 1200, 255);
    Slider1 = new QSlider(Qt::Horizontal, page);
    Slider1->setObjectName(QStringLiteral("Slider1"));
    Slider1->setRange(10, 400);
    Slider1->setValue(80);
    twips::Place(Slider1, 1380, 300, 2700, 360);
    txtZeit = new QLineEdit(QStringLiteral("80"), page);
    txtZeit->setObjectName(QStringLiteral("txtZeit"));
    txtZeit->hide();
    Label1->setBuddy(Slider1); // names it for screen readers, in the shown language
    connect(Slider1, &QSlider::valueChanged, this, &frmMain::Slider1_Change);

    Label4 = MakeLabel(page, "Label4", QStringLiteral("-->"));
    QFont arrow = Label4->font();
    arrow.setBold(true);
    arrow.setPointSize(arrow.pointSize() + 4);
    Label4->setFont(arrow);
    Label4->setCursor(Qt::PointingHandCursor);
    Label4->setAlignment(Qt::AlignCenter);
    twips::Place(Label4, 9000, 360, 960, 480);
    Label4->installEventFilter(this);

    BuildFrame1();
    BuildFrame2();
    Frame1->setParent(page);
    Frame2->setParent(page);
    twips::Place(Frame1, Frame1Left, FrameTop, Frame1Width, FrameHeight);
    twips::Place(Frame2, Frame2Left, FrameTop, Frame2Width, FrameHeight);
    Frame2->hide();
    return page;
}

void frmMain::BuildFrame1() {
    Frame1 = new QGroupBox;
    Frame1->setObjectName(QStringLiteral("Frame1"));

    lstProjects = new QListWidget(Frame1);
    lstProjects->setObjectName(QStringLiteral("lstProjects"));
    lstProjects->setAccessibleName(QStringLiteral("Projects"));
    twips::Place(lstProjects, 120, 360, 2400, 3240);
    connect(lstProjects, &QListWidget::currentItemChanged, this, &frmMain::lstProjects_Click);
    connect(lstProjects, &QListWidget::itemClicked, this, &frmMain::lstProjects_Click);

    Label5 = MakeLabel(Frame1, "Label5", QStringLiteral("Log:"));
    twips::Place(Label5, 2640, 240, 1200, 255);
    rtfLog = new QTextEdit(Frame1);
    rtfLog->setObjectName(QStringLiteral("rtfLog"));
    rtfLog->setReadOnly(true);
    rtfLog->setAcceptRichText(false);
    rtfLog->setLineWrapMode(QTextEdit::NoWrap);
    Label5->setBuddy(rtfLog);
    twips::Place(rtfLog, 2640, 480, 7080, 2280);

    txtdateiname = new QLineEdit(Frame1);
    txtdateiname->setObjectName(QStringLiteral("txtdateiname"));
    txtdateiname->setAccessibleName(QStringLiteral("Project name"));
    twips::Place(txtdateiname, NameBoxLeft, NameBoxTop, NameBoxClosed, NameBoxHeight);
    txtdateiname->hide();
    connect(txtdateiname, &QLineEdit::returnPressed, this, &frmMain::txtdateiname_KeyPress);

    lblNoProject = MakeLabel(Frame1, "lblNoProject", QString());
    lblNoProject->setStyleSheet(QStringLiteral("color: #b00000; font-weight: bold;"));
    twips::Place(lblNoProject, 4440, 2910, 3000, 255);
    lblNoProject->hide();

    lblActiveProject = MakeLabel(Frame1, "lblActiveProject", QString());
    QFont bold = lblActiveProject->font();
    bold.setBold(true);
    lblActiveProject->setFont(bold);
    lblActiveProject->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    twips::Place(lblActiveProject, 5400, 3300, 4320, 255);

    VantelButton7 = MakeButton(Frame1, "VantelButton7");
    VantelButton4 = MakeButton(Frame1, "VantelButton4");
    VantelButton6 = MakeButton(Frame1, "VantelButton6");
    VantelButton5 = MakeButton(Frame1, "VantelButton5");
    int left = 120;
    for (VantelButton* button : {VantelButton7, VantelButton4, VantelButton6, VantelButton5}) {
        twips::Place(button, left, 3720, ButtonWidth, ButtonHeight);
        left += ButtonWidth + 120;
    }
    connect(VantelButton4, &VantelButton::Click, this, &frmMain::VantelButton4_Click);
    connect(VantelButton5, &VantelButton::Click, this, &frmMain::VantelButton5_Click);
    connect(VantelButton6, &VantelButton::Click, this, &frmMain::VantelButton6_Click);
    connect(VantelButton7, &VantelButton::Click, this, &frmMain::VantelButton7_Click);
}

void frmMain::BuildFrame2() {
    Frame2 = new QGroupBox;
    Frame2->setObjectName(QStringLiteral("Frame2"));

    lv_newfactions = new QTreeWidget(Frame2);
    lv_newfactions->setObjectName(QStringLiteral("lv_newfactions"));
    lv_newfactions->setAccessibleName(QStringLiteral("Factions"));
    lv_newfactions->setRootIsDecorated(false);
    lv_newfactions->setUniformRowHeights(true);
    lv_newfactions->setHeaderLabels({QStringLiteral("Nickname"), QStringLiteral("Description")});
    lv_newfactions->header()->resizeSection(0, twips::ToPixels(2400));
    twips::Place(lv_newfactions, 120, 240, 4800, 3360);
    connect(lv_newfactions, &QTreeWidget::itemClicked, this, &frmMain::lv_newfactions_Click);

    frmnewFaction = new QGroupBox(Frame2);
    frmnewFaction->setObjectName(QStringLiteral("frmnewFaction"));
    twips::Place(frmnewFaction, 5040, 240, 4560, 1380);
    auto* nickLabel = MakeLabel(frmnewFaction, "lblNewNick", QStringLiteral("Nickname"));
    twips::Place(nickLabel, 120, 330, 1200, 255);
    txtNewNick = new QLineEdit(frmnewFaction);
    txtNewNick->setObjectName(QStringLiteral("txtNewNick"));
    nickLabel->setBuddy(txtNewNick);
    twips::Place(txtNewNick, 1320, 300, 3120, 315);
    auto* descrLabel = MakeLabel(frmnewFaction, "lblNewDescr", QStringLiteral("Description"));
    twips::Place(descrLabel, 120, 810, 1200, 255);
    txtNewDescr = new QLineEdit(frmnewFaction);
    txtNewDescr->setObjectName(QStringLiteral("txtNewDescr"));
    descrLabel->setBuddy(txtNewDescr);
    twips::Place(txtNewDescr, 1320, 780, 3120, 315);

    btnnewfactionnew = MakeButton(Frame2, "btnnewfactionnew");
    btnnewfactiondel = MakeButton(Frame2, "btnnewfactiondel");
    btnnewfactionreload = MakeButton(Frame2, "btnnewfactionreload");
    twips::Place(btnnewfactionnew, 5040, 1740, ButtonWidth, ButtonHeight);
    twips::Place(btnnewfactiondel, 7200, 1740, ButtonWidth, ButtonHeight);
    twips::Place(btnnewfactionreload, 5040, 2160, ButtonWidth, ButtonHeight);
    connect(btnnewfactionnew, &VantelButton::Click, this, &frmMain::btnnewfactionnew_Click);
    connect(btnnewfactiondel, &VantelButton::Click, this, &frmMain::btnnewfactiondel_Click);
    connect(btnnewfactionreload, &VantelButton::Click, this, &frmMain::btnnewfactionreload_Click);

    // The project check, with its findings window; owned by the window.
    auto* btnCheck = MakeButton(Frame2, "btnCheck");
    twips::Place(btnCheck, 7200, 2160, ButtonWidth, ButtonHeight);
    new CheckAction(session, dialogs, btnCheck, this);

    // The import actions attach themselves to these; until then they stay disabled.
    btnImport = MakeButton(Frame2, "btnImport");
    btnImportAll = MakeButton(Frame2, "btnImportAll");
    btnImport->setEnabled(false);
    btnImportAll->setEnabled(false);
    twips::Place(btnImport, 5040, 2760, ButtonWidth, ButtonHeight);
    twips::Place(btnImportAll, 7200, 2760, ButtonWidth, ButtonHeight);
    pgImportAll = new QProgressBar(Frame2);
    pgImportAll->setObjectName(QStringLiteral("pgImportAll"));
    pgImportAll->setRange(0, 1);
    pgImportAll->setValue(0);
    pgImportAll->setTextVisible(false);
    twips::Place(pgImportAll, 5040, 3180, 4065, 240);

    pgLoadProject = new QProgressBar(Frame2);
    pgLoadProject->setObjectName(QStringLiteral("pgLoadProject"));
    pgLoadProject->setRange(0, 1);
    pgLoadProject->setValue(0);
    pgLoadProject->setTextVisible(false);
    twips::Place(pgLoadProject, 120, 3720, 4800, 240);
    lblFactions = MakeLabel(Frame2, "lblFactions", QString());
    twips::Place(lblFactions, 5040, 3705, 1800, 255);
    lblFactionsGesamt = MakeLabel(Frame2, "lblFactionsGesamt", QStringLiteral("0"));
    twips::Place(lblFactionsGesamt, 6900, 3705, 1200, 255);
}

void frmMain::BuildTimers() {
    Timer1 = MakeTimer(this, "Timer1", 1);
    Timer2 = MakeTimer(this, "Timer2", 1);
    Timer3 = MakeTimer(this, "Timer3", 1);
    Timer4 = MakeTimer(this, "Timer4", 1);
    Timer7 = MakeTimer(this, "Timer7", 2000);
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &frmMain::Timer2_Timer);
    connect(Timer3, &QTimer::timeout, this, &frmMain::Timer3_Timer);
    connect(Timer4, &QTimer::timeout, this, &frmMain::Timer4_Timer);
    connect(Timer7, &QTimer::timeout, this, &frmMain::Timer7_Timer);
}

// ---- languages ----

void frmMain::German() {
    captions::Apply(*this, captions::Language::German);
}

void frmMain::English() {
    captions::Apply(*this, captions::Language::English);
}

void frmMain::VantelButton2_Click() {
    if (VantelButton2->Caption() == QLatin1String(captions::OfferEnglish))
        English();
    else
        German();
}

// ---- start-up and end ----

void frmMain::Form_Load() {
    try {
        modFunctions::EnsureProjectsFolder(session.appDir);
    } catch (const std::exception& error) {
        dialogs.ShowError(QStringLiteral("The projects folder could not be created.\r\n") +
                          Dialogs::Describe(error));
    }
    SSTab1->setCurrentIndex(0);
    if (auto* SSTab2 = findChild<QTabWidget*>(QStringLiteral("SSTab2")))
        SSTab2->setCurrentIndex(0);
    RefreshProjectList();
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
    auto* about = new frmAbout;
    about->show();
}

// ---- project manager ----

std::string frmMain::ActiveProjectCaption() const {
    return text::ToFile(lblActiveProject->text());
}

QString frmMain::SelectedProject() const {
    const QListWidgetItem* item = lstProjects->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

void frmMain::RefreshProjectList() {
    lstProjects->clear();
    for (const std::string& name : modFunctions::ListProjects(session.appDir))
        lstProjects->addItem(text::ToQt(name));
}

void frmMain::lstProjects_Click() {
    const QListWidgetItem* item = lstProjects->currentItem();
    if (!item)
        return;
    const std::string path = modFunctions::ProjectPath(session.appDir, text::ToFile(item->text()),
                                                       "\\protocol\\protocol.txt");
    QString log;
    try {
        log = text::ToQt(txtReadWrite::ReadFileText(path));
    } catch (const std::exception& error) {
        dialogs.ShowError(QStringLiteral("The protocol could not be read.\r\n") +
                          Dialogs::Describe(error));
    }
    log.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    rtfLog->setPlainText(log);
}

void frmMain::CreateProjectError(int number, const QString& description) {
    dialogs.MessageBox(
        QMessageBox::Critical, Title,
        QStringLiteral("An error occured during create your project.\r\nError %1: %2")
            .arg(number)
            .arg(description));
}

void frmMain::CreateProject(const QString& name) {
    const auto bytes = text::ToFileExact(name);
    if (!bytes) {
        CreateProjectError(BadFileName,
                           QStringLiteral("Project name \"%1\" is refused: it holds a character "
                                          "that file names of projects cannot hold")
                               .arg(name));
        return;
    }
    try {
        modFunctions::CreateProjectFolders(session.appDir, *bytes);
    } catch (const names::NameRefused& error) {
        CreateProjectError(BadFileName, Dialogs::Describe(error));
        return;
    } catch (const std::exception& error) {
        CreateProjectError(PathFileAccessError, Dialogs::Describe(error));
        return;
    }
    RefreshProjectList();
    try {
        session.WriteProtocol("Project created.");
    } catch (const std::exception& error) {
        CreateProjectError(PathNotFound, Dialogs::Describe(error));
    }
}

void frmMain::txtdateiname_KeyPress() {
    // Enter: the box's text as typed names the project; the box closes again.
    CreateProject(txtdateiname->text());
    VantelButton7_Click();
}

void frmMain::VantelButton4_Click() {
    RefreshProjectList();
}

void frmMain::ShowNoProject() {
    lblNoProject->show();
    Timer7->start();
}

void frmMain::VantelButton5_Click() {
    const QString selected = SelectedProject();
    if (selected.isEmpty()) {
        ShowNoProject();
        return;
    }
    const std::string name = text::ToFile(selected);
    if (name == session.ActiveProject)
        session.ActiveProject.clear();
    modFunctions::DeleteProjectFolder(session.appDir, name);
    importActions->UpdateEnabled();
    QCoreApplication::processEvents();
    RefreshProjectList();
}

void frmMain::VantelButton6_Click() {
    const QString selected = SelectedProject();
    if (selected.isEmpty()) {
        ShowNoProject();
        return;
    }
    if (auto* lv_emphaty = findChild<QTreeWidget*>(QStringLiteral("lv_emphaty")))
        lv_emphaty->clear();
    session.ActiveProject = text::ToFile(selected);
    lblActiveProject->setText(text::ToQt(session.ActiveProject));
    LoadFactionRegistry();
    QCoreApplication::processEvents();
    lblFactionsGesamt->setText(QString::number(lv_newfactions->topLevelItemCount()));
    importActions->UpdateEnabled();
    Label4_Click();
}

void frmMain::VantelButton7_Click() {
    if (txtdateiname->isHidden())
        Timer1->start();
    else
        Timer2->start();
}

// ---- faction registry ----

void frmMain::LoadFactionRegistry() {
    const std::string registry = modFunctions::RegistryPath(session.appDir, ActiveProjectCaption());
    lv_newfactions->clear();
    for (RegistryView* view : registryViews)
        view->ClearFactions();
    try {
        std::vector<modFunctions::RegistryEntry> entries = modFunctions::LoadRegistry(registry);
        // A name edited by hand into something unusable must never become part of a path.
        QStringList refused;
        std::erase_if(entries, [&refused](const modFunctions::RegistryEntry& entry) {
            const auto reason = names::Refusal(entry.nickname);
            if (reason)
                refused << text::ToQt(entry.nickname) + QStringLiteral(": ") + text::ToQt(*reason);
            return reason.has_value();
        });
        if (!refused.isEmpty())
            dialogs.ShowError(QStringLiteral("The faction registry %1 lists names that cannot be "
                                             "used; they are left out:\r\n%2")
                                  .arg(text::ToQt(registry), refused.join(QStringLiteral("\r\n"))));
        QList<QTreeWidgetItem*> items;
        items.reserve(static_cast<qsizetype>(entries.size()));
        for (const auto& entry : entries)
            items.append(
                new QTreeWidgetItem({text::ToQt(entry.nickname), text::ToQt(entry.group)}));
        lv_newfactions->addTopLevelItems(items);

        const int count = static_cast<int>(entries.size());
        pgLoadProject->setRange(0, std::max(count, 1));
        pgLoadProject->setValue(0);
        for (RegistryView* view : registryViews)
            view->AddFactions(entries);
        pgLoadProject->setValue(count);
        lblFactionsGesamt->setText(QString::number(count));
    } catch (...) {
        // A registry that cannot be read leaves the lists as far as they were filled.
    }
}

void frmMain::lv_newfactions_Click() {
    const QTreeWidgetItem* item = lv_newfactions->currentItem();
    if (!item)
        return;
    txtNewNick->setText(item->text(0));
    txtNewDescr->setText(item->text(1));
}

void frmMain::btnnewfactionnew_Click() {
    if (session.ActiveProject.empty())
        return;
    const QString nickname = txtNewNick->text();
    if (Blank(nickname))
        return;
    if (Blank(txtNewDescr->text()))
        txtNewDescr->setText(nickname);
    const auto nicknameBytes = text::ToFileExact(nickname);
    if (!nicknameBytes) {
        dialogs.ShowError(
            QStringLiteral("Nickname \"%1\" is refused: it holds a character that file names "
                           "of factions cannot hold.")
                .arg(nickname));
        return;
    }
    const bool saved = ChangeRegistry(
        [&] {
            modFunctions::SaveFaction(session.appDir, session.ActiveProject, *nicknameBytes,
                                      text::ToFile(txtNewDescr->text()));
        },
        QStringLiteral("The faction could not be saved."));
    if (saved)
        LoadFactionRegistry();
}

void frmMain::btnnewfactiondel_Click() {
    const QTreeWidgetItem* item = lv_newfactions->currentItem();
    if (!item || !item->isSelected())
        return;
    const std::string nickname = text::ToFile(item->text(0));
    const std::string group = text::ToFile(item->text(1));
    const bool deleted = ChangeRegistry(
        [&] {
            modFunctions::DeleteFaction(session.appDir, session.ActiveProject, nickname, group);
        },
        QStringLiteral("The faction could not be deleted."));
    if (deleted)
        LoadFactionRegistry();
}

bool frmMain::ChangeRegistry(const std::function<void()>& change, const QString& failure) {
    try {
        change();
        return true;
    } catch (const names::NameRefused& error) {
        dialogs.ShowError(Dialogs::Describe(error));
    } catch (const std::exception& error) {
        // The core's message names the file and the reason.
        dialogs.ShowError(failure + QStringLiteral("\r\n") + Dialogs::Describe(error));
    }
    return false;
}

void frmMain::btnnewfactionreload_Click() {
    LoadFactionRegistry();
}

// ---- panels and animations ----

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Label4 && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        Label4_Click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmMain::Label4_Click() {
    if (session.ActiveProject.empty())
        return;
    if (!Frame1->isHidden()) {
        Timer3->start();
        Timer4->stop();
        Label4->setText(QStringLiteral("<--"));
    } else {
        Timer4->start();
        Timer3->stop();
        Label4->setText(QStringLiteral("-->"));
    }
}

void frmMain::Slider1_Change() {
    txtZeit->setText(QString::number(Slider1->value()));
}

int frmMain::SlideStep() const {
    // A step that is not a number moves nothing; the timer keeps running.
    bool number = false;
    const int step = txtZeit->text().trimmed().toInt(&number);
    return number ? step : 0;
}

void frmMain::Timer3_Timer() {
    const int step = SlideStep();
    Frame2->show();
    Frame1->show();
    twips::SetWidth(Frame1, twips::Width(Frame1) - step);
    twips::SetWidth(Frame2, twips::Width(Frame2) + step);
    twips::SetLeft(Frame2, twips::Left(Frame2) - step);
    if (twips::Width(Frame1) <= step) {
        Frame1->hide();
        Timer3->stop();
    }
}

void frmMain::Timer4_Timer() {
    const int step = SlideStep();
    Frame2->show();
    Frame1->show();
    twips::SetWidth(Frame1, twips::Width(Frame1) + step);
    twips::SetWidth(Frame2, twips::Width(Frame2) - step);
    twips::SetLeft(Frame2, twips::Left(Frame2) + step);
    if (twips::Width(Frame1) >= Frame1Width) {
        Frame2->hide();
        Timer4->stop();
    }
}

void frmMain::Timer1_Timer() {
    if (txtdateiname->isHidden()) {
        txtdateiname->show();
        txtdateiname->setFocus();
        txtdateiname->selectAll();
    }
    twips::SetWidth(txtdateiname, twips::Width(txtdateiname) + NameBoxStep);
    if (twips::Width(txtdateiname) >= NameBoxOpen)
        Timer1->stop();
}

void frmMain::Timer2_Timer() {
    twips::SetWidth(txtdateiname, twips::Width(txtdateiname) - NameBoxStep);
    if (twips::Width(txtdateiname) <= NameBoxClosed) {
        txtdateiname->hide();
        Timer2->stop();
    }
}

void frmMain::Timer7_Timer() {
    lblNoProject->hide();
    Timer7->stop();
}
