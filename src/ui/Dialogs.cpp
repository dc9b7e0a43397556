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

bool Dialogs::Attempt(const QString& failure, const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (const names::NameRefused& error) {
        ShowError(Describe(error));
    } catch (const std::exception& error) {
        ShowError(failure.isEmpty() ? Describe(error)
                                    : failure + QStringLiteral("\r\n") + Describe(error));
    }
    return false;
}
