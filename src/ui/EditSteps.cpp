// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/EditSteps.h"

#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/VantelButton.h"

#include <QAbstractEventDispatcher>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QThread>
#include <QTreeWidget>
#include <QUndoStack>

// A step as the undo stack keeps it: its name, and the field for typing that continues it.
// The bytes are the core history's: undo and redo here only move the stack's place.
class EditSteps::Command : public QUndoCommand {
public:
    Command(Name name, QWidget* field, bool continues)
        : name_(std::move(name)), field_(field), continues_(continues) {}
    int id() const override { return field_ ? 1 : -1; }
    bool mergeWith(const QUndoCommand* other) override {
        const auto* next = static_cast<const Command*>(other);
        return next->continues_ && next->field_ == field_;
    }
    void undo() override {}
    void redo() override {}
    const Name& name() const { return name_; }
    QWidget* field() const { return field_; }

private:
    Name name_;
    QPointer<QWidget> field_;
    bool continues_;
};

namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

// A field that takes typing (the line edit inside a picker or a spin box included).
bool TakesTyping(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget) ||
           qobject_cast<const QPlainTextEdit*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget) ||
           (qobject_cast<const QComboBox*>(widget) &&
            static_cast<const QComboBox*>(widget)->isEditable());
}

// Whether a text field has typing of its own to undo (or redo): then the key is its own.
bool FieldKeepsKey(QObject* watched, bool undo) {
    if (auto* line = qobject_cast<QLineEdit*>(watched))
        return line->isReadOnly() || (undo ? line->isUndoAvailable() : line->isRedoAvailable());
    if (auto* text = qobject_cast<QTextEdit*>(watched))
        return undo ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable();
    if (auto* text = qobject_cast<QPlainTextEdit*>(watched))
        return undo ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable();
    return true; // any other control decides for itself
}

// The name a user knows a control by: its accessible name, its caption, else the name of
// the nearest control that has one.
QString ControlName(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        if (auto* button = qobject_cast<VantelButton*>(w))
            return button->Caption().remove(QLatin1Char('&'));
        if (!w->accessibleName().isEmpty())
            return w->accessibleName();
        if (!w->objectName().isEmpty() && !w->objectName().startsWith(QLatin1String("qt_")))
            return w->objectName();
    }
    return {};
}

template <class T> T* Find(QWidget* from, const char* name) {
    return from ? from->window()->findChild<T*>(QString::fromLatin1(name)) : nullptr;
}

} // namespace

EditSteps::EditSteps(Session& session_, Dialogs& dialogs_,
                     std::function<captions::Language()> language_, QObject* parent)
    : QObject(parent), session(session_), dialogs(dialogs_), language(std::move(language_)),
      stack(new QUndoStack(this)) {
    qApp->installEventFilter(this);
    // The handler of an input has returned when the window waits for the next one.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (open && QThread::currentThread()->loopLevel() <= openedAtLevel)
                    Close();
            });
    connect(stack, &QUndoStack::indexChanged, this, &EditSteps::Changed);
}

EditSteps::~EditSteps() {
    qApp->removeEventFilter(this);
    if (open && history)
        history->Close();
}

void EditSteps::StartHistory() {
    Settle();
    typingIn = nullptr;
    stack->clear();
    history.reset();
    if (!session.ActiveProject.empty())
        history = std::make_unique<EditHistory>(session.ProjectPath());
    emit Changed();
}

void EditSteps::Exempt(QWidget* widget) {
    exempt.append(widget);
}

bool EditSteps::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::FocusOut && watched == typingIn)
        typingIn = nullptr; // the next typing there is a step of its own
    if (type == QEvent::ShortcutOverride && history) {
        // A field with nothing of its own to undo leaves the key to the window.
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool undo = key->matches(QKeySequence::Undo);
        const bool redo = key->matches(QKeySequence::Redo) ||
                          key->keyCombination() == QKeyCombination(Qt::CTRL, Qt::Key_Y);
        if ((undo || redo) && !FieldKeepsKey(watched, undo)) {
            event->ignore();
            return true;
        }
    }
    if (!history || !IsInput(type) || !event->spontaneous() || !watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    for (const QPointer<QWidget>& button : exempt)
        if (button && (button == widget || button->isAncestorOf(widget)))
            return false;
    Open(widget);
    return false;
}

