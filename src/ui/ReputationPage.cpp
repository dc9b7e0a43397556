// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/ReputationPage.h"

#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"
#include "ui/CompileAction.h"
#include "ui/Dialogs.h"
#include "ui/Named.h"
#include "ui/ReputationQuestions.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// Item data that keeps a nickname's file bytes, so that no text conversion touches it.
constexpr int NicknameRole = Qt::UserRole;
constexpr int ColumnFaction = 0;
constexpr int ColumnRep = 2;

QByteArray Bytes(const std::string& text) {
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Nickname(const QVariant& data) {
    const QByteArray bytes = data.toByteArray();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

} // namespace

ReputationPage::ReputationPage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), session(session), dialogs(dialogs) {
    Label3 = Named(new QLabel(QStringLiteral("Gruppenname:"), this), "Label3");
    cboemphaty_group = Named(new QComboBox(this), "cboemphaty_group");
    cboemphaty_group->setMinimumContentsLength(16);

    // The captions name the events as the game file does; the hints are the tool tips.
    lbl_emphaty_object_destruction = Named(new QLabel(QStringLiteral("object_destruction"), this),
                                           "lbl_emphaty_object_destruction");
    lbl_emphaty_object_destruction->setToolTip(
        QStringLiteral("Wertänderung bei zerstörtem Schiff dieser Fraktion"));
    lbl_emphaty_rms =
        Named(new QLabel(QStringLiteral("random_mission_success"), this), "lbl_emphaty_rms");
    lbl_emphaty_rms->setToolTip(
        QStringLiteral("Wertänderung bei einer erfolgreich ausgeführten Zufalls-Mission"));
    lbl_emphaty_rmf =
        Named(new QLabel(QStringLiteral("random_mission_failure"), this), "lbl_emphaty_rmf");
    lbl_emphaty_rmf->setToolTip(
        QStringLiteral("Wertänderung bei fehlgeschlagener Zufalls-Mission"));
    lbl_emphaty_rma =
        Named(new QLabel(QStringLiteral("random_mission_abortion"), this), "lbl_emphaty_rma");
    lbl_emphaty_rma->setToolTip(QStringLiteral("Wertänderung bei abgebrochener Zufalls-Mission"));

    Combo1 = Named(new QComboBox(this), "Combo1");
    Combo2 = Named(new QComboBox(this), "Combo2");
    Combo3 = Named(new QComboBox(this), "Combo3");
    Combo4 = Named(new QComboBox(this), "Combo4");
    eventCombos = {Combo1, Combo2, Combo3, Combo4};
    QStringList choices;
    for (const std::string_view choice : reputation::Choices)
        choices << QString::fromLatin1(choice.data(), static_cast<qsizetype>(choice.size()));
    for (QComboBox* combo : eventCombos) {
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setCompleter(nullptr); // what is typed is stored, never a completed entry
        combo->addItems(choices);
        combo->setEditText(text::ToQt(reputation::DefaultValue));
    }

    lblEmphatyList = Named(
        new QLabel(QStringLiteral(
                       "Es ist normal, das sich die aktive Fraktion auch in der Liste befindet"),
                   this),
        "lblEmphatyList");

    lv_emphaty = Named(new QTreeWidget(this), "lv_emphaty");
    lv_emphaty->setColumnCount(3);
    lv_emphaty->setHeaderLabels(
        {QStringLiteral("Faction"), QStringLiteral("Description"), QStringLiteral("REP")});
    lv_emphaty->setRootIsDecorated(false);
    lv_emphaty->setUniformRowHeights(true);
    lv_emphaty->setSelectionMode(QAbstractItemView::SingleSelection);
    lv_emphaty->setEditTriggers(QAbstractItemView::NoEditTriggers);

    btnEmphatySave = Named(new VantelButton(this), "btnEmphatySave");
    btnEmphatySave->setCaption(QStringLiteral("INI erstellen"));
    lblAktuellEmp = Named(new QLabel(QStringLiteral("Aktuell"), this), "lblAktuellEmp");
    pgEmphaty1 = Named(new QProgressBar(this), "pgEmphaty1");
    lblGesamtEmp = Named(new QLabel(QStringLiteral("Gesamt"), this), "lblGesamtEmp");
    pgEmphaty2 = Named(new QProgressBar(this), "pgEmphaty2");
    // Screen readers name each control by the label beside it.
    Label3->setBuddy(cboemphaty_group);
    lbl_emphaty_object_destruction->setBuddy(Combo1);
    lbl_emphaty_rms->setBuddy(Combo2);
    lbl_emphaty_rmf->setBuddy(Combo3);
    lbl_emphaty_rma->setBuddy(Combo4);
    // A list view takes no name from a buddy label.
    lv_emphaty->setAccessibleName(QStringLiteral("Empathy rates"));
    lblEmphatyList->setBuddy(lv_emphaty);
    lblAktuellEmp->setBuddy(pgEmphaty1);
    lblGesamtEmp->setBuddy(pgEmphaty2);
    for (QProgressBar* bar : {pgEmphaty1, pgEmphaty2}) {
        bar->setRange(0, 100);
        bar->setValue(0);
        bar->setTextVisible(false);
    }
    chkForceREP = Named(new QCheckBox(QStringLiteral("Force-reputation"), this), "chkForceREP");
    chkForceREP->setChecked(true);

    // Top row: the picker and the four combos, each under its label.
    auto* top = new QGridLayout;
    top->addWidget(Label3, 0, 0);
    top->addWidget(cboemphaty_group, 1, 0);
    const std::array<QLabel*, 4> labels = {lbl_emphaty_object_destruction, lbl_emphaty_rms,
                                           lbl_emphaty_rmf, lbl_emphaty_rma};
    for (int i = 0; i < 4; ++i) {
        top->addWidget(labels[static_cast<std::size_t>(i)], 0, i + 1);
        top->addWidget(eventCombos[static_cast<std::size_t>(i)], 1, i + 1);
    }
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(btnEmphatySave);
    bottom->addWidget(lblAktuellEmp);
    bottom->addWidget(pgEmphaty1, 1);
    bottom->addWidget(lblGesamtEmp);
    bottom->addWidget(pgEmphaty2, 1);
    bottom->addStretch();
    bottom->addWidget(chkForceREP);
    auto* page = new QVBoxLayout(this);
    page->addLayout(top);
    page->addWidget(lblEmphatyList);
    page->addWidget(lv_emphaty, 1);
    page->addLayout(bottom);

    connect(cboemphaty_group, &QComboBox::activated, this, &ReputationPage::cboemphaty_group_Click);
    connect(cboemphaty_group, &QComboBox::currentIndexChanged, this,
            &ReputationPage::cboemphaty_group_Chosen);
    cboemphaty_group_Chosen(cboemphaty_group->currentIndex());
    connect(Combo1, &QComboBox::editTextChanged, this, &ReputationPage::Combo1_Change);
    connect(Combo2, &QComboBox::editTextChanged, this, &ReputationPage::Combo2_Change);
    connect(Combo3, &QComboBox::editTextChanged, this, &ReputationPage::Combo3_Change);
    connect(Combo4, &QComboBox::editTextChanged, this, &ReputationPage::Combo4_Change);
    connect(Combo1, &QComboBox::activated, this, &ReputationPage::Combo1_Click);
    connect(Combo2, &QComboBox::activated, this, &ReputationPage::Combo2_Click);
    connect(Combo3, &QComboBox::activated, this, &ReputationPage::Combo3_Click);
    connect(Combo4, &QComboBox::activated, this, &ReputationPage::Combo4_Click);
    connect(lv_emphaty, &QTreeWidget::itemDoubleClicked, this,
            &ReputationPage::lv_emphaty_DblClick);
    connect(btnEmphatySave, &VantelButton::Click, this, &ReputationPage::btnEmphatySave_Click);
}

