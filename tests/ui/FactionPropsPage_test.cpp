// The faction-property page driven through its widgets, on a temporary project.
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "ui/FactionPropsPage.h"
#include "ui/VantelButton.h"
#include "ui/frmFPBodyparts.h"
#include "ui/support/PageFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

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

    void LoadingStoresShownValuesAndReplacesNonOptionValues() {
        TempFolder::Write(Sheet(), "[li_p_grp]\r\nLegality=Lawful\r\njump=sideways\r\n"
                                   "scan_announce=True\r\nscan_chance=0.5\r\nlastname=226908\r\n");
        QCOMPARE(Get<QComboBox>("cboFP_group")->currentText(), QString());
        Pick(0);
        QVERIFY(Get<QRadioButton>("Option2")->isChecked());
        QVERIFY(Get<QRadioButton>("Option7")->isChecked());
        QCOMPARE(Value("li_p_grp", "Legality"), "unlawful");
        QCOMPARE(Value("li_p_grp", "jump"), "both");
        // Shown as before the load, so not written.
        QCOMPARE(Value("li_p_grp", "plurality"), "<absent>");
        QCOMPARE(Value("li_p_grp", "msg_id_prefix"), "<absent>");
        QCOMPARE(Get<QLineEdit>("txtFPScan")->text(), QStringLiteral("0.5"));
        QCOMPARE(Get<QLineEdit>("txtFPLastname")->text(), QStringLiteral("226908"));
        auto* prefix = Get<QComboBox>("cboFPprefix");
        QCOMPARE(prefix->count(), 2);
        QCOMPARE(prefix->itemText(0), QStringLiteral("gcs_refer_faction_li_p"));
        QCOMPARE(prefix->itemText(1), QStringLiteral("ignore"));

        // Re-picking the faction shown changes nothing on disk.
        const std::string before = TempFolder::Read(Sheet());
        Pick(0);
        QCOMPARE(TempFolder::Read(Sheet()), before);

        // A faction without a section stores the defaults its controls now show; its announce
        // of "False" comes after the scan chance and resets it.
        Pick(1);
        QVERIFY(Get<QRadioButton>("Option1")->isChecked());
        QCOMPARE(Value("x", "Legality"), "lawful");
        QCOMPARE(Value("x", "jump"), "jumpgate");
        QCOMPARE(Value("x", "scan_announce"), "False");
        QCOMPARE(Value("x", "scan_chance"), "0.0");
        QCOMPARE(Value("x", "lastname"), "");
        QCOMPARE(Value("x", "plurality"), "<absent>");
        QCOMPARE(prefix->count(), 1);
        QCOMPARE(prefix->itemText(0), QStringLiteral("ignore"));

        // Back on the faction with a section: the voice and scan "Add" buttons; an empty
        // catalogue choice adds nothing.
        Pick(0);
        PickItem("cboFPVoice", "pilot_f_leg_f01");
        Get<VantelButton>("VantelButton10")->click();
        Get<QComboBox>("cboFPScan")->setEditText(QStringLiteral("commodity_gold"));
        Get<VantelButton>("VantelButton11")->click();
        Get<VantelButton>("VantelButton11")->click();
        Get<QComboBox>("cboFPScan")->setEditText(QString());
        Get<VantelButton>("VantelButton11")->click();
        QCOMPARE(TempFolder::Read(File("\\faction_prop\\Voicelist_li_p_grp.lst")),
                 "pilot_f_leg_f01\r\n\r\n");
        QCOMPARE(TempFolder::Read(File("\\faction_prop\\Scanlist_li_p_grp.lst")),
                 "commodity_gold\r\ncommodity_gold\r\n\r\n");
        QCOMPARE(Items(Get<QListWidget>("lstFPscan")),
                 (QStringList{"commodity_gold", "commodity_gold"}));
        // "False" resets the stored chance in the faction's own section; the rest stays.
        QCOMPARE(Get<QLineEdit>("txtFPScan")->text(), QStringLiteral("0.5"));
        PickItem("cboFPScanFracht", "False");
        QCOMPARE(Value("li_p_grp", "scan_announce"), "False");
        QCOMPARE(Value("li_p_grp", "scan_chance"), "0.0");
        QCOMPARE(Value("li_p_grp", "lastname"), "226908");
        QVERIFY(dialogs->shown.empty());
    }

    void EditsAreStoredAtOnceUnderTheShownFaction() {
        // Nothing is stored before a faction is shown.
        Get<QLineEdit>("txtFPrank")->setText(QStringLiteral("early"));
        QVERIFY(!platform::IsFile(Sheet()));
        Pick(1);
        Get<QLineEdit>("txtFPrank")->setText(QStringLiteral("198000"));
        Get<QComboBox>("cboFPprefix")->setEditText(QStringLiteral("typed_prefix"));
        PickItem("cboFPmc", "mc_ku");
        // What is typed is stored and added as typed, never completed to a catalogue item.
        page->show();
        QVERIFY(QTest::qWaitForWindowExposed(page.get()));
        auto* ships = Get<QComboBox>("cboFPShips");
        ships->setFocus();
        ships->setEditText(QString());
        QTest::keyClicks(ships->lineEdit(), QStringLiteral("br_n_br_elite_d1"));
        QCOMPARE(ships->currentText(), QStringLiteral("br_n_br_elite_d1"));
        auto* costume = Get<QComboBox>("cboFPmc");
        costume->setFocus();
        costume->setEditText(QString());
        QTest::keyClicks(costume->lineEdit(), QStringLiteral("mc_l"));
        QCOMPARE(Value("x", "mc_costume"), "mc_l");
        PickItem("cboFPmc", "mc_ku");
        Get<QRadioButton>("Option4")->setChecked(true);
        Get<QRadioButton>("Option6")->setChecked(true);
        QCOMPARE(Value("x", "rank_desig"), "198000");
        QCOMPARE(Value("x", "msg_id_prefix"), "typed_prefix");
        QCOMPARE(Value("x", "mc_costume"), "mc_ku");
        QCOMPARE(Value("x", "plurality"), "plural");
        QCOMPARE(Value("x", "jump"), "jumphole");

        // "True" leaves the scan chance alone; picking "False" resets it.
        PickItem("cboFPScanFracht", "True");
        Get<QLineEdit>("txtFPScan")->setText(QStringLiteral("0.7"));
        QCOMPARE(Value("x", "scan_announce"), "True");
        QCOMPARE(Value("x", "scan_chance"), "0.7");
        PickItem("cboFPScanFracht", "False");
        QCOMPARE(Value("x", "scan_announce"), "False");
        QCOMPARE(Value("x", "scan_chance"), "0.0");
        QCOMPARE(Get<QLineEdit>("txtFPScan")->text(), QStringLiteral("0.0"));
    }

    void PickListsAddTwiceAndRemoveToAnEmptyFile() {
        auto* ships = Get<QListWidget>("lstFPShips");
        auto* add = Get<VantelButton>("VantelButton9");
        Get<QComboBox>("cboFPShips")->setEditText(QStringLiteral("not_in_the_catalogue"));
        add->click(); // no faction shown: nothing happens
        QCOMPARE(ships->count(), 0);
        Pick(1);
        add->click();
        add->click();
        const std::string shipFile = File("\\faction_prop\\Shiplist_x.lst");
        QCOMPARE(TempFolder::Read(shipFile),
                 "not_in_the_catalogue\r\nnot_in_the_catalogue\r\n\r\n");
        QCOMPARE(ships->count(), 2);

        Get<QComboBox>("cboFPFormation")->setEditText(QStringLiteral("ANY"));
        Get<VantelButton>("VantelButton12")->click(); // the second part is missing
        Get<QComboBox>("cboFPformation2")->setEditText(QStringLiteral("convoy1"));
        Get<VantelButton>("VantelButton12")->click();
        QCOMPARE(TempFolder::Read(File("\\faction_prop\\Formationlist_x.lst")),
                 "ANY, convoy1\r\n\r\n");

        DoubleClick(ships, 1);
        DoubleClick(ships, 0);
        QCOMPARE(ships->count(), 0);
        QCOMPARE(TempFolder::Read(shipFile), "\r\n");

        // Loading reads the lists back, whatever capitals their files carry.
        TempFolder::Write(File("\\faction_prop") + "/VOICELIST_x.LST", "walker\r\n   \r\n\r\n");
        Pick(0);
        Pick(1);
        QCOMPARE(ships->count(), 0);
        QCOMPARE(Items(Get<QListWidget>("lstFPVoice")), (QStringList{"walker", "   "}));
        QCOMPARE(Items(Get<QListWidget>("lstFPformation")), QStringList{"ANY, convoy1"});
        QCOMPARE(Get<QTabWidget>("SSTab2")->count(), 5);
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
        // The combos are named by their labels for screen readers.
        const char* const parts[][2] = {
            {"Combo1", "Head"}, {"Combo2", "Body"}, {"Combo3", "Accessory"}};
        for (const auto& [combo, label] : parts)
            QCOMPARE(QAccessible::queryAccessibleInterface(dialog->findChild<QComboBox*>(combo))
                         ->text(QAccessible::Name),
                     QString(label));
        auto* ok = dialog->findChild<VantelButton*>(QStringLiteral("VantelButton1"));
        auto* combo1 = dialog->findChild<QComboBox*>(QStringLiteral("Combo1"));
        QCOMPARE(combo1->itemText(0), QStringLiteral("benchmark_male_head"));
        QCOMPARE(combo1->currentText(), QString());
        QVERIFY(!ok->isEnabled());
        combo1->setEditText(QStringLiteral("li_captain_head"));
        dialog->findChild<QComboBox*>(QStringLiteral("Combo2"))
            ->setEditText(QStringLiteral("li_male_elite_body"));
        QVERIFY(!ok->isEnabled());
        auto* combo3 = dialog->findChild<QComboBox*>(QStringLiteral("Combo3"));
        combo3->setEditText(QStringLiteral("comm_br_elite"));
        QVERIFY(ok->isEnabled());
        combo3->setEditText(QString());
        QVERIFY(!ok->isEnabled());
        combo3->setEditText(QStringLiteral("comm_br_elite"));

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

    void FailedWritesAreShownNamingTheFile() {
        Pick(1);
        platform::DeleteFolderTree(File("\\faction_prop"));
        Get<QComboBox>("cboFPShips")->setEditText(QStringLiteral("li_n_cruiser_d22"));
        Get<VantelButton>("VantelButton9")->click();
        QCOMPARE(Get<QListWidget>("lstFPShips")->count(), 0);
        Get<QLineEdit>("txtFPlsd")->setText(QStringLiteral("x"));
        QCOMPARE(dialogs->shown.size(), std::size_t(2));
        QVERIFY(dialogs->shown[0].text.contains(QStringLiteral("Shiplist_x.lst")));
        QVERIFY(dialogs->shown[1].text.contains(QStringLiteral("grp.ini")));
        // A load into the missing folder reports once.
        Pick(0);
        QCOMPARE(dialogs->shown.size(), std::size_t(3));
    }

    void CompileWalksThePickerAndWritesTheProtocol() {
        page->ClearFactions();
        Get<VantelButton>("btnCompileFP")->click();
        QCOMPARE(TempFolder::Read(File("\\compiled\\faction_prop.ini")), "\r\n");
        page->AddFactions({{"a", "a", "0.0"}, {"b", "b", "0.0"}});
        Get<VantelButton>("btnCompileFP")->click();
        const std::string out = TempFolder::Read(File("\\compiled\\faction_prop.ini"));
        QVERIFY(out.starts_with("[FactionProps]\r\naffiliation = a\r\n"));
        QVERIFY(out.find("affiliation = b\r\n") != std::string::npos);
        QCOMPARE(Get<QProgressBar>("pgFP2")->value(), 2);
        const std::string protocol = TempFolder::Read(File("\\protocol\\protocol.txt"));
        QVERIFY(protocol.find("Faction_Prop.ini created...\r\n") != std::string::npos);
        QVERIFY(protocol.find("Faction_Prop.ini created...", protocol.find("created...") + 1) !=
                std::string::npos);
        QVERIFY(dialogs->shown.empty());
    }
};

QTEST_MAIN(FactionPropsPageTest)
#include "FactionPropsPage_test.moc"
