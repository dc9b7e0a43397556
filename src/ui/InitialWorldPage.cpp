// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/InitialWorldPage.h"

#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "initialworld/InitialWorld.h"
#include "ui/CompileAction.h"
#include "ui/Dialogs.h"
#include "ui/Named.h"
#include "ui/ReputationQuestions.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int RepColumn = 2;

QLabel* Label(const char* name, const QString& caption, QWidget* parent) {
    return Named(new QLabel(caption, parent), name);
}

} // namespace

InitialWorldPage::InitialWorldPage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), session(session), dialogs(dialogs) {
    // The labels of the top row and the check box are the same in both languages.
    Label35 = Label("Label35", QStringLiteral("Nickname"), this);
    Label32 = Label("Label32", QStringLiteral("IDS Name"), this);
    Label33 = Label("Label33", QStringLiteral("IDS short name"), this);
    Label34 = Label("Label34", QStringLiteral("IDS Info"), this);
    cboInit_group = Named(new QComboBox(this), "cboInit_group");
    txtInitName = Named(new QLineEdit(this), "txtInitName");
    txtInitShortName = Named(new QLineEdit(this), "txtInitShortName");
    txtInitInfo = Named(new QLineEdit(this), "txtInitInfo");

    lv_Init = Named(new QTreeWidget(this), "lv_Init");
    lv_Init->setHeaderLabels(
        {QStringLiteral("Faction"), QStringLiteral("Description"), QStringLiteral("REP")});
    lv_Init->setRootIsDecorated(false);
    lv_Init->setSelectionMode(QAbstractItemView::SingleSelection);
    lv_Init->setEditTriggers(QAbstractItemView::NoEditTriggers);

    VantelButton13 = Named(new VantelButton(this), "VantelButton13");
    VantelButton13->setCaption(QStringLiteral("INI erstellen"));
    Label31 = Label("Label31", QStringLiteral("Aktuell"), this);
    pgInit1 = Named(new QProgressBar(this), "pgInit1");
    Label25 = Label("Label25", QStringLiteral("Gesamt"), this);
    pgInit2 = Named(new QProgressBar(this), "pgInit2");
    // Screen readers name each control by the label beside it.
    Label35->setBuddy(cboInit_group);
    Label32->setBuddy(txtInitName);
    Label33->setBuddy(txtInitShortName);
    Label34->setBuddy(txtInitInfo);
    Label31->setBuddy(pgInit1);
    Label25->setBuddy(pgInit2);
    lv_Init->setAccessibleName(QStringLiteral("Starting reputations"));
    for (QProgressBar* bar : {pgInit1, pgInit2}) {
        bar->setRange(0, 100);
        bar->setValue(0);
        bar->setTextVisible(false);
    }
    chkForceRep2 = Named(new QCheckBox(QStringLiteral("Force-reputation"), this), "chkForceRep2");
    chkForceRep2->setChecked(true);

    auto* top = new QGridLayout;
    top->addWidget(Label35, 0, 0);
    top->addWidget(Label32, 0, 1);
    top->addWidget(Label33, 0, 2);
    top->addWidget(Label34, 0, 3);
    top->addWidget(cboInit_group, 1, 0);
    top->addWidget(txtInitName, 1, 1);
    top->addWidget(txtInitShortName, 1, 2);
    top->addWidget(txtInitInfo, 1, 3);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(VantelButton13);
    bottom->addWidget(Label31);
    bottom->addWidget(pgInit1, 1);
    bottom->addWidget(Label25);
    bottom->addWidget(pgInit2, 1);
    bottom->addWidget(chkForceRep2);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lv_Init, 1);
    layout->addLayout(bottom);

    // Only a user's choice loads a faction; filling the picker does not.
    connect(cboInit_group, &QComboBox::activated, this, &InitialWorldPage::cboInit_group_Click);
    connect(cboInit_group, &QComboBox::currentIndexChanged, this,
            &InitialWorldPage::cboInit_group_Chosen);
    cboInit_group_Chosen(cboInit_group->currentIndex());
    connect(txtInitName, &QLineEdit::textChanged, this, &InitialWorldPage::txtInitName_Change);
    connect(txtInitShortName, &QLineEdit::textChanged, this,
            &InitialWorldPage::txtInitShortName_Change);
    connect(txtInitInfo, &QLineEdit::textChanged, this, &InitialWorldPage::txtInitInfo_Change);
    connect(lv_Init, &QTreeWidget::itemDoubleClicked, this, &InitialWorldPage::lv_Init_DblClick);
    connect(VantelButton13, &VantelButton::Click, this, &InitialWorldPage::VantelButton13_Click);
}

void InitialWorldPage::ClearFactions() {
    lv_Init->clear();
    cboInit_group->clear();
}