// ---- registry ----

void ReputationPage::ClearFactions() {
    lv_emphaty->clear();
    cboemphaty_group->clear();
}

void ReputationPage::AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) {
    const bool noneChosen = cboemphaty_group->currentIndex() < 0;
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(entries.size()));
    for (const auto& entry : entries) {
        auto* item = new QTreeWidgetItem(
            {text::ToQt(entry.nickname), text::ToQt(entry.group), text::ToQt(entry.rep)});
        item->setData(ColumnFaction, NicknameRole, Bytes(entry.nickname));
        items.append(item);
        cboemphaty_group->addItem(text::ToQt(entry.nickname), Bytes(entry.nickname));
    }
    lv_emphaty->addTopLevelItems(items);
    // Filling the picker chooses nothing.
    if (noneChosen)
        cboemphaty_group->setCurrentIndex(-1);
}

bool ReputationPage::ChooseFaction(const std::string& nickname) {
    const int index = cboemphaty_group->findData(Bytes(nickname));
    if (index < 0)
        return false;
    cboemphaty_group->setCurrentIndex(index);
    cboemphaty_group_Click();
    return true;
}

void ReputationPage::cboemphaty_group_Chosen(int index) {
    const bool chosen = index >= 0;
    for (QComboBox* combo : eventCombos) {
        if (!chosen) {
            // Nothing is stored: there is no faction to store it for.
            const QSignalBlocker quiet(combo);
            combo->setEditText(text::ToQt(reputation::DefaultValue));
        }
        combo->setEnabled(chosen);
    }
}

// ---- editing ----

std::string ReputationPage::ProjectFolder() const {
    return session.ProjectPath();
}

std::string ReputationPage::ChosenFaction() const {
    if (cboemphaty_group->currentIndex() < 0)
        return {};
    return Nickname(cboemphaty_group->currentData());
}

