// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Modal questions go through this interface so that tests can answer them.
#include "ui/Captions.h"

#include <QMessageBox>
#include <QString>
#include <exception>
#include <functional>
#include <optional>

class QWidget;

class Dialogs {
public:
    virtual ~Dialogs() = default;
    // The entered text, or "" when cancelled.
    virtual QString InputBox(const QString& prompt, const QString& title,
                             const QString& defaultText) = 0;
    virtual void MessageBox(QMessageBox::Icon icon, const QString& title, const QString& text) = 0;
    // A question answered Yes or No, or cancelled: QMessageBox::Yes, No or Cancel. Dialogs that
    // do not ask cancel, so that nothing is done on an answer nobody gave.
    virtual QMessageBox::StandardButton Question(const QString& title, const QString& text) {
        (void)title;
        (void)text;
        return QMessageBox::Cancel;
    }

    // A failure at a handler boundary, told in plain words.
    void ShowError(const QString& text) {
        MessageBox(QMessageBox::Critical, ApplicationTitle(), text);
    }
    static QString ApplicationTitle() { return QStringLiteral("Orrindel 2.0 beta 2 || Halvex"); }
    // An error of the core in the user's words: its message names the file (with the
    // system's own separators) and the reason.
    static QString Describe(const std::exception& error);

    // The core's reason alone, for a message that names the file itself.
    static QString Reason(const std::exception& error);

    // What the user is told about a failed core call, in words made from the error.
    using Wording = std::function<QString(const std::exception& error)>;
    // Runs a handler's core call. A failure is shown in the words `wording` makes of it (empty
    // words show nothing: the routine ends silently); the result is false then.
    bool Attempt(const std::function<void()>& call, const Wording& wording);
    // The usual words: `failure` (what could not be done) followed by the core's description,
    // or the description alone for a refused name.
    static QString Told(const QString& failure, const std::exception& error);
    // Attempt in the usual words.
    bool Attempt(const QString& failure, const std::function<void()>& call);
    // For a handler that gathers its failures to show them once: the words of the call's
    // failure, nullopt when it succeeded.
    static std::optional<QString> Failure(const std::function<void()>& call,
                                          const Wording& wording);
    // "Could not write <file>: <reason>" in the shown language.
    Wording CouldNotWrite(const QString& file) const;

    // The language of the messages that have one; the main window keeps it in step with its own.
    void SetLanguage(captions::Language language) { language_ = language; }

private:
    captions::Language language_ = captions::Language::German;
};

// The real modal boxes, parented to a window.
class QtDialogs : public Dialogs {
public:
    explicit QtDialogs(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }
    QString InputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override;
    void MessageBox(QMessageBox::Icon icon, const QString& title, const QString& text) override;
    QMessageBox::StandardButton Question(const QString& title, const QString& text) override;

private:
    QWidget* parent_;
};
