// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The main window's two languages: one table of rows, applied by a loop. Controls are
// found by objectName anywhere in the window, the hosted pages included; windows it owns
// (the import dialog) have one set of captions and are left alone.
#include <QString>
#include <span>

class QWidget;

namespace captions {

enum class Language { German, English };

enum class Setting {
    Caption,       // label, frame, check box, image button
    ToolTipText,   // tool tip
    Text,          // text box
    PageCaption,   // caption of one page of a tab strip
    ColumnCaption, // heading of one column (page) of a list view
    Question,      // what a control's action asks in a message box (its property "question")
};

struct Row {
    const char* control; // objectName
    Setting what;
    int page;            // PageCaption only
    const char* german;  // UTF-8
    const char* english; // UTF-8
};

// The main window's rows.
std::span<const Row> Table();
// The findings window's rows: it takes the main window's language when it opens.
std::span<const Row> FindingsWindowTable();

// Sets every row of a table (the main window's unless named) to the language; rows whose
// control is absent are skipped. A row may name an action (of a menu) too: Caption is its
// text, ToolTipText its tool tip.
void Apply(QWidget& window, Language language, std::span<const Row> rows = Table());

// A message to the user in both languages, with %1, %2 for what it names.
struct Message {
    const char* german; // UTF-8
    const char* english;
};
inline constexpr Message CouldNotWrite = {"%1 konnte nicht geschrieben werden: %2",
                                          "Could not write %1: %2"};
QString Say(const Message& message, Language language);

// The words of the edit history: what a step is called (%1: the faction or the field) and
// what the undo and redo buttons say about it.
enum class StepWord {
    UndoNamed,     // the undo button's tool tip, %1: the step
    RedoNamed,     // the redo button's tool tip
    NothingToUndo, // the tool tips without a step
    NothingToRedo,
    SaveFaction,
    DeleteFaction,
    ImportFaction,
    ImportAll,
    Typing,     // typing into a field
    Action,     // a click on a button or list, %1: its name
    UndoFailed, // the first line of a refusal
    RedoFailed,
    NotUndoable, // a step too large to keep
};
QString Word(StepWord word, Language language);

// The caption of VantelButton2 while the interface is German (it offers the other language).
inline constexpr const char* OfferEnglish = "Englische Version";

} // namespace captions