void ReputationPage::cboemphaty_group_Click() {
    if (cboemphaty_group->currentIndex() < 0)
        return;
    // A file that cannot be read ends the load; what was shown by then stays.
    dialogs.Attempt({}, [&] {
        const std::string g = ChosenFaction();
        const std::string folder = ProjectFolder();
        const auto values = reputation::ReadEvents(reputation::EventFile(folder), g);
        // A combo whose text changes stores it again through its change handler.
        for (std::size_t i = 0; i < eventCombos.size(); ++i)
            eventCombos[i]->setEditText(text::ToQt(values[i]));

        const int rowCount = lv_emphaty->topLevelItemCount();
        std::vector<std::string> towards;
        towards.reserve(static_cast<std::size_t>(rowCount));
        for (int n = 0; n < cboemphaty_group->count(); ++n)
            towards.push_back(Nickname(cboemphaty_group->itemData(n)));
        const auto rates = reputation::ReadRates(reputation::EmpathyFile(folder, g), towards);
        lv_emphaty->setUpdatesEnabled(false);
        for (int n = 0; n < static_cast<int>(rates.size()) && n < rowCount; ++n)
            lv_emphaty->topLevelItem(n)->setText(ColumnRep,
                                                 text::ToQt(rates[static_cast<std::size_t>(n)]));
        lv_emphaty->setUpdatesEnabled(true);
    });
}

void ReputationPage::StoreEvent(std::size_t event) {
    const std::string g = ChosenFaction();
    if (g.empty())
        return;
    const std::string file = reputation::EventFile(ProjectFolder());
    dialogs.Attempt({}, [&] {
        reputation::WriteEvent(file, g, event, text::ToFile(eventCombos[event]->currentText()));
    });
}

void ReputationPage::Combo1_Change() {
    StoreEvent(0);
}
void ReputationPage::Combo2_Change() {
    StoreEvent(1);
}
void ReputationPage::Combo3_Change() {
    StoreEvent(2);
}
void ReputationPage::Combo4_Change() {
    StoreEvent(3);
}
void ReputationPage::Combo1_Click() {
    Combo1_Change();
}
void ReputationPage::Combo2_Click() {
    Combo2_Change();
}
void ReputationPage::Combo3_Click() {
    Combo3_Change();
}
void ReputationPage::Combo4_Click() {
    Combo4_Change();
}

void ReputationPage::lv_emphaty_DblClick() {
    const std::string g = ChosenFaction();
    if (g.empty())
        return;
    const QList<QTreeWidgetItem*> selected = lv_emphaty->selectedItems();
    if (selected.isEmpty())
        return;
    QTreeWidgetItem* row = selected.front();
    const QString v = reputationQuestions::AskEmpathyRate(dialogs);
    if (v.isEmpty())
        return;

    const int rowCount = lv_emphaty->topLevelItemCount();
    std::vector<std::string> towards;
    std::vector<std::string> rates;
    towards.reserve(static_cast<std::size_t>(rowCount));
    rates.reserve(static_cast<std::size_t>(rowCount));
    for (int r = 0; r < rowCount; ++r) {
        const QTreeWidgetItem* item = lv_emphaty->topLevelItem(r);
        towards.push_back(Nickname(item->data(ColumnFaction, NicknameRole)));
        rates.push_back(text::ToFile(item->text(ColumnRep)));
    }
    const bool stored = dialogs.Attempt({}, [&] {
        reputation::StoreEditedRate(ProjectFolder(), g, towards, std::move(rates),
                                    static_cast<std::size_t>(lv_emphaty->indexOfTopLevelItem(row)),
                                    text::ToFile(v), chkForceREP->isChecked());
    });
    if (!stored)
        return;
    // The column shows what is on disk.
    row->setText(ColumnRep, v);
}

// ---- compiling ----

void ReputationPage::btnEmphatySave_Click() {
    if (session.ActiveProject.empty())
        return;
    QCoreApplication::processEvents();

    std::vector<std::string> factions;
    for (int i = 0; i < cboemphaty_group->count(); ++i)
        factions.push_back(Nickname(cboemphaty_group->itemData(i)));
    std::vector<std::string> rows;
    for (int r = 0; r < lv_emphaty->topLevelItemCount(); ++r)
        rows.push_back(Nickname(lv_emphaty->topLevelItem(r)->data(ColumnFaction, NicknameRole)));

    // The faction bar shows the index of the last finished faction, the row bar the rows of
    // the faction under way.
    compileAction::Run(
        dialogs, session,
        {compile::GameFile::Emphaty, ProjectFolder(), std::move(factions), std::move(rows)},
        QStringLiteral("Emphaty.ini was not compiled."),
        {{pgEmphaty2, progressrun::Bar::Count::Outer, progressrun::Bar::Shows::LastIndex},
         {pgEmphaty1, progressrun::Bar::Count::Inner}});
}
