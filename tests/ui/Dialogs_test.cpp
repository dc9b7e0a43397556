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

    // Exports name the user's file and the system's reason once, in the shown language.
    void CouldNotWriteNamesTheFileAndTheReasonInTheShownLanguage() {
        struct Case {
            captions::Language language;
            QString expected;
        };
        const Case cases[] = {
            {captions::Language::German,
             "/home/m/x.csv konnte nicht geschrieben werden: No space left on device"},
            {captions::Language::English, "Could not write /home/m/x.csv: No space left on device"},
        };
        for (const Case& c : cases) {
            ScriptedDialogs dialogs;
            dialogs.SetLanguage(c.language);
            QVERIFY(!dialogs.Attempt(
                [] { throw platform::FileError("/home/m/x.csv", "No space left on device"); },
                dialogs.CouldNotWrite("/home/m/x.csv")));
            QCOMPARE(dialogs.shown.at(0).text, c.expected);
        }
        // An error that names no file still says what went wrong.
        ScriptedDialogs dialogs;
        dialogs.SetLanguage(captions::Language::English);
        dialogs.Attempt([] { throw std::runtime_error("out of memory"); },
                        dialogs.CouldNotWrite("x.csv"));
        QCOMPARE(dialogs.shown.at(0).text, "Could not write x.csv: out of memory");
    }
};

QTEST_MAIN(DialogsTest)
#include "Dialogs_test.moc"
