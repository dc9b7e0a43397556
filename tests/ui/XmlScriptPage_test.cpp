// SPDX-License-Identifier: GPL-3.0-or-later
// The script page driven through its real controls: the texts it builds, copy and save
// (a failed save is the matrix page's export test).
#include "support/Controls.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "ui/VantelButton.h"
#include "ui/XmlScriptPage.h"
#include "ui/frmWorking.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>

namespace {

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

        // Copy and save take the shown text with the user's edits.
        box->append("\xc3\xa4"); // "ä" typed by the user
        const QString shown = "<script>\r\n</script>\r\n\xc3\xa4";
        Press(Child<VantelButton>(page, "btnCopyXML"));
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);
        TempFolder folder;
        QVERIFY(page.SaveScriptTo(QString::fromStdString(folder / "script.xml")));
        QCOMPARE(TempFolder::Read(folder / "script.xml"),
                 std::string("<script>\r\n</script>\r\n\xe4"));

        Child<QCheckBox>(page, "Check1")->setChecked(true);
        // With the header, from the fields' first texts (the text itself is the builder's
        // test); pressed again, the same text, not a second header.
        Press(Child<VantelButton>(page, "btnCreateXML"));
        const QString withHeader = page.ScriptText();
        QVERIFY(withHeader.startsWith("<script>\r\n<header name=\"MyFaction Mod\">\r\n"));
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(page.ScriptText(), withHeader);

        // A character the file cannot hold is refused naming the field; the box keeps its text.
        const QString before = page.ScriptText();
        Child<QLineEdit>(page, "txtHeadModAutor")->setText(QString::fromUtf8("\xC5\x81\xC3\xB3"));
        Press(Child<VantelButton>(page, "btnCreateXML"));
        QCOMPARE(dialogs.shown.size(), std::size_t(1));
        QVERIFY(dialogs.shown[0].text.contains("\"Autor\""));
        QCOMPARE(page.ScriptText(), before);
    }
};

QTEST_MAIN(XmlScriptPageTest)
#include "XmlScriptPage_test.moc"
