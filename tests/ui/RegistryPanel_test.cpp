// The faction registry panel built on its own: what the registry list, the count and the
// project's files show after each button.
#include "ui/RegistryPanel.h"
#include "ui/VantelButton.h"
#include "ui/support/PageFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
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
    // A faction's seven files.
    std::vector<std::string> Own(const std::string& nick) {
        std::vector<std::string> files = {"emphaty/new/reps_" + nick + ".facts",
                                          "emphaty/new/" + nick + ".tmp"};
        for (const char* list :
             {"Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_"})
            files.push_back("faction_prop/" + std::string(list) + nick + ".lst");
        return files;
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

        // Delete: the faction's two lines emptied and all seven of its files gone.
        for (const char* nick : {"fc_a", "fc_b"})
            for (const std::string& file : Own(nick))
                TempFolder::Write(File(file), "x");
        ClickFaction("fc_a");
        emit Get<VantelButton>("btnnewfactiondel")->Click();
        QCOMPARE(TempFolder::Read(File("misc/factions.ini")),
                 std::string("\r\n\r\n[fc_b]\r\ngrp=fc_b\r\n\r\n"));
        for (const std::string& file : Own("fc_a"))
            QVERIFY2(!fs::exists(File(file)), file.c_str());
        for (const std::string& file : Own("fc_b"))
            QVERIFY2(fs::exists(File(file)), file.c_str());
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

        // Failed writes are told with the file, for a save and for a delete.
        fs::remove_all(File("misc"));
        Save("fc_c", "C");
        ClickFaction("one");
        emit Get<VantelButton>("btnnewfactiondel")->Click();
        QCOMPARE(dialogs->shown.size(), std::size_t(4));
        QVERIFY(dialogs->shown[2].text.contains("factions.ini"));
        QVERIFY(dialogs->shown[3].text.contains("factions.ini"));
    }
};

QTEST_MAIN(RegistryPanelTest)
#include "RegistryPanel_test.moc"
