// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Dialogs.h"

#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "import/OriginalLibrary.h"
#include "ui/Text.h"

#include <QInputDialog>

QString QtDialogs::InputBox(const QString& prompt, const QString& title,
                            const QString& defaultText) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(parent_, title, prompt, QLineEdit::Normal, defaultText, &ok);
    return ok ? text : QString();
}

void QtDialogs::MessageBox(QMessageBox::Icon icon, const QString& title, const QString& text) {
    QMessageBox box(icon, title, text, QMessageBox::Ok, parent_);
    box.exec();
}

QMessageBox::StandardButton QtDialogs::Question(const QString& title, const QString& text) {
    return QMessageBox::question(parent_, title, text,
                                 QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                                 QMessageBox::Yes);
}

QString Dialogs::Describe(const std::exception& error) {
    // An error that wraps its cause (a protocol line not written after a compile) is told by
    // the cause, which names the file.
    if (const auto* wrapper = dynamic_cast<const std::nested_exception*>(&error);
        wrapper && wrapper->nested_ptr()) {
        try {
            wrapper->rethrow_nested();
        } catch (const std::exception& cause) {
            return Describe(cause);
        } catch (...) {
        }
    }
    // Core messages carry the path they name as Windows-1252 text; it is shown as the system
    // spells it.
    QString message = text::ToQt(error.what());
    const std::string* file = nullptr;
    if (const auto* fileError = dynamic_cast<const platform::FileError*>(&error))
        file = &fileError->path();
    else if (const auto* iniError = dynamic_cast<const IniWriteError*>(&error))
        file = &iniError->file();
    else if (const auto* libraryError = dynamic_cast<const importer::LibraryError*>(&error))
        file = &libraryError->file();
    if (file && !file->empty())
        message.replace(text::ToQt(platform::ForMessage(*file)), text::NativePath(*file));
    return message;
}

QString Dialogs::Reason(const std::exception& error) {
    if (const auto* fileError = dynamic_cast<const platform::FileError*>(&error)) {
        const std::string named = platform::ForMessage(fileError->path()) + ": ";
        const std::string_view text = error.what();
        if (text.starts_with(named))
            return text::ToQt(text.substr(named.size()));
    }
    return Describe(error);
}

std::optional<QString> Dialogs::Failure(const std::function<void()>& call, const Wording& wording) {
    try {
        call();
        return std::nullopt;
    } catch (const std::exception& error) {
        return wording(error);
    }
}

bool Dialogs::Attempt(const std::function<void()>& call, const Wording& wording) {
    const std::optional<QString> failure = Failure(call, wording);
    if (failure && !failure->isEmpty())
        ShowError(*failure);
    return !failure;
}

QString Dialogs::Told(const QString& failure, const std::exception& error) {
    if (dynamic_cast<const names::NameRefused*>(&error) || failure.isEmpty())
        return Describe(error);
    return failure + QStringLiteral("\r\n") + Describe(error);
}

bool Dialogs::Attempt(const QString& failure, const std::function<void()>& call) {
    return Attempt(call, [&failure](const std::exception& error) { return Told(failure, error); });
}

Dialogs::Wording Dialogs::CouldNotWrite(const QString& file) const {
    return [file, language = language_](const std::exception& error) {
        return captions::Say(captions::CouldNotWrite, language).arg(file, Reason(error));
    };
}
