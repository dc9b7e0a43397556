#include "ui/Dialogs.h"

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

QString Dialogs::Describe(const std::exception& error) {
    // Core messages carry names and paths as file bytes.
    return text::ToQt(error.what());
}
