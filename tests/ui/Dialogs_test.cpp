// SPDX-License-Identifier: GPL-3.0-or-later
// The one helper through which handlers run their core calls and tell failures.
#include "core/names.h"
#include "core/platform.h"
#include "ui/support/ScriptedDialogs.h"

#include <QDir>
#include <QTest>

class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void AttemptTellsFailuresInPlainWordsWithTheSystemsSeparators() {
        ScriptedDialogs dialogs;
        bool ran = false;
        QVERIFY(dialogs.Attempt("The faction could not be saved.", [&] { ran = true; }));
        QVERIFY(ran && dialogs.shown.empty());

        // A file error names the file as the system writes paths, after what failed.
        QVERIFY(!dialogs.Attempt("The faction could not be saved.", [] {
            throw platform::FileError("/app\\projects\\P\\misc\\factions.ini", "disk full");
        }));
        QCOMPARE(dialogs.shown.size(), std::size_t(1));
        QCOMPARE(dialogs.shown[0].icon, QMessageBox::Critical);
        QCOMPARE(dialogs.shown[0].text,
                 "The faction could not be saved.\r\n" +
                     QDir::toNativeSeparators("/app/projects/P/misc/factions.ini") + ": disk full");

        // A refused name is told by itself; its text keeps a backslash that is no separator.
        QVERIFY(!dialogs.Attempt("ignored", [] { names::Require("a\\b", "The nickname"); }));
        QVERIFY(!dialogs.shown[1].text.startsWith("ignored"));
        QVERIFY(dialogs.shown[1].text.contains("a\\b"));
    }
};

QTEST_MAIN(DialogsTest)
#include "Dialogs_test.moc"
