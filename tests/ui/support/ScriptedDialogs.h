// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Answers the modal questions of a test from a queue and records every message shown.
#include "ui/Dialogs.h"

#include <QStringList>
#include <deque>

class ScriptedDialogs : public Dialogs {
public:
    struct Shown {
        QMessageBox::Icon icon;
        QString title;
        QString text;
    };
    struct Asked {
        QString prompt;
        QString title;
        QString defaultText;
    };

    // Queue the next answers of InputBox; "" stands for Cancel.
    void Answer(const QString& text) { answers_.push_back(text); }
    // Queue the next answers of Question; none left stands for Cancel.
    void AnswerQuestion(QMessageBox::StandardButton button) { buttons_.push_back(button); }

    QString InputBox(const QString& prompt, const QString& title,
                     const QString& defaultText) override {
        asked.push_back({prompt, title, defaultText});
        if (answers_.empty())
            return {};
        QString answer = answers_.front();
        answers_.pop_front();
        return answer;
    }
    void MessageBox(QMessageBox::Icon icon, const QString& title, const QString& text) override {
        shown.push_back({icon, title, text});
    }

    QMessageBox::StandardButton Question(const QString& title, const QString& text) override {
        questions.push_back({QMessageBox::Question, title, text});
        if (buttons_.empty())
            return QMessageBox::Cancel;
        const auto button = buttons_.front();
        buttons_.pop_front();
        return button;
    }

    std::vector<Shown> shown;
    std::vector<Asked> asked;
    std::vector<Shown> questions;

private:
    std::deque<QString> answers_;
    std::deque<QMessageBox::StandardButton> buttons_;
};