void InitialWorldPage::AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) {
    for (const auto& entry : entries) {
        const QString nickname = text::ToQt(entry.nickname);
        new QTreeWidgetItem(lv_Init, {nickname, text::ToQt(entry.group), QStringLiteral("0.0")});
        cboInit_group->addItem(nickname);
    }
    // Filled is not chosen: until the user picks a faction, typing stores nothing.
    cboInit_group->setCurrentIndex(-1);
}

bool InitialWorldPage::ChooseFaction(const std::string& nickname) {
    const int index = cboInit_group->findText(text::ToQt(nickname), Qt::MatchExactly);
    if (index < 0)
        return false;
    cboInit_group->setCurrentIndex(index);
    cboInit_group_Click();
    return true;
}

void InitialWorldPage::cboInit_group_Chosen(int index) {
    const bool chosen = index >= 0;
    for (QLineEdit* box : {txtInitName, txtInitShortName, txtInitInfo}) {
        if (!chosen) {
            // Nothing is stored: there is no faction to store it for.
            const QSignalBlocker quiet(box);
            box->clear();
        }
        box->setEnabled(chosen);
    }
}

std::string InitialWorldPage::DataFile() const {
    return initialworld::DataFile(session.ProjectPath());
}

void InitialWorldPage::cboInit_group_Click() {
    if (session.ActiveProject.empty())
        return;
    // A file that cannot be read ends the load; what was shown by then stays.
    dialogs.Attempt({}, [&] {
        const std::string g = text::ToFile(cboInit_group->currentText());
        const std::string file = DataFile();
        const initialworld::Ids ids = initialworld::ReadIds(file, g);
        // Each box that changes stores its value again (a missing key becomes "error").
        txtInitName->setText(text::ToQt(ids.name));
        txtInitShortName->setText(text::ToQt(ids.shortName));
        txtInitInfo->setText(text::ToQt(ids.info));

        std::vector<std::string> rows;
        rows.reserve(static_cast<std::size_t>(lv_Init->topLevelItemCount()));
        for (int r = 0; r < lv_Init->topLevelItemCount(); ++r)
            rows.push_back(text::ToFile(lv_Init->topLevelItem(r)->text(0)));
        const auto reputations = initialworld::ReadReputations(file, g, rows);
        for (int r = 0; r < lv_Init->topLevelItemCount(); ++r)
            lv_Init->topLevelItem(r)->setText(RepColumn,
                                              text::ToQt(reputations[static_cast<std::size_t>(r)]));
    });
}

void InitialWorldPage::StoreIds(std::string_view key, const QLineEdit* box) {
    const QString g = cboInit_group->currentText();
    if (g.isEmpty())
        return;
    dialogs.Attempt({}, [&] {
        initialworld::WriteIds(DataFile(), text::ToFile(g), key, text::ToFile(box->text()));
    });
}

void InitialWorldPage::txtInitName_Change() {
    StoreIds(initialworld::IdsName, txtInitName);
}

void InitialWorldPage::txtInitShortName_Change() {
    StoreIds(initialworld::IdsShortName, txtInitShortName);
}

void InitialWorldPage::txtInitInfo_Change() {
    StoreIds(initialworld::IdsInfo, txtInitInfo);
}

void InitialWorldPage::lv_Init_DblClick() {
    if (session.ActiveProject.empty() || cboInit_group->currentText().isEmpty())
        return;
    const QList<QTreeWidgetItem*> selected = lv_Init->selectedItems();
    if (selected.isEmpty())
        return;
    QTreeWidgetItem* row = selected.front();
    const QString v = reputationQuestions::AskStartingReputation(dialogs);
    if (v.isEmpty())
        return;
    const bool stored = dialogs.Attempt({}, [&] {
        initialworld::WriteReputation(DataFile(), text::ToFile(cboInit_group->currentText()),
                                      text::ToFile(row->text(0)), text::ToFile(v),
                                      chkForceRep2->isChecked());
    });
    if (!stored)
        return;
    row->setText(RepColumn, v);
}

void InitialWorldPage::VantelButton13_Click() {
    if (session.ActiveProject.empty())
        return;
    std::vector<std::string> factions;
    factions.reserve(static_cast<std::size_t>(cboInit_group->count()));
    for (int i = 0; i < cboInit_group->count(); ++i)
        factions.push_back(text::ToFile(cboInit_group->itemText(i)));
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(lv_Init->topLevelItemCount()));
    for (int r = 0; r < lv_Init->topLevelItemCount(); ++r)
        rows.push_back(text::ToFile(lv_Init->topLevelItem(r)->text(0)));

    compileAction::Run(
        dialogs, session,
        {compile::GameFile::InitialWorld, session.ProjectPath(), std::move(factions),
         std::move(rows)},
        QStringLiteral("Initialworld.ini was not created."),
        {{pgInit2, progressrun::Bar::Count::Outer}, {pgInit1, progressrun::Bar::Count::Inner}});
}
