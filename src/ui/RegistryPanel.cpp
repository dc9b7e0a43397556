// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/RegistryPanel.h"

#include "core/FactionEdits.h"
#include "core/modFunctions.h"
#include "ui/Dialogs.h"
#include "ui/ImportActions.h"
#include "ui/PanelParts.h"
#include "ui/RegistryView.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QTreeWidget>
#include <algorithm>

namespace {

bool Blank(const QString& text) {
    for (const QChar c : text)
        if (c != u' ' && c != u'\t')
            return false;
    return true;
}

QProgressBar* MakeBar(QWidget* parent, const char* name) {
    auto* bar = Named(new QProgressBar(parent), name);
    bar->setRange(0, 1);
    bar->setValue(0);
    bar->setTextVisible(false);
    return bar;
}

// Free places for more buttons, in twips: right of the reload button, then below the imports.
constexpr std::pair<int, int> FreeButtonPlaces[] = {{7200, 2160}, {5040, 3420}, {7200, 3420}};

} // namespace

RegistryPanel::RegistryPanel(Session& session_, Dialogs& dialogs_, QWidget* parent)
    : QGroupBox(parent), session(session_), dialogs(dialogs_) {
    setObjectName(QStringLiteral("Frame2"));

    // Once the panel has slid in, the project manager is gone: the project is named here too.
    lblRegistryProject = panel::MakeLabel(this, "lblRegistryProject", QString());
    QFont bold = lblRegistryProject->font();
    bold.setBold(true);
    lblRegistryProject->setFont(bold);
    lblRegistryProject->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    twips::Place(lblRegistryProject, 5040, 0, 4560, 240);
    connect(&session, &Session::ActiveProjectCaptionChanged, this,
            [this] { lblRegistryProject->setText(text::ToQt(session.ActiveProjectCaption())); });

    lv_newfactions = Named(new QTreeWidget(this), "lv_newfactions");
    lv_newfactions->setAccessibleName(QStringLiteral("Factions"));
    lv_newfactions->setRootIsDecorated(false);
    lv_newfactions->setUniformRowHeights(true);
    lv_newfactions->setHeaderLabels({QStringLiteral("Nickname"), QStringLiteral("Description")});
    lv_newfactions->header()->resizeSection(0, twips::ToPixels(2400));
    twips::Place(lv_newfactions, 120, 240, 4800, 3360);
    connect(lv_newfactions, &QTreeWidget::itemClicked, this, &RegistryPanel::lv_newfactions_Click);

    // The faction menu. Its actions are the list's own too, so that F2 renames there, and the
    // Menu key and Shift+F10 open the menu at the selected faction.
    mnuRenameFaction = Named(new QAction(this), "mnuRenameFaction");
    mnuRenameFaction->setShortcut(Qt::Key_F2);
    mnuDuplicateFaction = Named(new QAction(this), "mnuDuplicateFaction");
    auto* menuKeys = Named(new QAction(this), "mnuFactionKeys");
    menuKeys->setShortcuts({QKeySequence(Qt::Key_Menu), QKeySequence(Qt::SHIFT | Qt::Key_F10)});
    for (QAction* action : {mnuRenameFaction, mnuDuplicateFaction, menuKeys}) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        lv_newfactions->addAction(action);
    }
    connect(mnuRenameFaction, &QAction::triggered, this, &RegistryPanel::mnuRenameFaction_Click);
    connect(mnuDuplicateFaction, &QAction::triggered, this,
            &RegistryPanel::mnuDuplicateFaction_Click);
    lv_newfactions->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lv_newfactions, &QWidget::customContextMenuRequested, this,
            &RegistryPanel::lv_newfactions_ContextMenu);
    connect(menuKeys, &QAction::triggered, this, [this] {
        const QTreeWidgetItem* item = lv_newfactions->currentItem();
        lv_newfactions_ContextMenu(item ? lv_newfactions->visualItemRect(item).center() : QPoint());
    });

    frmnewFaction = Named(new QGroupBox(this), "frmnewFaction");
    twips::Place(frmnewFaction, 5040, 240, 4560, 1380);
    auto* nickLabel = panel::MakeLabel(frmnewFaction, "lblNewNick", QStringLiteral("Nickname"));
    twips::Place(nickLabel, 120, 330, 1200, 255);
    txtNewNick = Named(new QLineEdit(frmnewFaction), "txtNewNick");
    nickLabel->setBuddy(txtNewNick);
    twips::Place(txtNewNick, 1320, 300, 3120, 315);
    auto* descrLabel =
        panel::MakeLabel(frmnewFaction, "lblNewDescr", QStringLiteral("Description"));
    twips::Place(descrLabel, 120, 810, 1200, 255);
    txtNewDescr = Named(new QLineEdit(frmnewFaction), "txtNewDescr");
    descrLabel->setBuddy(txtNewDescr);
    twips::Place(txtNewDescr, 1320, 780, 3120, 315);

    btnnewfactionnew = panel::MakeButton(this, "btnnewfactionnew");
    btnnewfactiondel = panel::MakeButton(this, "btnnewfactiondel");
    btnnewfactionreload = panel::MakeButton(this, "btnnewfactionreload");
    twips::Place(btnnewfactionnew, 5040, 1740, panel::ButtonWidth, panel::ButtonHeight);
    twips::Place(btnnewfactiondel, 7200, 1740, panel::ButtonWidth, panel::ButtonHeight);
    twips::Place(btnnewfactionreload, 5040, 2160, panel::ButtonWidth, panel::ButtonHeight);
    connect(btnnewfactionnew, &VantelButton::Click, this, &RegistryPanel::btnnewfactionnew_Click);
    connect(btnnewfactiondel, &VantelButton::Click, this, &RegistryPanel::btnnewfactiondel_Click);
    connect(btnnewfactionreload, &VantelButton::Click, this,
            &RegistryPanel::btnnewfactionreload_Click);

    btnImport = panel::MakeButton(this, "btnImport");
    btnImportAll = panel::MakeButton(this, "btnImportAll");
    twips::Place(btnImport, 5040, 2760, panel::ButtonWidth, panel::ButtonHeight);
    twips::Place(btnImportAll, 7200, 2760, panel::ButtonWidth, panel::ButtonHeight);
    pgImportAll = MakeBar(this, "pgImportAll");
    twips::Place(pgImportAll, 5040, 3180, 4065, 240);

    pgLoadProject = MakeBar(this, "pgLoadProject");
    twips::Place(pgLoadProject, 120, 3720, 4800, 240);
    lblFactions = panel::MakeLabel(this, "lblFactions", QString());
    twips::Place(lblFactions, 5040, 3705, 1800, 255);
    lblFactionsGesamt = panel::MakeLabel(this, "lblFactionsGesamt", QStringLiteral("0"));
    twips::Place(lblFactionsGesamt, 6900, 3705, 1200, 255);

    importActions = new ImportActions(session, dialogs, btnImport, btnImportAll, pgImportAll, this);
    // An import changed the registry on disk.
    connect(&session, &Session::RegistryChanged, this, &RegistryPanel::LoadFactionRegistry);
}

