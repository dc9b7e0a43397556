// SPDX-License-Identifier: GPL-3.0-or-later
// The faction-property page driven through its widgets, on a temporary project.
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "ui/FactionPropsPage.h"
#include "ui/VantelButton.h"
#include "ui/frmFPBodyparts.h"
#include "ui/support/PageFixture.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <map>

class FactionPropsPageTest : public QObject, protected PageFixture<FactionPropsPage> {
    Q_OBJECT

private:
    // Host path of a piece of the project.
    std::string File(std::string_view piece) const {
        return platform::ResolvePath(modFunctions::ProjectPath(folder->path(), "p", piece));
    }
    std::string Sheet() const { return File("\\faction_prop\\grp.ini"); }
    std::string Value(const char* faction, const char* key) const {
        return txtReadWrite::ReadIni(faction, key, "<absent>", Sheet());
    }
    // The user picks the faction at this index of cboFP_group.
    void Pick(int index) {
        auto* combo = Get<QComboBox>("cboFP_group");
        combo->setCurrentIndex(index);
        emit combo->activated(index);
    }
    void PickItem(const char* comboName, const char* item) {
        auto* combo = Get<QComboBox>(comboName);
        const int index = combo->findText(QString::fromLatin1(item));
        QVERIFY(index >= 0);
        combo->setCurrentIndex(index);
        emit combo->activated(index);
    }
    void DoubleClick(QListWidget* list, int row) {
        list->setCurrentRow(row);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                           list->visualItemRect(list->item(row)).center());
    }
    // Every list file of the project's faction_prop folder with its bytes.
    std::map<std::string, std::string> ListFiles() const {
        std::map<std::string, std::string> files;
        for (const std::string& name :
             platform::ListFolder(File("\\faction_prop"), platform::EntryKind::Files))
            if (name.ends_with(".lst"))
                files[name] = TempFolder::Read(File("\\faction_prop") + "/" + name);
        return files;
    }
    static QStringList Items(const QListWidget* list) {
        QStringList items;
        for (int i = 0; i < list->count(); ++i)
            items << list->item(i)->text();
        return items;
    }

