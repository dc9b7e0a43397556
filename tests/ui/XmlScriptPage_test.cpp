// The script page driven through its real controls: the texts it builds, the header
// frame's slide, copy and save.
#include "support/Controls.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "ui/VantelButton.h"
#include "ui/XmlScriptPage.h"
#include "ui/frmWorking.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace {

const QString kDefaultHeaderScript = "<script>\r\n"
                                     "<header name=\"MyFaction Mod\">\r\n\r\n"
                                     "<scriptversion>\r\n1.0\r\n</scriptversion>\r\n\r\n"
                                     "<modurl>\r\nhttps://www.example.com/\r\n</modurl>\r\n\r\n"
                                     "<author>\r\nMyName\r\n</author>\r\n\r\n"
                                     "<description>\r\nMod description\r\n</description>\r\n"
                                     "</header>\r\n\r\n\r\n</script>";

template <typename T> T* Child(QWidget& page, const char* name) {
    return Control<T>(&page, name);
}

void Press(VantelButton* button) {
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, 10));
}

} // namespace

class XmlScriptPageTest : public QObject {
    Q_OBJECT
private slots:
    // The initial field texts show in the default header script below; the captions are
    // checked against the window's table.
    void StartsCollapsedAndTheHintsNameTheFields() {
        ScriptedDialogs dialogs;
        XmlScriptPage page(dialogs);
        QVERIFY(!Child<QCheckBox>(page, "Check1")->isChecked());
        QVERIFY(Child<QGroupBox>(page, "Frame3")->isHidden());
        // The hints name the unlabelled fields, and follow a language switch.
        QLineEdit* name = Child<QLineEdit>(page, "txtHeadModName");
        QCOMPARE(name->accessibleName(), QString("Name der Mod"));
        name->setToolTip("Name of your mod");
        QCOMPARE(name->accessibleName(), QString("Name of your mod"));
    }

    void BuildsTheScriptWithOrWithoutHeaderAndReplacesWhatWasThere() {
        ScriptedDialogs dialogs;
        XmlScriptPage page(dialogs);
        page.resize(600, 400);
        page.show();
        auto* box = Child<QTextEdit>(page, "rtfXML");
        box->setPlainText("the user's own notes");
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(page.ScriptText(), QString("<script>\r\n</script>"));
        QVERIFY(page.findChild<frmWorking*>()->isHidden());

        Child<QCheckBox>(page, "Check1")->setChecked(true);
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(page.ScriptText(), kDefaultHeaderScript);
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(page.ScriptText(), kDefaultHeaderScript);

        // Each field feeds its own element: the name is taken as typed, markup and all; the
        // empty and markup forms of every element are the builder's test.
        Child<QLineEdit>(page, "txtHeadModName")->setText(" A<&\"B\" ");
        Child<QLineEdit>(page, "txtHeadModDescr")->clear();
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QVERIFY(page.ScriptText().startsWith("<script>\r\n<header name=\" A<&\"B\" \">\r\n"));
        QVERIFY(page.ScriptText().contains("<description>\r\n\r\n</description>"));
        QVERIFY(dialogs.shown.empty());
    }

    void RefusesAHeaderCharacterOutsideWindows1252NamingTheField() {
        ScriptedDialogs dialogs;
        XmlScriptPage page(dialogs);
        Child<QLineEdit>(page, "txtHeadModAutor")
            ->setText(QString::fromUtf8("\xC5\x81\xC3\xB3"
                                        "d\xC5\xBA Mod"));
        Press(Child<VantelButton>(page, "btnCreateXML")); // the header is not used yet
        QCOMPARE(page.ScriptText(), QString("<script>\r\n</script>"));
        QVERIFY(dialogs.shown.empty());

        Child<QCheckBox>(page, "Check1")->setChecked(true);
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(dialogs.shown.size(), std::size_t(1));
        QVERIFY(dialogs.shown[0].text.contains("\"Autor\""));
        QCOMPARE(page.ScriptText(), QString("<script>\r\n</script>")); // left as it was
    }

    void FrameSlidesOpenAboveTheBoxAndClosedAgain() {
        ScriptedDialogs dialogs;
        XmlScriptPage page(dialogs);
        page.resize(600, 400);
        page.show();
        auto* check = Child<QCheckBox>(page, "Check1");
        auto* frame = Child<QGroupBox>(page, "Frame3");
        auto* box = Child<QTextEdit>(page, "rtfXML");
        const QRect closed = box->geometry();
        QTest::mouseClick(check, Qt::LeftButton);
        QVERIFY(QTest::qWaitFor([&] { return !Child<QTimer>(page, "Timer6")->isActive(); }));
        QVERIFY(check->isEnabled());
        QVERIFY(frame->isVisible());
        QVERIFY(box->geometry().top() > frame->geometry().bottom());
        QCOMPARE(box->geometry().bottom(), closed.bottom());
        QTest::mouseClick(check, Qt::LeftButton);
        QVERIFY(QTest::qWaitFor([&] { return !Child<QTimer>(page, "Timer5")->isActive(); }));
        QVERIFY(frame->isHidden());
        QCOMPARE(box->geometry(), closed);
    }

    void CopyAndSaveTakeTheShownTextWithItsEdits() {
        ScriptedDialogs dialogs;
        XmlScriptPage page(dialogs);
        Press(Child<VantelButton>(page, "btnCreateXML"));
        Child<QTextEdit>(page, "rtfXML")->append("\xc3\xa4"); // "ä" typed by the user
        const QString shown = "<script>\r\n</script>\r\n\xc3\xa4";
        QCOMPARE(page.ScriptText(), shown);

        Press(Child<VantelButton>(page, "btnCopyXML"));
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);

        TempFolder folder;
        QVERIFY(page.SaveScriptTo(QString::fromStdString(folder / "script.xml")));
        QCOMPARE(TempFolder::Read(folder / "script.xml"),
                 std::string("<script>\r\n</script>\r\n\xe4"));
        QVERIFY(dialogs.shown.empty());

        const QString missing = QString::fromStdString(folder / "no such folder/script.xml");
        QVERIFY(!page.SaveScriptTo(missing));
        QCOMPARE(dialogs.shown.size(), std::size_t(1));
        QCOMPARE(dialogs.shown[0].icon, QMessageBox::Critical);
        QVERIFY2(dialogs.shown[0].text.contains(missing), qPrintable(dialogs.shown[0].text));
    }
};

QTEST_MAIN(XmlScriptPageTest)
#include "XmlScriptPage_test.moc"