void RegistryPanel::AddView(RegistryView* view) {
    views.push_back(view);
}

VantelButton* RegistryPanel::AddButton(const char* name) {
    auto* button = panel::MakeButton(this, name);
    const auto places = std::size(FreeButtonPlaces);
    const auto [left, top] = FreeButtonPlaces[std::min<std::size_t>(
        static_cast<std::size_t>(addedButtons++), places - 1)];
    twips::Place(button, left, top, panel::ButtonWidth, panel::ButtonHeight);
    // Tab goes row by row: the first free place ends the reload row, the others follow the
    // import row.
    QWidget* before = addedButtons == 1   ? btnnewfactionreload
                      : addedButtons == 2 ? static_cast<QWidget*>(btnImportAll)
                                          : lastAdded;
    QWidget::setTabOrder(before, button);
    lastAdded = button;
    return button;
}

void RegistryPanel::ShowFactionCount() {
    lblFactionsGesamt->setText(QString::number(lv_newfactions->topLevelItemCount()));
}

void RegistryPanel::UpdateImportButtons() {
    importActions->UpdateEnabled();
}

void RegistryPanel::LoadFactionRegistry() {
    const std::string registry =
        modFunctions::RegistryPath(session.appDir, session.ActiveProjectCaption());
    lv_newfactions->clear();
    for (RegistryView* view : views)
        view->ClearFactions();
    // A registry that cannot be read leaves the lists as far as they were filled, silently.
    dialogs.Attempt([&] { FillFromRegistry(registry); },
                    [](const std::exception&) { return QString(); });
}

void RegistryPanel::FillFromRegistry(const std::string& registry) {
    std::vector<modFunctions::RegistryEntry> entries = modFunctions::LoadRegistry(registry);
    // A name edited by hand into something unusable must never become part of a path.
    QStringList refused;
    for (const auto& [nickname, reason] : modFunctions::LeaveOutRefused(entries))
        refused << text::ToQt(nickname) + QStringLiteral(": ") + text::ToQt(reason);
    if (!refused.isEmpty())
        dialogs.ShowError(
            QStringLiteral("The faction registry %1 lists names that cannot be "
                           "used; they are left out:\r\n%2")
                .arg(text::NativePath(registry), refused.join(QStringLiteral("\r\n"))));
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(entries.size()));
    for (const auto& entry : entries)
        items.append(new QTreeWidgetItem({text::ToQt(entry.nickname), text::ToQt(entry.group)}));
    lv_newfactions->addTopLevelItems(items);

    const int count = static_cast<int>(entries.size());
    pgLoadProject->setRange(0, std::max(count, 1));
    pgLoadProject->setValue(0);
    for (RegistryView* view : views)
        view->AddFactions(entries);
    pgLoadProject->setValue(count);
    lblFactionsGesamt->setText(QString::number(count));
}