private slots:
    void init() {
        OpenPage("p");
        page->AddFactions({{"li_p_grp", "Liberty", "0.0"}, {"x", "x", "0.0"}});
    }
    void cleanup() { ClosePage(); }

    void LoadingShowsTheSectionAndAppliesTheScanRuleLast() {
        // The announce is set after the chance: "False" or none resets a stored chance.
        const struct {
            const char* section;
            const char* shown;
        } cases[] = {
            {"scan_chance=0.5\r\nscan_announce=False\r\n", "0.0"},
            {"scan_chance=0.5\r\n", "0.0"},
            {"scan_announce=True\r\nscan_chance=0.5\r\n", "0.5"},
        };
        for (const auto& c : cases) {
            // Shown first: x, announcing with a chance of 0.0, so that resetting the chance
            // changes the box only after the stored chance was shown.
            TempFolder::Write(Sheet(),
                              std::string("[x]\r\nscan_announce=True\r\nscan_chance=0.0\r\n"
                                          "[li_p_grp]\r\nLegality=Lawful\r\n"
                                          "jump=sideways\r\nlastname=226908\r\n") +
                                  c.section);
            Pick(1);
            Pick(0);
            QCOMPARE(Get<QLineEdit>("txtFPScan")->text(), QString(c.shown));
            QCOMPARE(Value("li_p_grp", "scan_chance"), c.shown);
        }
        // Values that are no option pick the last one, and that is stored; values shown as
        // before the load are not written.
        QVERIFY(Get<QRadioButton>("Option2")->isChecked());
        QVERIFY(Get<QRadioButton>("Option7")->isChecked());
        QCOMPARE(Value("li_p_grp", "Legality"), "unlawful");
        QCOMPARE(Value("li_p_grp", "jump"), "both");
        QCOMPARE(Value("li_p_grp", "plurality"), "<absent>");
        QCOMPARE(Get<QLineEdit>("txtFPLastname")->text(), QStringLiteral("226908"));
        // Re-picking the faction shown changes nothing on disk.
        const std::string before = TempFolder::Read(Sheet());
        Pick(0);
        QCOMPARE(TempFolder::Read(Sheet()), before);
        // A faction without a section stores the defaults its controls now show.
        TempFolder::Write(Sheet(), "");
        Pick(1);
        QVERIFY(Get<QRadioButton>("Option1")->isChecked());
        for (const auto& [key, value] : {std::pair{"Legality", "lawful"},
                                         {"jump", "jumpgate"},
                                         {"scan_announce", "False"},
                                         {"scan_chance", "0.0"},
                                         {"lastname", ""},
                                         {"plurality", "<absent>"}})
            QCOMPARE(Value("x", key), value);
        QVERIFY(dialogs->shown.empty());
    }

    void EachAddWritesItsOwnListFileAndADoubleClickRemoves() {
        const struct {
            const char* combo;
            const char* button;
            const char* list;
            const char* file;
            const char* entry;
        } lists[] = {
            {"cboFPShips", "VantelButton9", "lstFPShips", "Shiplist_x.lst", "not_in_the_catalogue"},
            {"cboFPVoice", "VantelButton10", "lstFPVoice", "Voicelist_x.lst", "pilot_f_leg_f01"},
            {"cboFPScan", "VantelButton11", "lstFPscan", "Scanlist_x.lst", "commodity_gold"},
            {"cboFPFormation", "VantelButton12", "lstFPformation", "Formationlist_x.lst", "ANY"},
        };
        Get<QComboBox>("cboFPShips")->setEditText(QStringLiteral("early"));
        Get<VantelButton>("VantelButton9")->click(); // no faction shown: nothing happens
        QCOMPARE(Get<QListWidget>("lstFPShips")->count(), 0);
        Pick(1);
        std::map<std::string, std::string> expected; // every list file of the project
        for (const auto& l : lists) {
            Get<QComboBox>(l.combo)->setEditText(QString());
            Get<VantelButton>(l.button)->click(); // an empty choice adds nothing
            Get<QComboBox>(l.combo)->setEditText(QString(l.entry));
            Get<VantelButton>(l.button)->click();
            Get<VantelButton>(l.button)->click();
            std::string entry = l.entry;
            if (entry == "ANY") { // a formation wants its second part too
                QCOMPARE(ListFiles(), expected);
                Get<QComboBox>("cboFPformation2")->setEditText(QStringLiteral("convoy1"));
                Get<VantelButton>(l.button)->click();
                Get<VantelButton>(l.button)->click();
                entry = "ANY, convoy1";
            }
            expected[l.file] = entry + "\r\n" + entry + "\r\n\r\n";
            QCOMPARE(ListFiles(), expected);
            QCOMPARE(Items(Get<QListWidget>(l.list)), (QStringList{entry.c_str(), entry.c_str()}));
        }
        auto* ships = Get<QListWidget>("lstFPShips");
        DoubleClick(ships, 1);
        DoubleClick(ships, 0);
        QCOMPARE(ships->count(), 0);
        expected["Shiplist_x.lst"] = "\r\n";
        QCOMPARE(ListFiles(), expected);
        // Loading reads the lists back, whatever capitals their files carry.
        platform::DeleteFile(File("\\faction_prop\\Voicelist_x.lst"));
        TempFolder::Write(File("\\faction_prop") + "/VOICELIST_x.LST", "walker\r\n   \r\n\r\n");
        Pick(0);
        Pick(1);
        QCOMPARE(Items(Get<QListWidget>("lstFPVoice")), (QStringList{"walker", "   "}));
        QCOMPARE(Items(Get<QListWidget>("lstFPformation")),
                 (QStringList{"ANY, convoy1", "ANY, convoy1"}));
    }

    void EditsAreStoredAtOnceUnderTheShownFaction() {
        Get<QLineEdit>("txtFPrank")->setText("early"); // no faction shown: nothing stored
        QVERIFY(!platform::IsFile(Sheet()));
        Pick(1);
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
        // What is typed is stored and added as typed, never completed to a catalogue item.
        const auto type = [this](const char* name, const char* text) {
            auto* combo = Get<QComboBox>(name);
            combo->setFocus();
            combo->setEditText(QString());
            QTest::keyClicks(combo->lineEdit(), text);
            return combo->currentText();
        };
        QCOMPARE(type("cboFPShips", "br_n_br_elite_d1"), "br_n_br_elite_d1");
        type("cboFPmc", "mc_l");
        Get<QLineEdit>("txtFPrank")->setText("198000");
        Get<QComboBox>("cboFPprefix")->setEditText("typed_prefix");
        Get<QRadioButton>("Option4")->setChecked(true);
        Get<QRadioButton>("Option6")->setChecked(true);
        PickItem("cboFPScanFracht", "True"); // leaves the chance alone
        Get<QLineEdit>("txtFPScan")->setText("0.7");
        for (const auto& [key, value] : {std::pair{"mc_costume", "mc_l"},
                                         {"rank_desig", "198000"},
                                         {"msg_id_prefix", "typed_prefix"},
                                         {"plurality", "plural"},
                                         {"jump", "jumphole"},
                                         {"scan_announce", "True"},
                                         {"scan_chance", "0.7"}})
            QCOMPARE(Value("x", key), value);
        PickItem("cboFPScanFracht", "False"); // resets it
        QCOMPARE(Value("x", "scan_chance"), "0.0");
        QCOMPARE(Get<QLineEdit>("txtFPScan")->text(), QStringLiteral("0.0"));
    }

    void BodypartDialogEnablesOkAndUsesTheFactionShownWhenPressed() {
        Pick(0);
        Get<VantelButton>("VantelButton8")->click();
        frmFPBodyparts* dialog = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String("frmFPBodyparts") && widget->isVisible())
                dialog = qobject_cast<frmFPBodyparts*>(widget);
        QVERIFY(dialog);
        QVERIFY(!dialog->isModal());
        // "OK" is enabled only while all three parts are filled.
        auto* ok = dialog->findChild<VantelButton*>(QStringLiteral("VantelButton1"));
        const char* const parts[][2] = {{"Combo1", "li_captain_head"},
                                        {"Combo2", "li_male_elite_body"},
                                        {"Combo3", "comm_br_elite"}};
        for (const auto& [combo, part] : parts) {
            QVERIFY(!ok->isEnabled());
            dialog->findChild<QComboBox*>(combo)->setEditText(part);
        }
        QVERIFY(ok->isEnabled());

        // The main window stays usable: another faction is picked before "OK".
        Pick(1);
        ok->click();
        QCOMPARE(TempFolder::Read(File("\\faction_prop\\Bodylist_x.lst")),
                 "li_captain_head, li_male_elite_body, comm_br_elite\r\n\r\n");
        QVERIFY(!platform::IsFile(File("\\faction_prop\\Bodylist_li_p_grp.lst")));
        QVERIFY(!dialog->isVisible());

        // A reload empties the picker while the dialog is open: "OK" is refused with a message.
        Get<VantelButton>("VantelButton8")->click();
        page->ClearFactions();
        page->AddFactions({{"li_p_grp", "Liberty", "0.0"}, {"x", "x", "0.0"}});
        QVERIFY(ok->isEnabled());
        ok->click();
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown[0].text.contains("was not added"));
        QCOMPARE(Get<QListWidget>("lstFPBodyparts")->count(), 0);
        QCOMPARE(TempFolder::Read(File("\\faction_prop\\Bodylist_x.lst")),
                 "li_captain_head, li_male_elite_body, comm_br_elite\r\n\r\n");
    }
};

QTEST_MAIN(FactionPropsPageTest)
#include "FactionPropsPage_test.moc"
