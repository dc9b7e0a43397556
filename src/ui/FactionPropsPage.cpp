// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/FactionPropsPage.h"

#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "factionprops/Catalogues.h"
#include "factionprops/PropertySheet.h"
#include "ui/CompileAction.h"
#include "ui/Dialogs.h"
#include "ui/Named.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"
#include "ui/frmFPBodyparts.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <QWindow>

namespace fp = factionprops;

namespace {

QComboBox* EditableCombo(QWidget* parent, const char* name) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->setEditable(true);
    // Typed text is stored, never added to the items.
    combo->setInsertPolicy(QComboBox::NoInsert);
    // Stored as typed: a completion would turn "..._d1" into the item "..._d10".
    combo->setCompleter(nullptr);
    return combo;
}

QComboBox* CatalogueCombo(QWidget* parent, const char* name, fp::Catalogue items) {
    auto* combo = EditableCombo(parent, name);
    for (const char* item : items)
        combo->addItem(QString::fromLatin1(item));
    combo->setCurrentIndex(-1);
    combo->setEditText(QString());
    return combo;
}

VantelButton* Button(QWidget* parent, const char* name, const char* caption) {
    auto* button = Named(new VantelButton(parent), name);
    button->setCaption(QString::fromUtf8(caption));
    return button;
}

std::vector<std::string> Entries(const QListWidget* list) {
    std::vector<std::string> entries;
    entries.reserve(static_cast<std::size_t>(list->count()));
    for (int i = 0; i < list->count(); ++i)
        entries.push_back(text::ToFile(list->item(i)->text()));
    return entries;
}

void Fill(QListWidget* list, const std::vector<std::string>& entries) {
    list->clear();
    for (const std::string& entry : entries)
        list->addItem(text::ToQt(entry));
}

bool Blank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

} // namespace

