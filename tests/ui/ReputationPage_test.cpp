// SPDX-License-Identifier: GPL-3.0-or-later
// The reputation page against a real project folder: what each handler leaves on disk.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "ui/ReputationPage.h"
#include "ui/VantelButton.h"
#include "ui/support/PageFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>

class ReputationPageTest : public QObject, protected PageFixture<ReputationPage> {
    Q_OBJECT

private:
    QComboBox* Combo(const char* name) { return Get<QComboBox>(name); }
    QTreeWidget* List() { return page->findChild<QTreeWidget*>("lv_emphaty"); }
    void Choose(int index) {
        QComboBox* picker = Combo("cboemphaty_group");
        picker->setCurrentIndex(index);
        emit picker->activated(index);
    }
    void Select(int row) { List()->setCurrentItem(List()->topLevelItem(row)); }
    void DoubleClick() { QVERIFY(QMetaObject::invokeMethod(page.get(), "lv_emphaty_DblClick")); }
    std::string File(const std::string& piece) {
        return TempFolder::Read(*folder / ("projects/Mod/" + piece));
    }
    bool Exists(const std::string& piece) {
        return std::filesystem::exists(*folder / ("projects/Mod/" + piece));
    }

private slots:
    void init() {
        OpenPage("Mod");
        modFunctions::SaveFaction(folder->path(), "Mod", "A", "Alpha");
        modFunctions::SaveFaction(folder->path(), "Mod", "B", "Beta");
        page->AddFactions(
            modFunctions::LoadRegistry(modFunctions::RegistryPath(folder->path(), "Mod")));
    }

    void cleanup() { ClosePage(); }

    void loadStoresBackOnlyCombosWhoseTextChanged() {
        QCOMPARE(Combo("cboemphaty_group")->currentText(), QString()); // filling chooses nothing
        txtReadWrite::WriteIni(
            "A", "o_d", "-0.3",
            modFunctions::ProjectPath(folder->path(), "Mod", "\\emphaty\\new\\grp.ini"));
        // With no faction chosen a change stores nothing.
        Combo("Combo4")->setEditText("0.5");
        QCOMPARE(File("emphaty/new/grp.ini"), std::string("[A]\r\no_d=-0.3\r\n"));

        Choose(0);
        QCOMPARE(Combo("Combo1")->currentText(), QStringLiteral("-0.3"));
        QCOMPARE(Combo("Combo4")->currentText(), QStringLiteral("0.0"));
        // Combo2 and Combo3 showed "0.0" already, so only Combo4's default is stored.
        QCOMPARE(File("emphaty/new/grp.ini"), std::string("[A]\r\no_d=-0.3\r\nr_m_a=0.0\r\n"));
        QVERIFY(dialogs->shown.empty());
    }

    void typingStoresEveryKeystrokeAndChoosingStoresTheEntry() {
        Choose(1);
        QStringList stored;
        QComboBox* combo = Combo("Combo1");
        // Connected after the page's own handler, so it sees what that handler stored.
        connect(combo, &QComboBox::editTextChanged, this, [&] {
            stored << QString::fromStdString(txtReadWrite::ReadIni(
                "B", "o_d", "<none>",
                modFunctions::ProjectPath(folder->path(), "Mod", "\\emphaty\\new\\grp.ini")));
        });
        combo->lineEdit()->clear();
        QTest::keyClicks(combo->lineEdit(), "-0.25");
        QCOMPARE(stored, (QStringList{"", "-", "-0", "-0.", "-0.2", "-0.25"}));
        QTest::keyClicks(combo->lineEdit(), "x");
        QCOMPARE(stored.back(), QStringLiteral("-0.25x")); // not a number, stored as typed

        // Choosing the entry the combo already shows still stores it.
        QComboBox* combo2 = Combo("Combo2");
        QCOMPARE(combo2->currentText(), QStringLiteral("0.0"));
        emit combo2->activated(9);
        QCOMPARE(File("emphaty/new/grp.ini"), std::string("[B]\r\no_d=-0.25x\r\nr_m_s=0.0\r\n"));
    }

    void editStoresTheColumnAndTheMirrorAndRechoosingShowsIt() {
        TempFolder::Write(*folder / "projects/Mod/emphaty/new/reps_B.facts", "[A]\r\nrep=0.7\r\n");
        auto* force = page->findChild<QCheckBox*>("chkForceREP");
        QVERIFY(force->isChecked());
        force->setChecked(false);
        Select(1);
        DoubleClick(); // no faction chosen: not asked
        Choose(0);
        List()->clearSelection();
        DoubleClick(); // no row selected: not asked
        Select(1);
        DoubleClick(); // cancelled
        dialogs->Answer("");
        DoubleClick(); // confirmed empty
        QCOMPARE(dialogs->asked.size(), std::size_t(2));
        QVERIFY(!Exists("emphaty/new/reps_A.facts"));
        dialogs->Answer("0.4");
        DoubleClick();
        QCOMPARE(List()->topLevelItem(1)->text(2), QStringLiteral("0.4"));
        // Every row is stored, the own one included; without the mirror B keeps its rate.
        QCOMPARE(File("emphaty/new/reps_A.facts"),
                 std::string("[A]\r\nrep=0.0\r\n[B]\r\nrep=0.4\r\n"));
        QCOMPARE(File("emphaty/new/reps_B.facts"), std::string("[A]\r\nrep=0.7\r\n"));

        force->setChecked(true);
        dialogs->Answer("-0.2");
        DoubleClick();
        QCOMPARE(File("emphaty/new/reps_B.facts"), std::string("[A]\r\nrep=-0.2\r\n"));

        // Choosing another faction and coming back shows the stored rates.
        Choose(1);
        QCOMPARE(List()->topLevelItem(0)->text(2), QStringLiteral("-0.2"));
        QCOMPARE(List()->topLevelItem(1)->text(2), QStringLiteral("0.0"));
        Choose(0);
        QCOMPARE(List()->topLevelItem(1)->text(2), QStringLiteral("-0.2"));
    }
};

QTEST_MAIN(ReputationPageTest)
#include "ReputationPage_test.moc"
