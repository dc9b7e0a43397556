// SPDX-License-Identifier: GPL-3.0-or-later
// The faction registry panel built on its own: what the registry list, the count and the
// project's files show after each button.
#include "ui/InitialWorldPage.h"
#include "ui/RegistryPanel.h"
#include "ui/VantelButton.h"
#include "ui/support/PageFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>

namespace fs = std::filesystem;

class RegistryPanelTest : public QObject, protected PageFixture<RegistryPanel> {
    Q_OBJECT

    QStringList Factions() {
        QStringList rows;
        auto* list = Get<QTreeWidget>("lv_newfactions");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0) + "|" + list->topLevelItem(i)->text(1);
        return rows;
    }
    void Save(const char* nick, const char* group) {
        Get<QLineEdit>("txtNewNick")->setText(nick);
        Get<QLineEdit>("txtNewDescr")->setText(group);
        emit Get<VantelButton>("btnnewfactionnew")->Click();
    }
    void ClickFaction(const char* nick) {
        auto* list = Get<QTreeWidget>("lv_newfactions");
        const auto found = list->findItems(nick, Qt::MatchExactly, 0);
        QCOMPARE(found.size(), 1);
        list->setCurrentItem(found.front());
        emit list->itemClicked(found.front(), 0);
    }
    std::string File(const std::string& piece) { return *folder / ("projects/P/" + piece); }
    // The name and accessible name of the menu the keys open (closed again); empty when
    // none opens.
    QStringList MenuOpenedBy(const QKeySequence& keys) {
        QStringList seen;
        QTimer poll;
        int tries = 0;
        connect(&poll, &QTimer::timeout, [&] {
            for (QWidget* top : QApplication::topLevelWidgets())
                if (auto* menu = qobject_cast<QMenu*>(top); menu && menu->isVisible()) {
                    seen << menu->objectName() << menu->accessibleName();
                    menu->close();
                    poll.stop();
                }
            if (++tries > 400)
                poll.stop();
        });
        poll.start(5);
        QTest::keySequence(Get<QTreeWidget>("lv_newfactions"), keys);
        return seen;
    }

private slots:
    void init() { OpenPage("P"); }
    void cleanup() { ClosePage(); }

    void SaveRegroupDeleteAndReload() {
        session->ActiveProject.clear(); // without a loaded project nothing is written
        Save("fc_a", "A");
        QVERIFY(!fs::exists(File("misc/factions.ini")));
        session->ActiveProject = "P";
        Save("fc_a", "Group A");
        Save("fc_b", "  "); // a blank group is the nickname
        Save(" \t ", "x");  // a blank nickname: nothing
        Save("bad/nick", "x");
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown[0].text.contains("bad/nick"));
        QCOMPARE(TempFolder::Read(File("misc/factions.ini")),
                 std::string("[fc_a]\r\ngrp=Group A\r\n[fc_b]\r\ngrp=fc_b\r\n"));
        QCOMPARE(Factions(), (QStringList{"fc_a|Group A", "fc_b|fc_b"}));
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("2"));

        // A click fills the form; saving regroups in place.
        ClickFaction("fc_a");
        QCOMPARE(Get<QLineEdit>("txtNewDescr")->text(), QString("Group A"));
        Save("fc_a", "Group Z");
        QCOMPARE(Factions(), (QStringList{"fc_a|Group Z", "fc_b|fc_b"}));

        // Delete: the faction's two lines emptied (its seven files are the core's test).
        ClickFaction("fc_a");
        emit Get<VantelButton>("btnnewfactiondel")->Click();
        QCOMPARE(TempFolder::Read(File("misc/factions.ini")),
                 std::string("\r\n\r\n[fc_b]\r\ngrp=fc_b\r\n\r\n"));
        QCOMPARE(Factions(), QStringList{"fc_b|fc_b"});
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("1"));

        // Reload takes the file as it is; a name unusable on disk is left out and told.
        TempFolder::Write(File("misc/factions.ini"),
                          "[one]\r\ngrp=G1\r\n [not]\r\n[t[w]o]\r\n[../up]\r\ngrp=B\r\n");
        emit Get<VantelButton>("btnnewfactionreload")->Click();
        QCOMPARE(Factions(), (QStringList{"one|G1", "two|[ERROR]"}));
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("2"));
        QCOMPARE(dialogs->shown.size(), std::size_t(2));
        QVERIFY(dialogs->shown[1].text.contains("../up"));
    }

    // The list's menu: F2, the Menu key and Shift+F10 reach it; a rename or a copy reloads
    // every view and selects the faction; a refusal is told and changes nothing.
    void MenuRenamesAndDuplicatesAndEveryViewFollows() {
        const std::string rates = File("emphaty/new/reps_fc_b_grp.facts");
        TempFolder::Write(File("misc/factions.ini"),
                          "[li_n_grp]\r\ngrp=Liberty\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n");
        TempFolder::Write(rates, "[li_n_grp]\r\nrep=-0.7\r\n");
        InitialWorldPage world(*session, *dialogs);
        page->AddView(&world);
        page->LoadFactionRegistry();
        page->show();
        QVERIFY(QTest::qWaitForWindowActive(page.get()));
        auto* list = Get<QTreeWidget>("lv_newfactions");
        list->setFocus();
        list->clearSelection();
        QTest::keyClick(list, Qt::Key_F2); // nothing selected: nothing asked
        QVERIFY(dialogs->asked.empty());

        ClickFaction("li_n_grp");
        dialogs->Answer("li_x_grp");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->asked.size(), std::size_t(1));
        QCOMPARE(dialogs->asked[0].defaultText, QString("li_n_grp"));
        QCOMPARE(Factions(), (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_x_grp"));
        QCOMPARE(world.findChild<QComboBox*>("cboInit_group")->itemText(0), QString("li_x_grp"));
        QCOMPARE(TempFolder::Read(rates), std::string("[li_x_grp]\r\nrep=-0.7\r\n"));
        for (const QKeySequence& keys : {QKeySequence(Qt::Key_Menu), QKeySequence("Shift+F10")})
            QCOMPARE(MenuOpenedBy(keys), (QStringList{"mnuFaction", "li_x_grp"}));

        // Duplicated with relations: the third faction's rate follows.
        dialogs->Answer("li_r_grp");
        dialogs->AnswerQuestion(QMessageBox::Yes);
        page->findChild<QAction*>("mnuDuplicateFaction")->trigger();
        QCOMPARE(Factions(),
                 (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp", "li_r_grp|Liberty"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_r_grp"));
        QCOMPARE(world.findChild<QComboBox*>("cboInit_group")->count(), 3);
        QCOMPARE(TempFolder::Read(rates),
                 std::string("[li_x_grp]\r\nrep=-0.7\r\n[li_r_grp]\r\nrep=-0.7\r\n"));

        // A refusal is told, with its reason, and the registry stays.
        const std::string before = TempFolder::Read(File("misc/factions.ini"));
        ClickFaction("fc_b_grp");
        dialogs->Answer("LI_X_GRP");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY2(dialogs->shown[0].text.contains("registered already"),
                 qPrintable(dialogs->shown[0].text));
        QCOMPARE(TempFolder::Read(File("misc/factions.ini")), before);
    }
};

QTEST_MAIN(RegistryPanelTest)
#include "RegistryPanel_test.moc"
