// SPDX-License-Identifier: GPL-3.0-or-later
// Undo and redo in the main window: the buttons, their tool tips and shortcuts in both
// languages, one step per user action, typing merged per field, restored values on the pages.
#include "core/modFunctions.h"
#include "ui/EditSteps.h"
#include "ui/VantelButton.h"
#include "ui/support/MainWindowFixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>

namespace fs = std::filesystem;

class EditStepsTest : public QObject, private MainWindowFixture {
    Q_OBJECT

    VantelButton* Undo() { return Get<VantelButton>("btnUndo"); }
    VantelButton* Redo() { return Get<VantelButton>("btnRedo"); }
    // A click as the user makes it, then the wait for the next input that ends its step.
    void UserClick(QWidget* widget) {
        QTest::mouseClick(widget, Qt::LeftButton);
        window->Steps().Settle();
    }
    void Keys(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(widget, key, modifiers);
        window->Steps().Settle();
    }
    void LoadProject() {
        modFunctions::CreateProjectFolders(folder->path(), "P");
        emit Get<VantelButton>("VantelButton4")->Click();
        auto* projects = Get<QListWidget>("lstProjects");
        projects->setCurrentItem(projects->findItems("P", Qt::MatchExactly).front());
        emit Get<VantelButton>("VantelButton6")->Click();
    }
    QStringList Factions() {
        QStringList rows;
        auto* list = Get<QTreeWidget>("lv_newfactions");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0);
        return rows;
    }
    std::string Registry() { return TempFolder::Read((*folder) / "projects/P/misc/factions.ini"); }

