// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "ui/InitialWorldPage.h"
#include "ui/VantelButton.h"
#include "ui/support/PageFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>

class InitialWorldPageTest : public QObject, protected PageFixture<InitialWorldPage> {
    Q_OBJECT

private:
    std::string DataPath() const { return *folder / "projects/Mod/initialworld/grp.ini"; }
    std::string Data() const { return TempFolder::Read(DataPath()); }
    std::string Protocol() const {
        return txtReadWrite::ReadFileText(
            modFunctions::ProjectPath(folder->path(), "Mod", "\\protocol\\protocol.txt"));
    }
    void Choose(int index) {
        Get<QComboBox>("cboInit_group")->setCurrentIndex(index);
        emit Get<QComboBox>("cboInit_group")->activated(index);
    }
    void DoubleClick(int row) {
        QTreeWidgetItem* item = lv()->topLevelItem(row);
        lv()->setCurrentItem(item);
        emit lv()->itemDoubleClicked(item, 0);
    }
    QTreeWidget* lv() { return Get<QTreeWidget>("lv_Init"); }
    QString Rep(int row) { return lv()->topLevelItem(row)->text(2); }
private slots:
    void init() {
        OpenPage("Mod");
        page->AddFactions({{"li_police", "Liberty", "0.7"}, {"rh_grp", "Rheinland", "0.0"}});
    }

    void cleanup() { ClosePage(); }

    void choosingFactionWritesBackErrorAndShowsStoredReputations() {
        QCOMPARE(Rep(0), QString("0.0")); // not the registry's "Rep"
        TempFolder::Write(DataPath(), "[rh_grp]\r\nids_name=1\r\nli_police=-0.65\r\n");
        // Before a choice the boxes are empty and take no typing: nothing is stored or lost.
        QVERIFY(!Get<QLineEdit>("txtInitShortName")->isEnabled());
        QTest::keyClicks(Get<QLineEdit>("txtInitShortName"), "7");
        QCOMPARE(Get<QLineEdit>("txtInitShortName")->text(), QString());
        Choose(0);
        QVERIFY(Get<QLineEdit>("txtInitShortName")->isEnabled());
        QCOMPARE(Get<QLineEdit>("txtInitInfo")->text(), QString("error"));
        QCOMPARE(Data(), std::string("[rh_grp]\r\nids_name=1\r\nli_police=-0.65\r\n"
                                     "[li_police]\r\nids_name=error\r\nids_short_name=error\r\n"
                                     "ids_info=error\r\n"));
        QCOMPARE(Rep(0), QString());
        QCOMPARE(Rep(1), QString());

        Choose(1);
        QCOMPARE(Rep(0), QString("-0.65"));
        QCOMPARE(Rep(1), QString());
        QTest::keyClicks(Get<QLineEdit>("txtInitName"), "7");
        QVERIFY(Data().find("[rh_grp]\r\nids_name=17\r\n") == 0);
    }

    void reputationEditStoresEntryAndMirrorWhenForced() {
        DoubleClick(0); // no faction chosen: not asked
        TempFolder::Write(DataPath(),
                          "[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n");
        Choose(0);
        const std::string chosen = Data();
        lv()->clearSelection();
        QMetaObject::invokeMethod(page.get(), "lv_Init_DblClick"); // no row: not asked
        dialogs->Answer(""); // cancelled and confirmed empty both give ""
        DoubleClick(1);
        QCOMPARE(dialogs->asked.size(), std::size_t(1));
        QCOMPARE(Data(), chosen);
        dialogs->Answer("0.5");
        DoubleClick(1);
        dialogs->Answer("1");
        DoubleClick(0); // own row: the mirror hits the same entry
        Get<QCheckBox>("chkForceRep2")->setChecked(false);
        Choose(1);
        dialogs->Answer("-0.3");
        DoubleClick(1);
        dialogs->Answer("0.2");
        DoubleClick(0);
        QCOMPARE(Data(),
                 std::string("[li_police]\r\nids_name=1\r\nids_short_name=2\r\nids_info=3\r\n"
                             "rh_grp=0.5\r\nli_police=1\r\n"
                             "[rh_grp]\r\nli_police=0.2\r\nids_name=error\r\n"
                             "ids_short_name=error\r\nids_info=error\r\nrh_grp=-0.3\r\n"));
        QCOMPARE(Rep(0), QString("0.2"));
        QCOMPARE(Rep(1), QString("-0.3"));
    }
};

QTEST_MAIN(InitialWorldPageTest)
#include "InitialWorldPage_test.moc"