FactionPropsPage::FactionPropsPage(Session& session, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), session(session), dialogs(dialogs) {
    cboFP_group = EditableCombo(this, "cboFP_group");
    cboFP_group->setMinimumContentsLength(16);

    // Option groups: their captions are the game's key names in both languages.
    auto* legality = new QGroupBox(QStringLiteral("Legality"), this);
    Option1 = Named(new QRadioButton(QStringLiteral("Lawful"), legality), "Option1");
    Option2 = Named(new QRadioButton(QStringLiteral("Unlawful"), legality), "Option2");
    auto* legalityLayout = new QHBoxLayout(legality);
    legalityLayout->addWidget(Option1);
    legalityLayout->addWidget(Option2);
    auto* plurality = new QGroupBox(QStringLiteral("nickname_plurality"), this);
    Option3 = Named(new QRadioButton(QStringLiteral("Singular"), plurality), "Option3");
    Option4 = Named(new QRadioButton(QStringLiteral("Plural"), plurality), "Option4");
    auto* pluralityLayout = new QHBoxLayout(plurality);
    pluralityLayout->addWidget(Option3);
    pluralityLayout->addWidget(Option4);
    auto* jump = new QGroupBox(QStringLiteral("jump_preference"), this);
    Option5 = Named(new QRadioButton(QStringLiteral("Jumpgate"), jump), "Option5");
    Option6 = Named(new QRadioButton(QStringLiteral("Jumphole"), jump), "Option6");
    Option7 = Named(new QRadioButton(QStringLiteral("Both"), jump), "Option7");
    auto* jumpLayout = new QHBoxLayout(jump);
    jumpLayout->addWidget(Option5);
    jumpLayout->addWidget(Option6);
    jumpLayout->addWidget(Option7);
    Option1->setChecked(true);
    Option3->setChecked(true);
    Option5->setChecked(true);

    cboFPprefix = EditableCombo(this, "cboFPprefix");
    cboFPmc = CatalogueCombo(this, "cboFPmc", fp::CostumeCatalogue());
    Label20 = Named(new QLabel(QStringLiteral("Vorname männlich (IDS)"), this), "Label20");
    Label21 = Named(new QLabel(QStringLiteral("Vorname weiblich (IDS)"), this), "Label21");
    Label22 = Named(new QLabel(QStringLiteral("Nachname (IDS)"), this), "Label22");
    txtFPNameMale = Named(new QLineEdit(this), "txtFPNameMale");
    txtFPFemale = Named(new QLineEdit(this), "txtFPFemale");
    txtFPLastname = Named(new QLineEdit(this), "txtFPLastname");
    txtFPrank = Named(new QLineEdit(this), "txtFPrank");
    txtFPformation = Named(new QLineEdit(this), "txtFPformation");
    txtFPlsd = Named(new QLineEdit(this), "txtFPlsd");
    txtFPlsn = Named(new QLineEdit(this), "txtFPlsn");
    Label29 = Named(new QLabel(QStringLiteral("Fracht scannen?"), this), "Label29");
    cboFPScanFracht = CatalogueCombo(this, "cboFPScanFracht", fp::ScanAnnounceCatalogue());
    cboFPScanFracht->setEditText(QString::fromLatin1(fp::value::ScanAnnounceDefault));
    txtFPScan =
        Named(new QLineEdit(QString::fromLatin1(fp::value::ScanChanceDefault), this), "txtFPScan");

    auto* sheet = new QFormLayout;
    sheet->addRow(QStringLiteral("msg_id_prefix"), cboFPprefix);
    sheet->addRow(QStringLiteral("mc_costume"), cboFPmc);
    sheet->addRow(Label20, txtFPNameMale);
    sheet->addRow(Label21, txtFPFemale);
    sheet->addRow(Label22, txtFPLastname);
    sheet->addRow(QStringLiteral("rank_desig"), txtFPrank);
    sheet->addRow(QStringLiteral("formation_desig"), txtFPformation);
    sheet->addRow(QStringLiteral("large_ship_desig"), txtFPlsd);
    sheet->addRow(QStringLiteral("large_ship_names"), txtFPlsn);
    sheet->addRow(Label29, cboFPScanFracht);
    sheet->addRow(QStringLiteral("scan_chance"), txtFPScan);

    // The five pick lists, one tab each.
    SSTab2 = Named(new QTabWidget(this), "SSTab2");
    const auto hint = [this](const char* name) {
        return Named(
            new QLabel(QStringLiteral("Doppelklicken um den selektierten Eintrag zu entfernen."),
                       this),
            name);
    };
    const auto tab = [this](const QString& caption, QListWidget* list,
                            std::initializer_list<QWidget*> pickers, QLabel* label) {
        auto* page = new QWidget(SSTab2);
        auto* column = new QVBoxLayout(page);
        auto* row = new QHBoxLayout;
        for (QWidget* picker : pickers)
            row->addWidget(picker, picker->inherits("QComboBox") ? 1 : 0);
        column->addLayout(row);
        column->addWidget(list, 1);
        if (label)
            column->addWidget(label);
        SSTab2->addTab(page, caption);
    };
    lstFPShips = Named(new QListWidget(this), "lstFPShips");
    cboFPShips = CatalogueCombo(this, "cboFPShips", fp::ShipCatalogue());
    VantelButton9 = Button(this, "VantelButton9", "Neu");
    Label15 = hint("Label15");
    tab(QStringLiteral("Schiffe"), lstFPShips, {cboFPShips, VantelButton9}, Label15);
    lstFPVoice = Named(new QListWidget(this), "lstFPVoice");
    cboFPVoice = CatalogueCombo(this, "cboFPVoice", fp::VoiceCatalogue());
    VantelButton10 = Button(this, "VantelButton10", "Neu");
    Label16 = hint("Label16");
    tab(QStringLiteral("Stimmen"), lstFPVoice, {cboFPVoice, VantelButton10}, Label16);
    lstFPBodyparts = Named(new QListWidget(this), "lstFPBodyparts");
    VantelButton8 = Button(this, "VantelButton8", "Neu...");
    Label17 = hint("Label17");
    tab(QStringLiteral("Körper"), lstFPBodyparts, {VantelButton8}, Label17);
    lstFPscan = Named(new QListWidget(this), "lstFPscan");
    cboFPScan = CatalogueCombo(this, "cboFPScan", fp::ScanCatalogue());
    VantelButton11 = Button(this, "VantelButton11", "Neu");
    tab(QStringLiteral("Scan"), lstFPscan, {cboFPScan, VantelButton11}, nullptr);
    lstFPformation = Named(new QListWidget(this), "lstFPformation");
    cboFPFormation = CatalogueCombo(this, "cboFPFormation", fp::FormationClassCatalogue());
    cboFPformation2 = CatalogueCombo(this, "cboFPformation2", fp::FormationCatalogue());
    VantelButton12 = Button(this, "VantelButton12", "Neu");
    Label19 = hint("Label19");
    // The stored German caption of the last tab, until the first language switch.
    tab(QStringLiteral("Formation"), lstFPformation,
        {cboFPFormation, cboFPformation2, VantelButton12}, Label19);
    SSTab2->setCurrentIndex(0);

    btnCompileFP = Button(this, "btnCompileFP", "INI erstellen");
    pgFP2 = Named(new QProgressBar(this), "pgFP2");
    pgFP2->setRange(0, 1);
    pgFP2->setValue(0);

    // Screen readers name each control by the label beside it; the rest get a fixed name.
    for (const auto& [label, field] : {std::pair<QLabel*, QWidget*>{Label20, txtFPNameMale},
                                       {Label21, txtFPFemale},
                                       {Label22, txtFPLastname},
                                       {Label29, cboFPScanFracht}})
        label->setBuddy(field);
    NameListsByTabs();
    for (const auto& [field, name] :
         {std::pair<QWidget*, const char*>{cboFPShips, "Ship catalogue"},
          {cboFPVoice, "Voice catalogue"},
          {cboFPScan, "Scan catalogue"},
          {cboFPFormation, "Formation class catalogue"},
          {cboFPformation2, "Formation catalogue"},
          {pgFP2, "Progress"}})
        field->setAccessibleName(QString::fromLatin1(name));

    auto* top = new QHBoxLayout;
    auto* factionLabel = new QLabel(QStringLiteral("Faction"), this);
    factionLabel->setBuddy(cboFP_group);
    top->addWidget(factionLabel);
    top->addWidget(cboFP_group, 1);
    auto* left = new QVBoxLayout;
    left->addWidget(legality);
    left->addWidget(plurality);
    left->addWidget(jump);
    left->addLayout(sheet);
    left->addStretch();
    auto* middle = new QHBoxLayout;
    middle->addLayout(left, 1);
    middle->addWidget(SSTab2, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(btnCompileFP);
    bottom->addWidget(Named(new QLabel(QStringLiteral("Gesamt"), this), "Label26"));
    bottom->addWidget(pgFP2, 1);
    auto* page = new QVBoxLayout(this);
    page->addLayout(top);
    page->addLayout(middle, 1);
    page->addLayout(bottom);

    connect(cboFP_group, &QComboBox::activated, this, &FactionPropsPage::cboFP_group_Click);
    connect(cboFP_group, &QComboBox::editTextChanged, this,
            &FactionPropsPage::cboFP_group_TextChanged);
    factionControls = {legality,        plurality,      jump,        cboFPprefix,
                       cboFPmc,         txtFPNameMale,  txtFPFemale, txtFPLastname,
                       txtFPrank,       txtFPformation, txtFPlsd,    txtFPlsn,
                       cboFPScanFracht, txtFPScan,      SSTab2};
    cboFP_group_TextChanged(cboFP_group->currentText());
    const auto onSelected = [this](QRadioButton* option, void (FactionPropsPage::*handler)()) {
        connect(option, &QRadioButton::toggled, this, [this, handler](bool on) {
            if (on)
                (this->*handler)();
        });
    };
    onSelected(Option1, &FactionPropsPage::Option1_Click);
    onSelected(Option2, &FactionPropsPage::Option2_Click);
    onSelected(Option3, &FactionPropsPage::Option3_Click);
    onSelected(Option4, &FactionPropsPage::Option4_Click);
    onSelected(Option5, &FactionPropsPage::Option5_Click);
    onSelected(Option6, &FactionPropsPage::Option6_Click);
    onSelected(Option7, &FactionPropsPage::Option7_Click);
    connect(cboFPprefix, &QComboBox::editTextChanged, this, &FactionPropsPage::cboFPprefix_Change);
    connect(cboFPprefix, &QComboBox::activated, this, &FactionPropsPage::cboFPprefix_Click);
    connect(cboFPmc, &QComboBox::editTextChanged, this, &FactionPropsPage::cboFPmc_Change);
    connect(cboFPmc, &QComboBox::activated, this, &FactionPropsPage::cboFPmc_Click);
    connect(cboFPScanFracht, &QComboBox::editTextChanged, this,
            &FactionPropsPage::cboFPScanFracht_Change);
    connect(cboFPScanFracht, &QComboBox::activated, this, &FactionPropsPage::cboFPScanFracht_Click);
    connect(txtFPNameMale, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPNameMale_Change);
    connect(txtFPFemale, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPFemale_Change);
    connect(txtFPLastname, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPLastname_Change);
    connect(txtFPrank, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPrank_Change);
    connect(txtFPformation, &QLineEdit::textChanged, this,
            &FactionPropsPage::txtFPformation_Change);
    connect(txtFPScan, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPScan_Change);
    connect(txtFPlsd, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPlsd_Change);
    connect(txtFPlsn, &QLineEdit::textChanged, this, &FactionPropsPage::txtFPlsn_Change);
    connect(VantelButton8, &VantelButton::Click, this, &FactionPropsPage::VantelButton8_Click);
    connect(VantelButton9, &VantelButton::Click, this, &FactionPropsPage::VantelButton9_Click);
    connect(VantelButton10, &VantelButton::Click, this, &FactionPropsPage::VantelButton10_Click);
    connect(VantelButton11, &VantelButton::Click, this, &FactionPropsPage::VantelButton11_Click);
    connect(VantelButton12, &VantelButton::Click, this, &FactionPropsPage::VantelButton12_Click);
    connect(btnCompileFP, &VantelButton::Click, this, &FactionPropsPage::btnCompileFP_Click);
    // A double-click anywhere in a list removes its selected entry, also between items.
    for (QListWidget* list : {lstFPShips, lstFPVoice, lstFPBodyparts, lstFPscan, lstFPformation})
        list->viewport()->installEventFilter(this);
}

FactionPropsPage::~FactionPropsPage() {
    // The dialog is a window of its own (see VantelButton8_Click); it goes with the page.
    delete bodyparts.data();
}

// ---- registry ----

void FactionPropsPage::ClearFactions() {
    cboFP_group->clear();
}

void FactionPropsPage::AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) {
    const QSignalBlocker quiet(cboFP_group);
    const QString shown = cboFP_group->currentText();
    for (const modFunctions::RegistryEntry& entry : entries)
        cboFP_group->addItem(text::ToQt(entry.nickname));
    // Filling the items picks nothing: the shown text stays until the user picks a faction.
    cboFP_group->setCurrentIndex(-1);
    cboFP_group->setEditText(shown);
}