private slots:
    void init() {
        NewFolder();
        fs::create_directory((*folder) / "projects");
        OpenWindow();
    }
    void cleanup() { CloseWindow(); }

    void ButtonsTooltipsAndShortcutsInBothLanguages_data() {
        QTest::addColumn<bool>("english");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("German") << false
                                << QStringList{"Rückgängig",
                                               "Wiederholen",
                                               "Nichts rückgängig zu machen",
                                               "Nichts zu wiederholen",
                                               "Rückgängig: Fraktion new_grp speichern",
                                               "Rückgängig: Fraktion new_grp löschen",
                                               "Wiederholen: Fraktion new_grp löschen"};
        QTest::newRow("English") << true
                                 << QStringList{"Undo",
                                                "Redo",
                                                "Nothing to undo",
                                                "Nothing to redo",
                                                "Undo: save faction new_grp",
                                                "Undo: delete faction new_grp",
                                                "Redo: delete faction new_grp"};
    }
    void ButtonsTooltipsAndShortcutsInBothLanguages() {
        QFETCH(bool, english);
        QFETCH(QStringList, texts);
        if (english)
            window->English();
        QCOMPARE(Undo()->Caption(), texts[0]);
        QCOMPARE(Redo()->Caption(), texts[1]);
        QCOMPARE(QAccessible::queryAccessibleInterface(Undo())->text(QAccessible::Name), texts[0]);
        LoadProject();
        QVERIFY(!Undo()->isEnabled());
        QVERIFY(!Redo()->isEnabled());
        QCOMPARE(Undo()->toolTip(), texts[2]);
        QCOMPARE(Redo()->toolTip(), texts[3]);

        // Typing a nickname writes nothing; New/Save is one step.
        const std::string empty = Registry();
        QTest::keyClicks(Get<QLineEdit>("txtNewNick"), "new_grp");
        window->Steps().Settle();
        QVERIFY(!Undo()->isEnabled());
        UserClick(Get<VantelButton>("btnnewfactionnew"));
        QCOMPARE(Factions(), QStringList{"new_grp"});
        const std::string saved = Registry();
        QVERIFY(Undo()->isEnabled());
        QCOMPARE(Undo()->toolTip(), texts[4]);

        // Delete, with its seven files, is one step: undone by Ctrl+Z, redone by either key.
        auto* list = Get<QTreeWidget>("lv_newfactions");
        list->setCurrentItem(list->topLevelItem(0));
        TempFolder::Write((*folder) / "projects/P/faction_prop/shiplist_new_grp.lst", "ship\r\n");
        UserClick(Get<VantelButton>("btnnewfactiondel"));
        QCOMPARE(Factions(), QStringList{});
        QCOMPARE(Undo()->toolTip(), texts[5]);
        Keys(list, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Factions(), QStringList{"new_grp"}); // the list shows it at once
        QCOMPARE(Registry(), saved);
        QVERIFY(fs::exists((*folder) / "projects/P/faction_prop/shiplist_new_grp.lst"));
        QCOMPARE(Redo()->toolTip(), texts[6]);
        QVERIFY(Redo()->isEnabled());
        Keys(list, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(Factions(), QStringList{});
        Keys(list, Qt::Key_Z, Qt::ControlModifier);
        Keys(list, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(Factions(), QStringList{});
        QVERIFY(!fs::exists((*folder) / "projects/P/faction_prop/shiplist_new_grp.lst"));

        // The buttons: back to the start, and nothing more to undo.
        UserClick(Undo());
        UserClick(Undo());
        QCOMPARE(Registry(), empty);
        QVERIFY(!Undo()->isEnabled());
        QCOMPARE(Undo()->toolTip(), texts[2]);
        UserClick(Redo());
        QCOMPARE(Factions(), QStringList{"new_grp"});
        QVERIFY(dialogs->shown.empty());
    }

    // Typing in one field is one step; the field's own Ctrl+Z stays its own while it has
    // typing to undo; the page shows the restored value after an undo; a file changed
    // outside the window refuses the undo and names the file.
    void TypingIsOneStepAndThePageShowsTheRestoredValue() {
        LoadProject();
        const std::string data = (*folder) / "projects/P/initialworld/grp.ini";
        TempFolder::Write((*folder) / "projects/P/misc/factions.ini", "[fc_a]\r\ngrp=fc_a\r\n");
        TempFolder::Write(data, "[fc_a]\r\nids_name=5\r\nids_short_name=s\r\nids_info=i\r\n");
        emit Get<VantelButton>("btnnewfactionreload")->Click();
        Get<QTabWidget>("SSTab1")->setCurrentIndex(3);
        auto* picker = Get<QComboBox>("cboInit_group");
        picker->setCurrentIndex(picker->findText("fc_a"));
        emit picker->activated(picker->currentIndex());
        auto* name = Get<QLineEdit>("txtInitName");
        QCOMPARE(name->text(), QString("5"));
        const std::string start = TempFolder::Read(data);

        name->setFocus();
        QTest::keyClicks(name, "67");
        window->Steps().Settle();
        QCOMPARE(name->text(), QString("567"));
        QVERIFY(TempFolder::Read(data) != start);
        Keys(name, Qt::Key_Z, Qt::ControlModifier); // the field's own undo, still typing there
        QCOMPARE(name->text(), QString("5"));
        Keys(name, Qt::Key_Backspace, Qt::NoModifier);
        QCOMPARE(window->Steps().UndoTip(), QString("Rückgängig: Eingabe in txtInitName"));
        UserClick(Undo()); // all of it at once
        QCOMPARE(TempFolder::Read(data), start);
        QCOMPARE(name->text(), QString("5"));
        QCOMPARE(Get<QTabWidget>("SSTab1")->currentIndex(), 3);
        QVERIFY(!Undo()->isEnabled());

        // With no typing of its own left, the field leaves Ctrl+Z and Ctrl+Y to the window.
        Keys(name, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(name->text(), QString(""));
        Keys(name, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(name->text(), QString("5"));

        Keys(name, Qt::Key_Y, Qt::ControlModifier);
        TempFolder::Write(data, "changed elsewhere");
        UserClick(Undo());
        QCOMPARE(TempFolder::Read(data), std::string("changed elsewhere"));
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY2(dialogs->shown[0].text.startsWith("Rückgängig machen ist nicht möglich.\r\n") &&
                     dialogs->shown[0].text.contains("grp.ini"),
                 qPrintable(dialogs->shown[0].text));
    }
};

QTEST_MAIN(EditStepsTest)
#include "EditSteps_test.moc"