bool RegistryPanel::ChooseFaction(const std::string& nickname) {
    const auto found =
        lv_newfactions->findItems(text::ToQt(nickname), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty())
        return false;
    lv_newfactions->setCurrentItem(found.front());
    lv_newfactions->scrollToItem(found.front());
    lv_newfactions_Click();
    return true;
}

void RegistryPanel::lv_newfactions_Click() {
    const QTreeWidgetItem* item = lv_newfactions->currentItem();
    if (!item)
        return;
    txtNewNick->setText(item->text(0));
    txtNewDescr->setText(item->text(1));
}

void RegistryPanel::btnnewfactionnew_Click() {
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
    const bool saved = dialogs.Attempt(QStringLiteral("The faction could not be saved."), [&] {
        modFunctions::SaveFaction(session.appDir, session.ActiveProject, *nicknameBytes,
                                  text::ToFile(txtNewDescr->text()));
    });
    if (saved)
        LoadFactionRegistry();
}

void RegistryPanel::btnnewfactiondel_Click() {
    const QTreeWidgetItem* item = lv_newfactions->currentItem();
    if (!item || !item->isSelected())
        return;
    const std::string nickname = text::ToFile(item->text(0));
    const std::string group = text::ToFile(item->text(1));
    const bool deleted = dialogs.Attempt(QStringLiteral("The faction could not be deleted."), [&] {
        modFunctions::DeleteFaction(session.appDir, session.ActiveProject, nickname, group);
    });
    if (deleted)
        LoadFactionRegistry();
}

QString RegistryPanel::SelectedNickname() const {
    const QTreeWidgetItem* item = lv_newfactions->currentItem();
    return item && item->isSelected() ? item->text(0) : QString();
}

void RegistryPanel::ShowEdited(const std::string& nickname) {
    LoadFactionRegistry();
    ChooseFaction(nickname);
}

void RegistryPanel::lv_newfactions_ContextMenu(const QPoint& at) {
    const QString nickname = SelectedNickname();
    if (nickname.isEmpty() || session.ActiveProject.empty())
        return;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("mnuFaction"));
    menu.setAccessibleName(nickname); // the faction the menu acts on
    menu.addAction(mnuRenameFaction);
    menu.addAction(mnuDuplicateFaction);
    menu.exec(lv_newfactions->viewport()->mapToGlobal(at));
}

namespace {

// An action's caption as the title of the box it opens.
QString BoxTitle(const QAction* action) {
    QString title = action->text();
    title.remove(QLatin1Char('&'));
    if (title.endsWith(QStringLiteral("...")))
        title.chop(3);
    return title;
}

// The new nickname for a faction, asked with the action's prompt; nullopt when cancelled,
// left as it was, or not expressible in a file name (said so).
std::optional<std::string> AskNickname(Dialogs& dialogs, const QAction& action,
                                       const QString& nickname) {
    const QString given = dialogs.InputBox(action.toolTip(), BoxTitle(&action), nickname);
    if (given.isEmpty() || given == nickname)
        return std::nullopt;
    auto bytes = text::ToFileExact(given);
    if (!bytes)
        dialogs.ShowError(QStringLiteral("Nickname \"%1\" is refused: it holds a character that "
                                         "file names of factions cannot hold.")
                              .arg(given));
    return bytes;
}

} // namespace

void RegistryPanel::mnuRenameFaction_Click() {
    const QString nickname = SelectedNickname();
    if (nickname.isEmpty() || session.ActiveProject.empty())
        return;
    const auto newName = AskNickname(dialogs, *mnuRenameFaction, nickname);
    if (!newName)
        return;
    const bool renamed = dialogs.Attempt(QStringLiteral("The faction could not be renamed."), [&] {
        factionEdits::RenameFaction(session.appDir, session.ActiveProject, text::ToFile(nickname),
                                    *newName);
    });
    if (renamed)
        ShowEdited(*newName);
}

void RegistryPanel::mnuDuplicateFaction_Click() {
    const QString nickname = SelectedNickname();
    if (nickname.isEmpty() || session.ActiveProject.empty())
        return;
    const auto newName = AskNickname(dialogs, *mnuDuplicateFaction, nickname);
    if (!newName)
        return;
    const auto answer = dialogs.Question(BoxTitle(mnuDuplicateFaction),
                                         mnuDuplicateFaction->property("question").toString());
    if (answer != QMessageBox::Yes && answer != QMessageBox::No)
        return;
    const auto relations = answer == QMessageBox::Yes ? factionEdits::Relations::Copied
                                                      : factionEdits::Relations::Left;
    const bool copied =
        dialogs.Attempt(QStringLiteral("The faction could not be duplicated."), [&] {
            factionEdits::DuplicateFaction(session.appDir, session.ActiveProject,
                                           text::ToFile(nickname), *newName, std::nullopt,
                                           relations);
        });
    if (copied)
        ShowEdited(*newName);
}

void RegistryPanel::btnnewfactionreload_Click() {
    LoadFactionRegistry();
}