void EditSteps::Open(QWidget* on) {
    const int level = QThread::currentThread()->loopLevel();
    if (open && level > openedAtLevel)
        return; // input inside a handler's own wait (a progress run): part of its step
    if (open)
        Close(); // the last handler has returned
    open = true;
    openedAtLevel = level;
    target = on;
    name = NameFor(on);
    history->Open(text::ToFile(Text(name)));
}

void EditSteps::Settle() {
    if (open)
        Close();
}

void EditSteps::Close() {
    open = false;
    if (!history)
        return;
    switch (history->Close()) {
    case EditHistory::Closed::Nothing:
        return;
    case EditHistory::Closed::NotUndoable:
        typingIn = nullptr;
        stack->clear();
        dialogs.MessageBox(QMessageBox::Information, Dialogs::ApplicationTitle(),
                           Word(captions::StepWord::NotUndoable, language()));
        emit Changed();
        return;
    case EditHistory::Closed::Recorded:
        break;
    }
    QWidget* field = target && TakesTyping(target) ? target.data() : nullptr;
    const int before = stack->count();
    stack->push(new Command(name, field, field && field == typingIn));
    if (stack->count() == before)
        history->MergeLast(); // more typing in the same field
    typingIn = field;
    Trim();
}

void EditSteps::Trim() {
    if (stack->count() <= static_cast<int>(history->UndoCount()))
        return;
    // The core dropped its oldest steps: the stack keeps the names of the others.
    struct Kept {
        Name name;
        QPointer<QWidget> field;
    };
    QList<Kept> kept;
    for (int i = stack->count() - static_cast<int>(history->UndoCount()); i < stack->count(); ++i) {
        const auto* command = static_cast<const Command*>(stack->command(i));
        kept.append({command->name(), command->field()});
    }
    stack->clear();
    for (const Kept& step : kept)
        stack->push(new Command(step.name, step.field, false));
}

bool EditSteps::CanUndo() const {
    return history && stack->canUndo();
}

bool EditSteps::CanRedo() const {
    return history && stack->canRedo();
}

void EditSteps::Undo() {
    Settle(); // the key or click that asked for it wrote nothing
    if (!CanUndo())
        return;
    if (!dialogs.Attempt(Word(captions::StepWord::UndoFailed, language()),
                         [this] { history->Undo(); }))
        return;
    typingIn = nullptr;
    stack->undo();
    history->Open({});
    emit Restored();
    history->CloseIntoRestored(true);
}

void EditSteps::Redo() {
    Settle();
    if (!CanRedo())
        return;
    if (!dialogs.Attempt(Word(captions::StepWord::RedoFailed, language()),
                         [this] { history->Redo(); }))
        return;
    typingIn = nullptr;
    stack->redo();
    history->Open({});
    emit Restored();
    history->CloseIntoRestored(false);
}

QString EditSteps::UndoTip() const {
    if (!CanUndo())
        return Word(captions::StepWord::NothingToUndo, language());
    const auto* command = static_cast<const Command*>(stack->command(stack->index() - 1));
    return Word(captions::StepWord::UndoNamed, language()).arg(Text(command->name()));
}

QString EditSteps::RedoTip() const {
    if (!CanRedo())
        return Word(captions::StepWord::NothingToRedo, language());
    const auto* command = static_cast<const Command*>(stack->command(stack->index()));
    return Word(captions::StepWord::RedoNamed, language()).arg(Text(command->name()));
}

QString EditSteps::Text(const Name& step) const {
    const QString words = Word(step.word, language());
    return words.contains(QLatin1String("%1")) ? words.arg(step.subject) : words;
}

EditSteps::Name EditSteps::NameFor(QWidget* on) const {
    using captions::StepWord;
    const QString control = on->objectName();
    if (control == QLatin1String("btnnewfactionnew")) {
        const auto* nick = Find<QLineEdit>(on, "txtNewNick");
        return {StepWord::SaveFaction, nick ? nick->text() : QString()};
    }
    if (control == QLatin1String("btnnewfactiondel")) {
        const auto* list = Find<QTreeWidget>(on, "lv_newfactions");
        const QTreeWidgetItem* item = list ? list->currentItem() : nullptr;
        return {StepWord::DeleteFaction, item ? item->text(0) : QString()};
    }
    if (control == QLatin1String("btnImportAll"))
        return {StepWord::ImportAll, {}};
    if (on->window()->objectName() == QLatin1String("frmImport"))
        return {StepWord::ImportFaction, {}};
    if (TakesTyping(on))
        return {StepWord::Typing, ControlName(on)};
    return {StepWord::Action, ControlName(on)};
}
