// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Captions.h"

#include "ui/VantelButton.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeWidget>

namespace captions {
namespace {

using enum Setting;

// clang-format off
constexpr Row Rows[] = {
    {"Label15", Caption, 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label16", Caption, 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label17", Caption, 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label19", Caption, 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"SSTab1", PageCaption, 0, "Projektmanager", "Projectmanager"},
    {"VantelButton1", Caption, 0, "&Beenden", "&Exit"},
    {"VantelButton2", Caption, 0, "Englische Version", "German Version"},
    {"btnUndo", Caption, 0, "Rückgängig", "Undo"},
    {"btnRedo", Caption, 0, "Wiederholen", "Redo"},
    {"lbl_emphaty_object_destruction", ToolTipText, 0, "Wertänderung bei zerstörtem Schiff dieser Fraktion", "Rep-change to this faction if you destroying a ship of them"},
    {"Label3", Caption, 0, "Gruppenname", "Groupname"},
    {"lbl_emphaty_rms", ToolTipText, 0, "Wertänderung bei einer erfolgreich ausgeführten Zufalls-Mission", "Rep-change for a successed random-mission"},
    {"lbl_emphaty_rmf", ToolTipText, 0, "Wertänderung bei fehlgeschlagener Zufalls-Mission", "Rep-change for failured random-mission"},
    {"lbl_emphaty_rma", ToolTipText, 0, "Wertänderung bei abgebrochener Zufalls-Mission", "Rep-change for an aborted random-mission"},
    {"VantelButton4", Caption, 0, "Aktualisieren", "Refresh"},
    {"VantelButton5", Caption, 0, "Löschen", "Delete"},
    {"VantelButton6", Caption, 0, "Laden", "Load"},
    {"VantelButton7", Caption, 0, "Neu...", "New..."},
    {"Frame1", Caption, 0, "Projektmanager", "Projectmanager"},
    {"Frame2", Caption, 0, "Fraktionen bearbeiten", "Edit factions"},
    {"txtdateiname", Text, 0, "Projektname", "Projectname"},
    {"Label1", Caption, 0, "Scroll-Tempo", "Scroll-speed"},
    {"Label4", ToolTipText, 0, "Zwischen 'Projektexplorer' und 'Fraktionen bearbeiten' wechseln", "Switching between 'projectmanager' and 'edit factions'"},
    {"btnCreateXML", Caption, 0, "Generiere XML", "Generate XML"},
    {"btnCopyXML", Caption, 0, "Kopieren", "Copy"},
    {"btnSaveXML", Caption, 0, "Speichern unter...", "Save as..."},
    {"Check1", Caption, 0, "Header benutzen", "Use header"},
    {"Frame3", Caption, 0, "Header Einstellungen", "Header settings"},
    {"txtHeadModName", ToolTipText, 0, "Name der Mod", "Name of your mod"},
    {"txtHeadModAutor", ToolTipText, 0, "Autor", "Author"},
    {"txtHeadModDescr", ToolTipText, 0, "Beschreibung der Mod", "Mod Description"},
    {"btnEmphatySave", Caption, 0, "INI erstellen", "Create INI"},
    {"btnnewfactiondel", Caption, 0, "&Löschen", "De&lete"},
    {"btnnewfactionnew", Caption, 0, "Neu/Speichern", "New/Save"},
    {"btnnewfactionreload", Caption, 0, "Neu einlesen", "Reload"},
    {"frmnewFaction", Caption, 0, "Eigenschaften", "Abilitys"},
    {"lblNoProject", Caption, 0, "Kein Projekt ausgewählt!", "No project selected!"},
    {"lblAktuellEmp", Caption, 0, "Aktuell", "Actually"},
    {"lblGesamtEmp", Caption, 0, "Gesamt", "Total"},
    {"lblEmphatyList", Caption, 0, "Es ist normal, das sich die aktive Fraktion auch in der Liste befindet", "It's normal that the active faction is registered"},
    {"btnImport", Caption, 0, "Importiere Original", "Import original"},
    {"btnImportAll", Caption, 0, "Alle importieren", "Import all"},
    {"VantelButton9", Caption, 0, "Neu", "Add"},
    {"VantelButton10", Caption, 0, "Neu", "Add"},
    {"VantelButton8", Caption, 0, "Neu...", "Add..."},
    {"VantelButton11", Caption, 0, "Neu", "Add"},
    {"VantelButton12", Caption, 0, "Neu", "Add"},
    {"SSTab2", PageCaption, 0, "Schiffe", "Ships"},
    {"SSTab2", PageCaption, 1, "Stimmen", "Voice"},
    {"SSTab2", PageCaption, 2, "Körper", "Bodyparts"},
    {"SSTab2", PageCaption, 3, "Scan", "Scaning for..."},
    {"SSTab2", PageCaption, 4, "Formationen", "Formations"},
    {"Label20", Caption, 0, "Vorname männlich (IDS)", "Firstname male (IDS)"},
    {"Label21", Caption, 0, "Vorname weiblich (IDS)", "Firstname female (IDS)"},
    {"Label22", Caption, 0, "Nachname (IDS)", "Lastname (IDS)"},
    {"Label29", Caption, 0, "Fracht scannen?", "Scan cargo?"},
    {"Label26", Caption, 0, "Gesamt", "Total"},
    {"VantelButton13", Caption, 0, "INI erstellen", "Create INI"},
    {"Label31", Caption, 0, "Aktuell", "Actually"},
    {"Label25", Caption, 0, "Gesamt", "Total"},
    {"btnCompileFP", Caption, 0, "INI erstellen", "Create INI"},
    {"lblFactions", Caption, 0, "Fraktionen gesamt:", "Factions total:"},
    // The matrix page.
    {"SSTab1", PageCaption, 5, "Matrix", "Matrix"},
    {"optMatrixEmphaty", Caption, 0, "Sympathiewerte (Emphaty.ini)", "Empathy rates (Emphaty.ini)"},
    {"optMatrixInitialworld", Caption, 0, "Startreputationen (Initialworld.ini)", "Starting reputations (Initialworld.ini)"},
    {"lblMatrixGroup", Caption, 0, "Gruppe", "Group"},
    {"lblMatrixFilter", Caption, 0, "Nickname enthält", "Nickname contains"},
    {"lblMatrixHostile", Caption, 0, "-1 feindlich", "-1 hostile"},
    {"lblMatrixFriendly", Caption, 0, "+1 freundlich", "+1 friendly"},
    {"lblMatrixOutOfRange", Caption, 0, "außerhalb -1..1", "outside -1..1"},
    {"lblMatrixNotANumber", Caption, 0, "keine Zahl", "not a number"},
    {"lblMatrixMissing", Caption, 0, "nicht gespeichert", "not stored"},
    {"chkMatrixAsymmetric", Caption, 0, "Asymmetrische Paare hervorheben", "Highlight asymmetric pairs"},
    {"chkMatrixForceRep", Caption, 0, "Force-reputation", "Force-reputation"},
    {"btnMatrixCsv", Caption, 0, "CSV exportieren", "Export CSV"},
    {"btnMatrixPng", Caption, 0, "PNG exportieren", "Export PNG"},
    {"btnCheck", Caption, 0, "Prüfen", "Check"},
    // The faction menu of the registry list; the tool tips are the prompts of its input boxes.
    {"mnuRenameFaction", Caption, 0, "Umbenennen...", "Rename..."},
    {"mnuRenameFaction", ToolTipText, 0, "Neuer Nickname der Fraktion:", "New nickname of the faction:"},
    {"mnuDuplicateFaction", Caption, 0, "Duplizieren...", "Duplicate..."},
    {"mnuDuplicateFaction", ToolTipText, 0, "Nickname der Kopie:", "Nickname of the copy:"},
    {"mnuDuplicateFaction", Question, 0, "Sollen die anderen Fraktionen der Kopie gegenüber dieselben Werte haben wie dem Original gegenüber (Sympathiewerte und Startreputationen)?", "Shall the other factions hold toward the copy what they hold toward the original (empathy rates and starting reputations)?"},
};

constexpr Row FindingsWindowRows[] = {
    {"chkCheckErrors", Caption, 0, "Fehler", "Errors"},
    {"chkCheckWarnings", Caption, 0, "Warnungen", "Warnings"},
    {"chkCheckNotes", Caption, 0, "Hinweise", "Notes"},
    {"lblCheckHint", Caption, 0, "Doppelklick öffnet die Seite der Fraktion.", "Double-click opens the page of the faction."},
    {"lvFindings", ColumnCaption, 0, "Schwere", "Severity"},
    {"lvFindings", ColumnCaption, 1, "Fraktion", "Faction"},
    {"lvFindings", ColumnCaption, 2, "Datei", "File"},
    {"lvFindings", ColumnCaption, 3, "Stelle", "Where"},
    {"lvFindings", ColumnCaption, 4, "Gespeichert", "Stored"},
    {"lvFindings", ColumnCaption, 5, "Befund", "Message"},
};
// clang-format on

void SetCaption(QWidget* widget, const QString& text) {
    if (auto* button = qobject_cast<VantelButton*>(widget))
        button->setCaption(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(widget))
        frame->setTitle(text);
    else if (auto* label = qobject_cast<QLabel*>(widget))
        label->setText(text);
    else if (auto* check = qobject_cast<QAbstractButton*>(widget))
        check->setText(text);
    else
        widget->setProperty("text", text);
}

void Set(QWidget* widget, const Row& row, const QString& text) {
    switch (row.what) {
    case Caption:
        SetCaption(widget, text);
        break;
    case ToolTipText:
        widget->setToolTip(text);
        break;
    case Text:
        if (auto* box = qobject_cast<QLineEdit*>(widget))
            box->setText(text);
        else
            widget->setProperty("text", text);
        break;
    case PageCaption:
        if (auto* tabs = qobject_cast<QTabWidget*>(widget); tabs && row.page < tabs->count())
            tabs->setTabText(row.page, text);
        break;
    case ColumnCaption:
        if (auto* list = qobject_cast<QTreeWidget*>(widget); list && row.page < list->columnCount())
            list->headerItem()->setText(row.page, text);
        break;
    case Question:
        widget->setProperty("question", text);
        break;
    }
}

void Set(QAction* action, const Row& row, const QString& text) {
    if (row.what == Caption)
        action->setText(text);
    else if (row.what == ToolTipText)
        action->setToolTip(text);
    else if (row.what == Question)
        action->setProperty("question", text);
}

} // namespace

QString Word(StepWord word, Language language) {
    struct Words {
        const char* german;
        const char* english;
    };
    // clang-format off
    static constexpr Words Table[] = {
        {"Rückgängig: %1", "Undo: %1"},
        {"Wiederholen: %1", "Redo: %1"},
        {"Nichts rückgängig zu machen", "Nothing to undo"},
        {"Nichts zu wiederholen", "Nothing to redo"},
        {"Fraktion %1 speichern", "save faction %1"},
        {"Fraktion %1 löschen", "delete faction %1"},
        {"Fraktion importieren", "import a faction"},
        {"alle Fraktionen importieren", "import all factions"},
        {"Eingabe in %1", "typing in %1"},
        {"%1", "%1"},
        {"Rückgängig machen ist nicht möglich.", "Cannot undo."},
        {"Wiederholen ist nicht möglich.", "Cannot redo."},
        {"Die Aktion ist ausgeführt, aber zu groß, um rückgängig gemacht zu werden.", "The action is done, but it is too large to be undone."},
    };
    // clang-format on
    const Words& words = Table[static_cast<int>(word)];
    return QString::fromUtf8(language == Language::German ? words.german : words.english);
}

std::span<const Row> Table() {
    return Rows;
}

std::span<const Row> FindingsWindowTable() {
    return FindingsWindowRows;
}

QString Say(const Message& message, Language language) {
    return QString::fromUtf8(language == Language::German ? message.german : message.english);
}

void Apply(QWidget& window, Language language, std::span<const Row> rows) {
    for (const Row& row : rows) {
        const QString text =
            QString::fromUtf8(language == Language::German ? row.german : row.english);
        if (window.objectName() == QLatin1String(row.control))
            Set(&window, row, text);
        for (QWidget* widget : window.findChildren<QWidget*>(QString::fromLatin1(row.control)))
            if (widget->window() == &window) // not the dialogs it owns: they keep theirs
                Set(widget, row, text);
        for (QAction* action : window.findChildren<QAction*>(QString::fromLatin1(row.control)))
            if (auto* owner = qobject_cast<QWidget*>(action->parent());
                owner && owner->window() == &window)
                Set(action, row, text);
    }
}

} // namespace captions
