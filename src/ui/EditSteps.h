// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The window's side of the edit history. Every user input (a click, a key, a wheel turn)
// opens a step of the core history; the step closes when the handler has returned and the
// window waits for input again, so whatever the handler wrote, on any page, is one step.
// Typing into one field is one step until the focus leaves it. The undo stack keeps the
// names of the steps; the core history keeps their bytes and puts them back.
#include "core/EditHistory.h"
#include "ui/Captions.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>

class QUndoStack;
class QWidget;
class Dialogs;
class Session;

class EditSteps : public QObject {
    Q_OBJECT
public:
    // language: the language the window shows now, for the names of the steps.
    EditSteps(Session& session, Dialogs& dialogs, std::function<captions::Language()> language,
              QObject* parent = nullptr);
    ~EditSteps() override;

    // A new, empty history for the active project (none without one).
    void StartHistory();
    // Put the last step back, or do the next undone one again. A refusal (a file changed
    // outside the window) is shown, and nothing changes.
    void Undo();
    void Redo();
    bool CanUndo() const;
    bool CanRedo() const;
    // The buttons' tool tips, naming the step, in the shown language.
    QString UndoTip() const;
    QString RedoTip() const;
    // Input on these widgets opens no step (the undo and redo buttons themselves).
    void Exempt(QWidget* widget);
    // Closes the step of the last input now, as the wait for the next input would.
    void Settle();

signals:
    // The steps changed: the buttons refresh their state and tool tips.
    void Changed();
    // Files were put back: every view shows them again.
    void Restored();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Name {
        captions::StepWord word;
        QString subject;
    };
    class Command;
    Name NameFor(QWidget* target) const;
    QString Text(const Name& name) const;
    void Open(QWidget* target);
    void Close();
    // Leaves the undo stack with the core history's steps after the oldest were dropped.
    void Trim();

    Session& session;
    Dialogs& dialogs;
    std::function<captions::Language()> language;
    std::unique_ptr<EditHistory> history;
    QUndoStack* stack;
    QList<QPointer<QWidget>> exempt;

    bool open = false;
    int openedAtLevel = 0;
    QPointer<QWidget> target; // of the open step
    Name name{};
    QPointer<QWidget> typingIn; // the field whose typing the last step continues
};