bool FactionPropsPage::ChooseFaction(const std::string& nickname) {
    const int index =
        cboFP_group->findText(text::ToQt(nickname), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;
    cboFP_group->setCurrentIndex(index);
    cboFP_group_Click();
    return true;
}

void FactionPropsPage::NameListsByTabs() {
    QListWidget* const lists[] = {lstFPShips, lstFPVoice, lstFPBodyparts, lstFPscan,
                                  lstFPformation};
    const QLabel* hints[] = {Label15, Label16, Label17, nullptr, Label19};
    for (int tab = 0; tab < SSTab2->count() && tab < 5; ++tab) {
        QListWidget* list = lists[tab];
        list->setAccessibleName(SSTab2->tabText(tab));
        if (hints[tab])
            list->setAccessibleDescription(hints[tab]->text());
    }
}

void FactionPropsPage::ShowFirstList() {
    SSTab2->setCurrentIndex(0);
}

void FactionPropsPage::ShowList(factionprops::PickList list) {
    // The tabs are built in the order of AllPickLists.
    int tab = 0;
    for (const factionprops::PickList each : factionprops::AllPickLists) {
        if (each == list)
            SSTab2->setCurrentIndex(tab);
        ++tab;
    }
}

void FactionPropsPage::cboFP_group_TextChanged(const QString& text) {
    const bool shown = !text.isEmpty();
    if (!shown)
        ShowInitialValues();
    for (QWidget* control : factionControls)
        control->setEnabled(shown);
}

void FactionPropsPage::ShowInitialValues() {
    // Nothing is stored: no faction is shown to store it under.
    QList<QWidget*> quiet;
    for (QWidget* control : factionControls)
        quiet << control << control->findChildren<QWidget*>();
    for (QWidget* widget : quiet)
        widget->blockSignals(true);
    Option1->setChecked(true);
    Option3->setChecked(true);
    Option5->setChecked(true);
    for (QComboBox* combo : {cboFPprefix, cboFPmc})
        combo->setEditText(QString());
    for (QLineEdit* box :
         {txtFPNameMale, txtFPFemale, txtFPLastname, txtFPrank, txtFPformation, txtFPlsd, txtFPlsn})
        box->clear();
    cboFPScanFracht->setEditText(QString::fromLatin1(fp::value::ScanAnnounceDefault));
    txtFPScan->setText(QString::fromLatin1(fp::value::ScanChanceDefault));
    for (QListWidget* list : {lstFPShips, lstFPVoice, lstFPBodyparts, lstFPscan, lstFPformation})
        list->clear();
    for (QWidget* widget : quiet)
        widget->blockSignals(false);
}

// ---- helpers ----

std::string FactionPropsPage::ShownFaction() const {
    return text::ToFile(cboFP_group->currentText());
}

void FactionPropsPage::ReportError(const QString& text) {
    if (!loading) {
        dialogs.ShowError(text);
        return;
    }
    if (loadError.isEmpty())
        loadError = text;
}

void FactionPropsPage::Store(std::string_view key, std::string_view value) {
    const std::string faction = ShownFaction();
    if (faction.empty())
        return;
    const std::string file = fp::PropertyFile(session.appDir, session.ActiveProject);
    const auto failure = Dialogs::Failure(
        [&] { txtReadWrite::WriteIni(faction, key, value, file); },
        [&](const std::exception& error) {
            return QStringLiteral("\"%1\" could not be stored in %2: %3")
                .arg(text::ToQt(key), text::NativePath(file), Dialogs::Describe(error));
        });
    if (failure)
        ReportError(*failure);
}

void FactionPropsPage::Store(std::string_view key, const QString& value) {
    Store(key, text::ToFile(value));
}

bool FactionPropsPage::WriteList(QListWidget* list, fp::PickList kind, const std::string& project,
                                 const std::string& faction) {
    const std::string path = fp::ListFilePath(session.appDir, project, kind, faction);
    const auto failure =
        Dialogs::Failure([&] { fp::WriteListFile(path, Entries(list)); },
                         [&](const std::exception& error) {
                             return QStringLiteral("%1 could not be written: %2")
                                 .arg(text::NativePath(path), Dialogs::Describe(error));
                         });
    if (failure)
        ReportError(*failure);
    return !failure;
}

void FactionPropsPage::AddEntry(QListWidget* list, fp::PickList kind, const QString& entry,
                                const std::string& project) {
    const std::string faction = ShownFaction();
    if (faction.empty()) {
        // The body-part dialog can outlive the choice (a reload empties the picker).
        ReportError(QStringLiteral("No faction is chosen on the page Faction_Prop.ini, so "
                                   "\"%1\" was not added. Choose a faction and add it again.")
                        .arg(entry));
        return;
    }
    list->addItem(entry);
    // The list box shows what is on disk.
    if (!WriteList(list, kind, project, faction))
        delete list->takeItem(list->count() - 1);
}

void FactionPropsPage::RemoveSelected(QListWidget* list, fp::PickList kind) {
    const std::string faction = ShownFaction();
    if (faction.empty())
        return;
    const QList<QListWidgetItem*> selected = list->selectedItems();
    int row = -1;
    QListWidgetItem* removed = nullptr;
    if (!selected.isEmpty()) {
        row = list->row(selected.front());
        removed = list->takeItem(row);
    }
    if (WriteList(list, kind, session.ActiveProject, faction))
        delete removed;
    else if (removed)
        list->insertItem(row, removed);
}

void FactionPropsPage::LoadLists(const std::string& faction) {
    const std::pair<QListWidget*, fp::PickList> lists[] = {
        {lstFPShips, fp::PickList::Ships},
        {lstFPVoice, fp::PickList::Voices},
        {lstFPBodyparts, fp::PickList::Bodyparts},
        {lstFPscan, fp::PickList::Scan},
        {lstFPformation, fp::PickList::Formations}};
    for (const auto& [list, kind] : lists)
        list->clear();
    for (const auto& [list, kind] : lists)
        Fill(list, fp::ReadListFile(
                       fp::ListFilePath(session.appDir, session.ActiveProject, kind, faction)));
}

bool FactionPropsPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        if (watched == lstFPShips->viewport())
            lstFPShips_DblClick();
        else if (watched == lstFPVoice->viewport())
            lstFPVoice_DblClick();
        else if (watched == lstFPBodyparts->viewport())
            lstFPBodyparts_DblClick();
        else if (watched == lstFPscan->viewport())
            lstFPscan_DblClick();
        else if (watched == lstFPformation->viewport())
            lstFPformation_DblClick();
        else
            return QWidget::eventFilter(watched, event);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// ---- loading ----

void FactionPropsPage::cboFP_group_Click() {
    const std::string n = ShownFaction();
    if (n.empty())
        return;
    loading = true;
    loadError.clear();
    // A file that cannot be read ends the load; what was shown by then stays.
    const auto failure =
        Dialogs::Failure([&] { ShowStoredValues(n); },
                         [](const std::exception& error) { return Dialogs::Describe(error); });
    if (failure)
        ReportError(*failure);

    loading = false;
    if (!loadError.isEmpty()) {
        const QString error = loadError;
        loadError.clear();
        dialogs.ShowError(error);
    }
}

void FactionPropsPage::ShowStoredValues(const std::string& n) {
    const std::string file = fp::PropertyFile(session.appDir, session.ActiveProject);
    const auto read = [&](std::string_view key, std::string_view defaultValue) {
        return txtReadWrite::ReadIni(n, key, defaultValue, file);
    };
    {
        // Only the offered items change; the shown text stays and nothing is written.
        const QSignalBlocker quiet(cboFPprefix);
        const QString shown = cboFPprefix->currentText();
        cboFPprefix->clear();
        for (const std::string& item : fp::PrefixItems(n))
            cboFPprefix->addItem(text::ToQt(item));
        cboFPprefix->setCurrentIndex(-1);
        cboFPprefix->setEditText(shown);
    }

    // Setting a control raises its handler whenever what it shows changes: that is the
    // write-back of shown defaults and of values that are no option's value.
    (fp::LegalityOf(read(fp::key::Legality, fp::value::Lawful)) == fp::Legality::Lawful ? Option1
                                                                                        : Option2)
        ->setChecked(true);
    (fp::PluralityOf(read(fp::key::Plurality, fp::value::Singular)) == fp::Plurality::Singular
         ? Option3
         : Option4)
        ->setChecked(true);
    if (read(fp::key::Jump, fp::value::Jumpgate) == fp::value::Jumpgate)
        Option5->setChecked(true);
    else if (read(fp::key::Jump, fp::value::Jumpgate) == fp::value::Jumphole)
        Option6->setChecked(true);
    else
        Option7->setChecked(true);

    cboFPprefix->setEditText(text::ToQt(read(fp::key::MsgIdPrefix, "")));
    cboFPmc->setEditText(text::ToQt(read(fp::key::McCostume, "")));
    txtFPNameMale->setText(text::ToQt(read(fp::key::FirstnameMale, "")));
    txtFPFemale->setText(text::ToQt(read(fp::key::FirstnameFemale, "")));
    txtFPLastname->setText(text::ToQt(read(fp::key::Lastname, "")));
    txtFPrank->setText(text::ToQt(read(fp::key::RankDesig, "")));
    txtFPformation->setText(text::ToQt(read(fp::key::FormationDesig, "")));
    txtFPScan->setText(text::ToQt(read(fp::key::ScanChance, fp::value::ScanChanceDefault)));
    // After txtFPScan: an announce of "False" resets the scan chance through the scan rule.
    cboFPScanFracht->setEditText(
        text::ToQt(read(fp::key::ScanAnnounce, fp::value::ScanAnnounceDefault)));
    txtFPlsd->setText(text::ToQt(read(fp::key::LargeShipDesig, "")));
    txtFPlsn->setText(text::ToQt(read(fp::key::LargeShipNames, "")));

    LoadLists(n);
}

// ---- property sheet ----

void FactionPropsPage::Option1_Click() {
    Store(fp::key::Legality, fp::value::Lawful);
}
void FactionPropsPage::Option2_Click() {
    Store(fp::key::Legality, fp::value::Unlawful);
}
void FactionPropsPage::Option3_Click() {
    Store(fp::key::Plurality, fp::value::Singular);
}
void FactionPropsPage::Option4_Click() {
    Store(fp::key::Plurality, fp::value::Plural);
}
void FactionPropsPage::Option5_Click() {
    Store(fp::key::Jump, fp::value::Jumpgate);
}
void FactionPropsPage::Option6_Click() {
    Store(fp::key::Jump, fp::value::Jumphole);
}
void FactionPropsPage::Option7_Click() {
    Store(fp::key::Jump, fp::value::Both);
}

void FactionPropsPage::cboFPprefix_Change() {
    Store(fp::key::MsgIdPrefix, cboFPprefix->currentText());
}
void FactionPropsPage::cboFPprefix_Click() {
    cboFPprefix_Change();
}
void FactionPropsPage::cboFPmc_Change() {
    Store(fp::key::McCostume, cboFPmc->currentText());
}
void FactionPropsPage::cboFPmc_Click() {
    cboFPmc_Change();
}

void FactionPropsPage::cboFPScanFracht_Click() {
    Store(fp::key::ScanAnnounce, cboFPScanFracht->currentText());
    if (cboFPScanFracht->currentText() == QLatin1String("False"))
        txtFPScan->setText(QString::fromLatin1(fp::value::ScanChanceDefault));
}
void FactionPropsPage::cboFPScanFracht_Change() {
    cboFPScanFracht_Click();
}

void FactionPropsPage::txtFPNameMale_Change() {
    Store(fp::key::FirstnameMale, txtFPNameMale->text());
}
void FactionPropsPage::txtFPFemale_Change() {
    Store(fp::key::FirstnameFemale, txtFPFemale->text());
}
void FactionPropsPage::txtFPLastname_Change() {
    Store(fp::key::Lastname, txtFPLastname->text());
}
void FactionPropsPage::txtFPrank_Change() {
    Store(fp::key::RankDesig, txtFPrank->text());
}
void FactionPropsPage::txtFPformation_Change() {
    Store(fp::key::FormationDesig, txtFPformation->text());
}
void FactionPropsPage::txtFPScan_Change() {
    Store(fp::key::ScanChance, txtFPScan->text());
}
void FactionPropsPage::txtFPlsd_Change() {
    Store(fp::key::LargeShipDesig, txtFPlsd->text());
}
void FactionPropsPage::txtFPlsn_Change() {
    Store(fp::key::LargeShipNames, txtFPlsn->text());
}

// ---- pick lists ----

void FactionPropsPage::VantelButton8_Click() {
    if (session.ActiveProject.empty())
        return;
    if (!bodyparts) {
        // A window of its own, not a child: its Combo1 and VantelButton1 must not be found
        // among the main window's controls of the same names. It stays above the main window.
        bodyparts = new frmFPBodyparts;
        if (QWidget* owner = window(); owner && owner->windowHandle()) {
            bodyparts->winId();
            bodyparts->windowHandle()->setTransientParent(owner->windowHandle());
        }
        connect(bodyparts, &frmFPBodyparts::BodypartChosen, this, &FactionPropsPage::AddBodypart);
    }
    bodyparts->show();
    bodyparts->raise();
    bodyparts->activateWindow();
}

void FactionPropsPage::AddBodypart(const QString& entry) {
    // The faction shown now, in the project that lblActiveProject names.
    AddEntry(lstFPBodyparts, fp::PickList::Bodyparts, entry, session.ActiveProjectCaption());
}

void FactionPropsPage::VantelButton9_Click() {
    if (cboFPShips->currentText().isEmpty() || session.ActiveProject.empty())
        return;
    AddEntry(lstFPShips, fp::PickList::Ships, cboFPShips->currentText(), session.ActiveProject);
}

void FactionPropsPage::VantelButton10_Click() {
    if (cboFPVoice->currentText().isEmpty() || session.ActiveProject.empty())
        return;
    AddEntry(lstFPVoice, fp::PickList::Voices, cboFPVoice->currentText(), session.ActiveProject);
}

void FactionPropsPage::VantelButton11_Click() {
    if (session.ActiveProject.empty() || cboFPScan->currentText().isEmpty())
        return;
    AddEntry(lstFPscan, fp::PickList::Scan, cboFPScan->currentText(), session.ActiveProject);
}

void FactionPropsPage::VantelButton12_Click() {
    if (session.ActiveProject.empty() || cboFPFormation->currentText().isEmpty() ||
        cboFPformation2->currentText().isEmpty())
        return;
    AddEntry(lstFPformation, fp::PickList::Formations,
             cboFPFormation->currentText() + QStringLiteral(", ") + cboFPformation2->currentText(),
             session.ActiveProject);
}

void FactionPropsPage::lstFPShips_DblClick() {
    RemoveSelected(lstFPShips, fp::PickList::Ships);
}
void FactionPropsPage::lstFPVoice_DblClick() {
    RemoveSelected(lstFPVoice, fp::PickList::Voices);
}
void FactionPropsPage::lstFPBodyparts_DblClick() {
    RemoveSelected(lstFPBodyparts, fp::PickList::Bodyparts);
}
void FactionPropsPage::lstFPscan_DblClick() {
    RemoveSelected(lstFPscan, fp::PickList::Scan);
}
void FactionPropsPage::lstFPformation_DblClick() {
    RemoveSelected(lstFPformation, fp::PickList::Formations);
}

// ---- compile ----

void FactionPropsPage::btnCompileFP_Click() {
    if (Blank(session.ActiveProject))
        return;
    std::vector<std::string> factions;
    factions.reserve(static_cast<std::size_t>(cboFP_group->count()));
    for (int i = 0; i < cboFP_group->count(); ++i)
        factions.push_back(text::ToFile(cboFP_group->itemText(i)));
    compileAction::Run(
        dialogs, session,
        {compile::GameFile::FactionProp, session.ProjectPath(), std::move(factions), {}},
        QStringLiteral("Faction_Prop.ini was not compiled."),
        {{pgFP2, progressrun::Bar::Count::Outer}});
}
