// SPDX-License-Identifier: GPL-3.0-or-later
// The main window for keyboard and screen-reader users, and the states that must not show
// stale values or drop edits: driven through real key events and accessibility interfaces.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "ui/VantelButton.h"
#include "ui/support/MainWindowFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

class frmMainAccessTest : public QObject, protected MainWindowFixture {
    Q_OBJECT

private:
    static QString AccessibleName(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    }
    void LoadProject(const std::string& name) {
        modFunctions::CreateProjectFolders(folder->path(), name);
        modFunctions::SaveFaction(folder->path(), name, "A", "Alpha");
        modFunctions::SaveFaction(folder->path(), name, "B", "Beta");
        Get<VantelButton>("VantelButton4")->click();
        auto* projects = Get<QListWidget>("lstProjects");
        projects->setCurrentItem(
            projects->findItems(QString::fromStdString(name), Qt::MatchExactly).front());
        Get<VantelButton>("VantelButton6")->click();
        QTRY_VERIFY_WITH_TIMEOUT(Get<QGroupBox>("Frame1")->isHidden(), 10000);
    }
    std::string Read(const std::string& piece) {
        return txtReadWrite::ReadFileText((*folder) / ("projects/P/" + piece));
    }

private slots:
    void init() {
        NewFolder();
        OpenWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }
    void cleanup() { CloseWindow(); }

    void EveryControlTheKeyboardReachesHasAName() {
        LoadProject("P");
        for (const bool english : {false, true}) {
            QStringList nameless;
            for (QWidget* widget : window->findChildren<QWidget*>()) {
                // What Tab can reach: not the combo boxes' pop-up lists, not what never shows.
                if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy() ||
                    widget->inherits("QTabBar") || widget->inherits("QComboBoxListView") ||
                    widget->isHidden())
                    continue;
                if (AccessibleName(widget).trimmed().isEmpty())
                    nameless << widget->objectName() + "/" + widget->metaObject()->className();
            }
            QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(", ")));
            if (!english)
                Get<VantelButton>("VantelButton2")->click();
        }
    }

    void AfterAReloadAnEditWithoutAChosenFactionIsRefusedNotDropped() {
        LoadProject("P");
        QVERIFY(!window->ShowFaction(frmMain::FactionProp, "nobody"));
        QVERIFY(window->ShowFaction(frmMain::FactionProp, "A"));
        auto* male = Get<QLineEdit>("txtFPNameMale");
        QTest::keyClicks(male, "12");
        QVERIFY(Read("faction_prop/grp.ini").find("firstname_male=12\r\n") != std::string::npos);
        QVERIFY(window->ShowFaction(frmMain::Emphaty, "A"));
        QVERIFY(window->ShowFaction(frmMain::InitialWorld, "B"));
        QCOMPARE(Get<QLineEdit>("txtInitName")->text(), QString("error"));

        Get<VantelButton>("btnnewfactionreload")->click();
        const std::string sheet = Read("faction_prop/grp.ini");
        const std::string world = Read("initialworld/grp.ini");
        // No stale values under the empty pickers, and the controls take no typing.
        QCOMPARE(Get<QComboBox>("cboFP_group")->currentText(), QString());
        QCOMPARE(male->text(), QString());
        QVERIFY(!male->isEnabled());
        QVERIFY(!Get<QComboBox>("Combo1")->isEnabled());
        QCOMPARE(Get<QLineEdit>("txtInitName")->text(), QString());
        QTest::keyClicks(male, "9");
        QTest::keyClicks(Get<QLineEdit>("txtInitName"), "9");
        QCOMPARE(Read("faction_prop/grp.ini"), sheet);
        QCOMPARE(Read("initialworld/grp.ini"), world);
        QVERIFY(dialogs->shown.empty());

        // Choosing again makes the page editable with the stored values.
        QVERIFY(window->ShowFaction(frmMain::FactionProp, "A"));
        QVERIFY(male->isEnabled());
        QCOMPARE(male->text(), QString("12"));
    }
};

QTEST_MAIN(frmMainAccessTest)
#include "frmMainAccess_test.moc"
