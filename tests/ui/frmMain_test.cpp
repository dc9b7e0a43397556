// The main window driven through its real widgets: project manager, registry panel,
// languages and the panel animations. Modal boxes are answered by ScriptedDialogs.
#include "core/modFunctions.h"
#include "ui/Captions.h"
#include "ui/MatrixPage.h"
#include "ui/Twips.h"
#include "ui/VantelButton.h"
#include "ui/support/FullDisk.h"
#include "ui/support/MainWindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRegularExpression>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

// The captions of both languages, written out here so that a wrong or swapped caption in the
// window's own table fails: control, page (of a tab strip), German, English.
struct LiteralCaption {
    const char* control;
    int page;
    const char* german;
    const char* english;
};
// clang-format off
constexpr LiteralCaption LiteralCaptions[] = {
    {"Label15", 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label16", 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label17", 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"Label19", 0, "Doppelklicken um den selektierten Eintrag zu entfernen.", "Doubleclick to remove selected entry."},
    {"SSTab1", 0, "Projektmanager", "Projectmanager"},
    {"VantelButton1", 0, "&Beenden", "&Exit"},
    {"VantelButton2", 0, "Englische Version", "German Version"},
    {"lbl_emphaty_object_destruction", 0, "Wertänderung bei zerstörtem Schiff dieser Fraktion", "Rep-change to this faction if you destroying a ship of them"},
    {"Label3", 0, "Gruppenname", "Groupname"},
    {"lbl_emphaty_rms", 0, "Wertänderung bei einer erfolgreich ausgeführten Zufalls-Mission", "Rep-change for a successed random-mission"},
    {"lbl_emphaty_rmf", 0, "Wertänderung bei fehlgeschlagener Zufalls-Mission", "Rep-change for failured random-mission"},
    {"lbl_emphaty_rma", 0, "Wertänderung bei abgebrochener Zufalls-Mission", "Rep-change for an aborted random-mission"},
    {"VantelButton4", 0, "Aktualisieren", "Refresh"},
    {"VantelButton5", 0, "Löschen", "Delete"},
    {"VantelButton6", 0, "Laden", "Load"},
    {"VantelButton7", 0, "Neu...", "New..."},
    {"Frame1", 0, "Projektmanager", "Projectmanager"},
    {"Frame2", 0, "Fraktionen bearbeiten", "Edit factions"},
    {"txtdateiname", 0, "Projektname", "Projectname"},
    {"Label1", 0, "Scroll-Tempo", "Scroll-speed"},
    {"Label4", 0, "Zwischen 'Projektexplorer' und 'Fraktionen bearbeiten' wechseln", "Switching between 'projectmanager' and 'edit factions'"},
    {"btnCreateXML", 0, "Generiere XML", "Generate XML"},
    {"btnCopyXML", 0, "Kopieren", "Copy"},
    {"btnSaveXML", 0, "Speichern unter...", "Save as..."},
    {"Check1", 0, "Header benutzen", "Use header"},
    {"Frame3", 0, "Header Einstellungen", "Header settings"},
    {"txtHeadModName", 0, "Name der Mod", "Name of your mod"},
    {"txtHeadModAutor", 0, "Autor", "Author"},
    {"txtHeadModDescr", 0, "Beschreibung der Mod", "Mod Description"},
    {"btnEmphatySave", 0, "INI erstellen", "Create INI"},
    {"btnnewfactiondel", 0, "&Löschen", "De&lete"},
    {"btnnewfactionnew", 0, "Neu/Speichern", "New/Save"},
    {"btnnewfactionreload", 0, "Neu einlesen", "Reload"},
    {"frmnewFaction", 0, "Eigenschaften", "Abilitys"},
    {"lblNoProject", 0, "Kein Projekt ausgewählt!", "No project selected!"},
    {"lblAktuellEmp", 0, "Aktuell", "Actually"},
    {"lblGesamtEmp", 0, "Gesamt", "Total"},
    {"lblEmphatyList", 0, "Es ist normal, das sich die aktive Fraktion auch in der Liste befindet", "It's normal that the active faction is registered"},
    {"btnImport", 0, "Importiere Original", "Import original"},
    {"btnImportAll", 0, "Alle importieren", "Import all"},
    {"VantelButton9", 0, "Neu", "Add"},
    {"VantelButton10", 0, "Neu", "Add"},
    {"VantelButton8", 0, "Neu...", "Add..."},
    {"VantelButton11", 0, "Neu", "Add"},
    {"VantelButton12", 0, "Neu", "Add"},
    {"SSTab2", 0, "Schiffe", "Ships"},
    {"SSTab2", 1, "Stimmen", "Voice"},
    {"SSTab2", 2, "Körper", "Bodyparts"},
    {"SSTab2", 3, "Scan", "Scaning for..."},
    {"SSTab2", 4, "Formationen", "Formations"},
    {"Label20", 0, "Vorname männlich (IDS)", "Firstname male (IDS)"},
    {"Label21", 0, "Vorname weiblich (IDS)", "Firstname female (IDS)"},
    {"Label22", 0, "Nachname (IDS)", "Lastname (IDS)"},
    {"Label29", 0, "Fracht scannen?", "Scan cargo?"},
    {"Label26", 0, "Gesamt", "Total"},
    {"VantelButton13", 0, "INI erstellen", "Create INI"},
    {"Label31", 0, "Aktuell", "Actually"},
    {"Label25", 0, "Gesamt", "Total"},
    {"btnCompileFP", 0, "INI erstellen", "Create INI"},
    {"lblFactions", 0, "Fraktionen gesamt:", "Factions total:"},
    {"SSTab1", 5, "Matrix", "Matrix"},
    {"optMatrixEmphaty", 0, "Sympathiewerte (Emphaty.ini)", "Empathy rates (Emphaty.ini)"},
    {"optMatrixInitialworld", 0, "Startreputationen (Initialworld.ini)", "Starting reputations (Initialworld.ini)"},
    {"lblMatrixGroup", 0, "Gruppe", "Group"},
    {"lblMatrixFilter", 0, "Nickname enthält", "Nickname contains"},
    {"lblMatrixHostile", 0, "-1 feindlich", "-1 hostile"},
    {"lblMatrixFriendly", 0, "+1 freundlich", "+1 friendly"},
    {"lblMatrixOutOfRange", 0, "außerhalb -1..1", "outside -1..1"},
    {"lblMatrixNotANumber", 0, "keine Zahl", "not a number"},
    {"lblMatrixMissing", 0, "nicht gespeichert", "not stored"},
    {"chkMatrixAsymmetric", 0, "Asymmetrische Paare hervorheben", "Highlight asymmetric pairs"},
    {"chkMatrixForceRep", 0, "Force-reputation", "Force-reputation"},
    {"btnMatrixCsv", 0, "CSV exportieren", "Export CSV"},
    {"btnMatrixPng", 0, "PNG exportieren", "Export PNG"},
    {"btnCheck", 0, "Prüfen", "Check"},
};
// clang-format on

} // namespace

class frmMainTest : public QObject, protected MainWindowFixture {
    Q_OBJECT

private:
    QTimer* Timer(const char* name) { return Get<QTimer>(name); }
    void Click(const char* button) { emit Get<VantelButton>(button)->Click(); }
    // Fires a timer's handler until the timer stops itself; returns the number of ticks.
    int RunTimer(const char* timer) {
        const QByteArray handler = QByteArray(timer) + "_Timer";
        int ticks = 0;
        while (Timer(timer)->isActive() && ticks < 10000) {
            // The handler belongs to the panel or animation that owns the timer.
            if (!QMetaObject::invokeMethod(Timer(timer)->parent(), handler.constData()))
                qFatal("no handler %s", handler.constData());
            ++ticks;
        }
        return ticks;
    }
    QStringList Projects() {
        QStringList names;
        for (int i = 0; i < Get<QListWidget>("lstProjects")->count(); ++i)
            names << Get<QListWidget>("lstProjects")->item(i)->text();
        return names;
    }
    void Select(const QString& project) {
        const auto found = Get<QListWidget>("lstProjects")->findItems(project, Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        Get<QListWidget>("lstProjects")->setCurrentItem(found.front());
    }
    std::string ProjectFile(const std::string& project, const std::string& piece) {
        return (*folder) / ("projects/" + project + "/" + piece);
    }
    void LoadProject(const std::string& name) {
        modFunctions::CreateProjectFolders(folder->path(), name);
        Click("VantelButton4");
        Select(QString::fromStdString(name));
        Click("VantelButton6");
    }
    QStringList Factions() {
        QStringList rows;
        auto* list = Get<QTreeWidget>("lv_newfactions");
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0) + "|" + list->topLevelItem(i)->text(1);
        return rows;
    }
    void ClickFaction(const QString& nickname) {
        auto* list = Get<QTreeWidget>("lv_newfactions");
        const auto found = list->findItems(nickname, Qt::MatchExactly, 0);
        QCOMPARE(found.size(), 1);
        list->setCurrentItem(found.front());
        emit list->itemClicked(found.front(), 0);
    }

    // What the menu that the keys open shows (its name, accessible name and items); it is
    // closed again. Empty when none opens.
    QStringList MenuOpenedBy(QWidget* widget, const QKeySequence& keys) {
        QStringList seen;
        QTimer poll;
        int tries = 0;
        connect(&poll, &QTimer::timeout, [&] {
            for (QWidget* top : QApplication::topLevelWidgets())
                if (auto* menu = qobject_cast<QMenu*>(top); menu && menu->isVisible()) {
                    seen << menu->objectName() << menu->accessibleName();
                    for (const QAction* action : menu->actions())
                        seen << action->text();
                    menu->close();
                    poll.stop();
                }
            if (++tries > 400)
                poll.stop();
        });
        poll.start(5);
        QTest::keySequence(widget, keys);
        return seen;
    }

private slots:
    void init() {
        NewFolder();
        fs::create_directory((*folder) / "projects");
        OpenWindow();
    }
    void cleanup() { CloseWindow(); }

    void StartsInGermanOnTheProjectManager() {
        QCOMPARE(window->windowTitle(), QString("Orrindel 2.0 beta 2 || Halvex"));
        QCOMPARE(Get<QTabWidget>("SSTab1")->currentIndex(), 0);
        QCOMPARE(Get<QTabWidget>("SSTab1")->count(), 6);
        QVERIFY(Get<VantelButton>("VantelButton3")->Bold());
        QVERIFY(!Get<VantelButton>("VantelButton2")->Bold());
        QVERIFY(!Get<QGroupBox>("Frame1")->isHidden());
        QVERIFY(Get<QGroupBox>("Frame2")->isHidden());
        QVERIFY(Get<QLineEdit>("txtdateiname")->isHidden());
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString());
        QCOMPARE(Get<QLabel>("Label4")->text(), QString("-->"));
        QCOMPARE(Get<QLineEdit>("txtZeit")->text(), QString("80"));
        QCOMPARE(Get<QSlider>("Slider1")->value(), 80);
        QVERIFY(!Get<VantelButton>("btnImport")->isEnabled());
        QVERIFY(!Get<VantelButton>("btnImportAll")->isEnabled());
        QVERIFY(Projects().isEmpty());
        for (const char* timer : {"Timer1", "Timer2", "Timer3", "Timer4", "Timer7"})
            QVERIFY(!Timer(timer)->isActive());
        QCOMPARE(Timer("Timer7")->interval(), 2000); // the notice's time on screen
    }

    void NameBoxOpensAndClosesIn44Ticks() {
        auto* box = Get<QLineEdit>("txtdateiname");
        QCOMPARE(twips::Width(box), 150);
        Click("VantelButton7");
        QVERIFY(Timer("Timer1")->isActive());
        QCOMPARE(RunTimer("Timer1"), 44);
        QCOMPARE(twips::Width(box), 1470);
        QVERIFY(!box->isHidden());
        Click("VantelButton7");
        QVERIFY(Timer("Timer2")->isActive());
        QCOMPARE(RunTimer("Timer2"), 44);
        QCOMPARE(twips::Width(box), 150);
        QVERIFY(box->isHidden());
    }

    void CreatingWithoutActiveProjectMakesTheTreeThenReportsTheProtocol() {
        Click("VantelButton7");
        RunTimer("Timer1");
        auto* box = Get<QLineEdit>("txtdateiname");
        box->setText("Alpha");
        QTest::keyClick(box, Qt::Key_Return);

        QVERIFY(fs::is_directory(ProjectFile("Alpha", "emphaty/new"))); // the tree is the core's
        QCOMPARE(Projects(), QStringList{"Alpha"});
        QCOMPARE(box->text(), QString("Alpha")); // Enter is swallowed, the text stays
        QVERIFY(Timer("Timer2")->isActive());    // and the box closes again
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QCOMPARE(dialogs->shown[0].icon, QMessageBox::Critical);
        QCOMPARE(dialogs->shown[0].title, QString("Orrindel 2.0 beta 2 || Halvex"));
        QVERIFY2(dialogs->shown[0].text.startsWith(
                     "An error occured during create your project.\r\nError 76: "),
                 qPrintable(dialogs->shown[0].text));
        QVERIFY(dialogs->shown[0].text.contains("protocol.txt"));
        QVERIFY(!fs::exists(ProjectFile("Alpha", "Protocol/protocol.txt")));

        // A second time: the folder exists, nothing changes.
        dialogs->shown.clear();
        fs::create_directory(ProjectFile("Alpha", "misc/keep"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown[0].text.startsWith(
            "An error occured during create your project.\r\nError 75: "));
        QVERIFY(fs::is_directory(ProjectFile("Alpha", "misc/keep")));

        // A name the file system cannot take is refused before anything is written.
        dialogs->shown.clear();
        box->setText("a/b");
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown[0].text.contains("a/b"));
        QCOMPARE(Projects(), QStringList{"Alpha"});
        QVERIFY(!fs::exists(ProjectFile("a", "")));
    }

    void EnterWithTheUntouchedBoxCreatesProjektname() {
        QTest::keyClick(Get<QLineEdit>("txtdateiname"), Qt::Key_Return);
        QCOMPARE(Projects(), QStringList{"Projektname"});
    }

    void LoadCreateIntoActiveProtocolAndDelete() {
        // Nothing selected: the notice and nothing else.
        Click("VantelButton6");
        QVERIFY(!Get<QLabel>("lblNoProject")->isHidden());
        QVERIFY(Timer("Timer7")->isActive());
        QVERIFY(session->ActiveProject.empty());
        RunTimer("Timer7");
        QVERIFY(Get<QLabel>("lblNoProject")->isHidden());
        Click("VantelButton5");
        QVERIFY(!Get<QLabel>("lblNoProject")->isHidden());

        QVERIFY(!Get<VantelButton>("btnImport")->isEnabled());
        LoadProject("Alpha");
        QVERIFY(Get<VantelButton>("btnImport")->isEnabled());
        QVERIFY(Get<VantelButton>("btnImportAll")->isEnabled());
        QCOMPARE(session->ActiveProject, std::string("Alpha"));
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString("Alpha"));
        QCOMPARE(session->ActiveProjectCaption(), std::string("Alpha"));
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("0"));
        QCOMPARE(Get<QLabel>("Label4")->text(), QString("<--"));
        QVERIFY(Timer("Timer3")->isActive());

        // Creating Beta while Alpha is active writes into Alpha's protocol.
        Get<QLineEdit>("txtdateiname")->setText("Beta");
        QTest::keyClick(Get<QLineEdit>("txtdateiname"), Qt::Key_Return);
        QVERIFY(dialogs->shown.empty());
        QCOMPARE(Projects(), (QStringList{"Alpha", "Beta"}));
        QVERIFY(!fs::exists(ProjectFile("Beta", "Protocol/protocol.txt")));
        const QString protocol =
            QString::fromStdString(TempFolder::Read(ProjectFile("Alpha", "Protocol/protocol.txt")));
        QVERIFY2(QRegularExpression("^\\S.*    .*\\S: Project created\\.\\r\\n\\r\\n$")
                     .match(protocol)
                     .hasMatch(),
                 qPrintable(protocol));

        // The protocol view shows the clicked project's file; an empty one without it.
        Select("Alpha");
        QVERIFY(Get<QTextEdit>("rtfLog")->toPlainText().contains(": Project created."));
        Select("Beta");
        QCOMPARE(Get<QTextEdit>("rtfLog")->toPlainText(), QString());

        // Deleting the active project empties ActiveProject, the label keeps the name.
        fs::permissions(ProjectFile("Alpha", "misc"),
                        fs::perms::owner_read | fs::perms::owner_exec);
        Select("Alpha");
        Click("VantelButton5");
        QVERIFY(!fs::exists(ProjectFile("Alpha", "")));
        QVERIFY(session->ActiveProject.empty());
        QVERIFY(!Get<VantelButton>("btnImportAll")->isEnabled());
        QCOMPARE(Get<QLabel>("lblActiveProject")->text(), QString("Alpha"));
        QCOMPARE(Projects(), QStringList{"Beta"});
    }

    void RegistryPanelNewSaveEditDeleteReload() {
        const std::string registry = ProjectFile("P", "misc/factions.ini");
        Get<QLineEdit>("txtNewNick")->setText("fc_a");
        Click("btnnewfactionnew"); // no project loaded: nothing
        QVERIFY(!fs::exists((*folder) / "projects/P"));

        LoadProject("P");
        Get<QLineEdit>("txtNewNick")->setText("fc_a");
        Get<QLineEdit>("txtNewDescr")->setText("Group A");
        Click("btnnewfactionnew");
        Get<QLineEdit>("txtNewNick")->setText("fc_b");
        Get<QLineEdit>("txtNewDescr")->setText("  ");
        Click("btnnewfactionnew");
        QCOMPARE(Get<QLineEdit>("txtNewDescr")->text(), QString("fc_b"));
        QCOMPARE(TempFolder::Read(registry),
                 std::string("[fc_a]\r\ngrp=Group A\r\n[fc_b]\r\ngrp=fc_b\r\n"));
        QCOMPARE(Factions(), (QStringList{"fc_a|Group A", "fc_b|fc_b"}));
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("2"));

        // Blank and refused nicknames write nothing; the refusal is told.
        Get<QLineEdit>("txtNewNick")->setText(" \t ");
        Click("btnnewfactionnew");
        Get<QLineEdit>("txtNewNick")->setText("bad/nick");
        Click("btnnewfactionnew");
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown[0].text.contains("bad/nick"));
        QCOMPARE(Factions().size(), 2);

        // Click-to-edit: the group changes in place, the order stays.
        ClickFaction("fc_a");
        QCOMPARE(Get<QLineEdit>("txtNewNick")->text(), QString("fc_a"));
        QCOMPARE(Get<QLineEdit>("txtNewDescr")->text(), QString("Group A"));
        Get<QLineEdit>("txtNewDescr")->setText("Group Z");
        Click("btnnewfactionnew");
        QCOMPARE(Factions(), (QStringList{"fc_a|Group Z", "fc_b|fc_b"}));

        // Delete: the two lines emptied, the faction's own files gone, others kept.
        TempFolder::Write(ProjectFile("P", "emphaty/new/reps_fc_a.facts"), "x");
        TempFolder::Write(ProjectFile("P", "faction_prop/Voicelist_fc_a.lst"), "x");
        TempFolder::Write(ProjectFile("P", "faction_prop/shiplist_fc_b.lst"), "x");
        ClickFaction("fc_a");
        Click("btnnewfactiondel");
        QCOMPARE(TempFolder::Read(registry), std::string("\r\n\r\n[fc_b]\r\ngrp=fc_b\r\n\r\n"));
        QVERIFY(!fs::exists(ProjectFile("P", "emphaty/new/reps_fc_a.facts")));
        QVERIFY(!fs::exists(ProjectFile("P", "faction_prop/Voicelist_fc_a.lst")));
        QVERIFY(fs::exists(ProjectFile("P", "faction_prop/shiplist_fc_b.lst")));
        QCOMPARE(Factions(), QStringList{"fc_b|fc_b"});
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("1"));
        Get<QTreeWidget>("lv_newfactions")->clearSelection();
        Click("btnnewfactiondel"); // nothing selected: nothing happens
        QCOMPARE(Factions(), QStringList{"fc_b|fc_b"});

        // Reload takes the file as it is now; a name unusable on disk is left out and told.
        TempFolder::Write(registry, "[one]\r\ngrp=G1\r\n [not]\r\n[t[w]o]\r\n[three]\r\ngrp=G3\r\n"
                                    "[../up]\r\ngrp=B\r\n");
        QCOMPARE(Factions(), QStringList{"fc_b|fc_b"});
        Click("btnnewfactionreload");
        QCOMPARE(Factions(), (QStringList{"one|G1", "two|[ERROR]", "three|G3"}));
        QCOMPARE(Get<QComboBox>("cboemphaty_group")->count(), 3);
        QCOMPARE(Get<QLabel>("lblFactionsGesamt")->text(), QString("3"));
        QCOMPARE(dialogs->shown.size(), std::size_t(2));
        QVERIFY(dialogs->shown[1].text.contains("../up"));

        // Failed writes are told with the file, for a save and for a delete.
        fs::remove_all(ProjectFile("P", "misc"));
        Get<QLineEdit>("txtNewNick")->setText("fc_c");
        Click("btnnewfactionnew");
        ClickFaction("one");
        Click("btnnewfactiondel");
        QCOMPARE(dialogs->shown.size(), std::size_t(4));
        QCOMPARE(dialogs->shown[2].icon, QMessageBox::Critical);
        QVERIFY2(dialogs->shown[2].text.contains("factions.ini"),
                 qPrintable(dialogs->shown[2].text));
        QVERIFY2(dialogs->shown[3].text.contains("factions.ini"),
                 qPrintable(dialogs->shown[3].text));
        QVERIFY(window->isVisible());
    }

    // The registry list's menu: F2, the Menu key and Shift+F10 reach it; a rename or a copy
    // reloads every list and selects the faction; a refusal is told and changes nothing.
    void FactionMenuRenamesAndDuplicatesAndEveryListFollows() {
        LoadProject("P");
        const std::string registry = ProjectFile("P", "misc/factions.ini");
        const std::string rates = ProjectFile("P", "emphaty/new/reps_fc_b_grp.facts");
        TempFolder::Write(registry, "[li_n_grp]\r\ngrp=Liberty\r\n[fc_b_grp]\r\ngrp=fc_b_grp\r\n");
        TempFolder::Write(rates, "[li_n_grp]\r\nrep=-0.7\r\n");
        Click("btnnewfactionreload");
        RunTimer("Timer3");
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        auto* list = Get<QTreeWidget>("lv_newfactions");
        list->setFocus();
        list->clearSelection();
        QTest::keyClick(list, Qt::Key_F2); // nothing selected: nothing asked
        QVERIFY(dialogs->asked.empty());

        ClickFaction("li_n_grp");
        dialogs->Answer("li_x_grp");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->asked.size(), std::size_t(1));
        QCOMPARE(dialogs->asked[0].prompt, QString("Neuer Nickname der Fraktion:"));
        QCOMPARE(dialogs->asked[0].title, QString("Umbenennen"));
        QCOMPARE(dialogs->asked[0].defaultText, QString("li_n_grp"));
        QCOMPARE(Factions(), (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_x_grp"));
        QCOMPARE(Get<QComboBox>("cboInit_group")->itemText(0), QString("li_x_grp"));
        QCOMPARE(TempFolder::Read(rates), std::string("[li_x_grp]\r\nrep=-0.7\r\n"));

        // The menu by keyboard, named for the faction it acts on.
        for (const QKeySequence& keys : {QKeySequence(Qt::Key_Menu), QKeySequence("Shift+F10")}) {
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window.get()));
            list->setFocus();
            QCOMPARE(MenuOpenedBy(list, keys),
                     (QStringList{"mnuFaction", "li_x_grp", "Umbenennen...", "Duplizieren..."}));
        }

        // Duplicate without relations; a cancelled question changes nothing.
        auto* duplicate = window->findChild<QAction*>("mnuDuplicateFaction");
        dialogs->Answer("li_d_grp");
        duplicate->trigger();
        dialogs->Answer("li_c_grp");
        dialogs->AnswerQuestion(QMessageBox::No);
        duplicate->trigger();
        QCOMPARE(dialogs->questions.size(), std::size_t(2));
        QVERIFY(dialogs->questions[1].text.startsWith("Sollen die anderen Fraktionen"));
        QCOMPARE(Factions(),
                 (QStringList{"li_x_grp|Liberty", "fc_b_grp|fc_b_grp", "li_c_grp|Liberty"}));
        QCOMPARE(list->currentItem()->text(0), QString("li_c_grp"));
        QCOMPARE(Get<QComboBox>("cboemphaty_group")->count(), 3);
        QCOMPARE(TempFolder::Read(rates), std::string("[li_x_grp]\r\nrep=-0.7\r\n"));
        // With relations the third faction's rate follows.
        ClickFaction("li_x_grp");
        dialogs->Answer("li_r_grp");
        dialogs->AnswerQuestion(QMessageBox::Yes);
        duplicate->trigger();
        QCOMPARE(TempFolder::Read(rates),
                 std::string("[li_x_grp]\r\nrep=-0.7\r\n[li_r_grp]\r\nrep=-0.7\r\n"));

        // A refusal is told, with its reason, and the registry stays.
        const std::string before = TempFolder::Read(registry);
        ClickFaction("fc_b_grp");
        dialogs->Answer("LI_X_GRP");
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY2(dialogs->shown[0].text.contains("registered already"),
                 qPrintable(dialogs->shown[0].text));
        QCOMPARE(TempFolder::Read(registry), before);

        Click("VantelButton2"); // English
        QCOMPARE(window->findChild<QAction*>("mnuRenameFaction")->text(), QString("Rename..."));
    }

    void ProjectFoldersAreListedFromUtf8AndOthersLeftOutAndTold() {
        fs::create_directory((*folder) / "projects/Gr\xC3\xB6\xC3\x9F"
                                         "e"); // made by hand
        fs::create_directory((*folder) / "projects/Gr\xF6\xDF"
                                         "e 1252");
        QVERIFY(Projects().isEmpty()); // shown only after Refresh
        Click("VantelButton4");
        QCOMPARE(Projects(), QStringList{QString::fromUtf8("Gr\xC3\xB6\xC3\x9F"
                                                           "e")});
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        const QString told = dialogs->shown.front().text;
        QVERIFY2(
            told.contains(QString::fromStdString("Gr??e 1252\" in " + folder->path() +
                                                 "/projects is left out: the name is not UTF-8")),
            qPrintable(told));
    }

    void SlidesTakeTheComputedTicks() {
        auto* frame1 = Get<QGroupBox>("Frame1");
        auto* frame2 = Get<QGroupBox>("Frame2");
        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton); // no project: nothing
        QVERIFY(!Timer("Timer3")->isActive());
        QCOMPARE(Get<QLabel>("Label4")->text(), QString("-->"));

        LoadProject("P");
        QCOMPARE(RunTimer("Timer3"), 122);
        QVERIFY(frame1->isHidden());
        QCOMPARE(twips::Width(frame1), 80);
        QVERIFY(!frame2->isHidden());
        QCOMPARE(twips::Left(frame2), 200);
        QCOMPARE(twips::Width(frame2), 9775);

        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
        QCOMPARE(Get<QLabel>("Label4")->text(), QString("-->"));
        QCOMPARE(RunTimer("Timer4"), 122);
        QVERIFY(!frame1->isHidden());
        QVERIFY(frame2->isHidden());
        QCOMPARE(QList<int>({twips::Left(frame1), twips::Top(frame1), twips::Width(frame1),
                             twips::Height(frame1)}),
                 QList<int>({120, 1080, 9840, 4215}));
        QCOMPARE(QList<int>({twips::Left(frame2), twips::Top(frame2), twips::Width(frame2),
                             twips::Height(frame2)}),
                 QList<int>({9960, 1080, 15, 4215}));
        QCOMPARE(frame1->geometry().right() + 1, frame2->geometry().left());

        // The step is the slider's: sliding back with a smaller step than the way out
        // overshoots, 80 + 140 * 70.
        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
        RunTimer("Timer3");
        QCOMPARE(twips::Width(frame1), 80);
        Get<QSlider>("Slider1")->setValue(70);
        QCOMPARE(Get<QLineEdit>("txtZeit")->text(), QString("70"));
        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
        QCOMPARE(RunTimer("Timer4"), 140);
        QCOMPARE(twips::Width(frame1), 9880);

        // A step that is not a number leaves the frames where they are, the timer runs on.
        Get<QLineEdit>("txtZeit")->setText("fast");
        QTest::mouseClick(Get<QLabel>("Label4"), Qt::LeftButton);
        QVERIFY(QMetaObject::invokeMethod(Timer("Timer3")->parent(), "Timer3_Timer"));
        QVERIFY(Timer("Timer3")->isActive());
        QCOMPARE(twips::Width(frame1), 9880);
    }

    // Every row of the captions table, each control present exactly once in the window;
    // the import dialog, another window, keeps its own captions.
    // A message that has both languages follows the window's.
    void MessagesFollowTheWindowsLanguage() {
        auto* matrix = window->findChild<MatrixPage*>();
        FullDisk full;
        const std::pair<void (frmMain::*)(), const char*> cases[] = {
            {&frmMain::English, "Could not write "},
            {&frmMain::German, " konnte nicht geschrieben werden: "},
        };
        for (const auto& [language, words] : cases) {
            (window.get()->*language)();
            dialogs->shown.clear();
            QVERIFY(!matrix->ExportCsvTo(QString::fromStdString(*folder / "m.csv"), full));
            QVERIFY2(dialogs->shown.at(0).text.contains(words), words);
        }
    }

    void LanguageRoundTripOverTheCaptionsTable() {
        const auto read = [](QWidget* widget, const captions::Row& row) -> QString {
            switch (row.what) {
            case captions::Setting::ToolTipText:
                return widget->toolTip();
            case captions::Setting::Text:
                return widget->property("text").toString();
            case captions::Setting::PageCaption: {
                auto* tabs = qobject_cast<QTabWidget*>(widget);
                return tabs && row.page < tabs->count() ? tabs->tabText(row.page)
                                                        : QString("<no page>");
            }
            case captions::Setting::ColumnCaption: // the main window's table holds none
                return QString("<column>");
            case captions::Setting::Question:
                return widget->property("question").toString();
            case captions::Setting::Caption:
                if (auto* button = qobject_cast<VantelButton*>(widget))
                    return button->Caption();
                if (auto* frame = qobject_cast<QGroupBox*>(widget))
                    return frame->title();
                return widget->property("text").toString();
            }
            return {};
        };
        const auto literal = [](const captions::Row& row) -> const LiteralCaption* {
            for (const LiteralCaption& caption : LiteralCaptions)
                if (caption.control == QByteArray(row.control) && caption.page == row.page)
                    return &caption;
            return nullptr;
        };
        const auto check = [&](captions::Language language, bool firstCaptions) {
            int checked = 0;
            int literals = 0;
            for (const captions::Row& row : captions::Table()) {
                QList<QWidget*> widgets;
                for (QWidget* widget :
                     window->findChildren<QWidget*>(QString::fromLatin1(row.control)))
                    if (widget->window() == window.get())
                        widgets << widget;
                // A row of a menu's action: its text, tool tip or question.
                const auto actions =
                    window->findChildren<QAction*>(QString::fromLatin1(row.control));
                if (widgets.isEmpty() && actions.size() == 1) {
                    const QAction* action = actions.front();
                    const QString shown = row.what == captions::Setting::Caption ? action->text()
                                          : row.what == captions::Setting::ToolTipText
                                              ? action->toolTip()
                                              : action->property("question").toString();
                    QCOMPARE(shown, QString::fromUtf8(language == captions::Language::German
                                                          ? row.german
                                                          : row.english));
                    ++checked;
                    continue;
                }
                QVERIFY2(widgets.size() == 1, row.control);
                for (QWidget* widget : widgets) {
                    // The texts written out above; a row they do not list is only checked
                    // for being there.
                    const LiteralCaption* written = literal(row);
                    QString expected = QString::fromUtf8(
                        language == captions::Language::German ? row.german : row.english);
                    if (written) {
                        expected = QString::fromUtf8(language == captions::Language::German
                                                         ? written->german
                                                         : written->english);
                        ++literals;
                    }
                    if (firstCaptions && row.control == QByteArray("Label3"))
                        expected = "Gruppenname:";
                    if (firstCaptions && row.control == QByteArray("SSTab2") && row.page == 4)
                        expected = "Formation";
                    const QString where = QString("%1 page %2").arg(row.control).arg(row.page);
                    QVERIFY2(read(widget, row) == expected,
                             qPrintable(where + ": " + read(widget, row) + " != " + expected));
                    ++checked;
                }
            }
            QCOMPARE(checked, qsizetype(captions::Table().size()));
            QCOMPARE(literals, int(std::size(LiteralCaptions))); // none missing from the table
        };

        check(captions::Language::German, true);
        // Labelled controls take their accessible names from their labels.
        const auto name = [this](const char* control) {
            return QAccessible::queryAccessibleInterface(Get<QWidget>(control))
                ->text(QAccessible::Name);
        };
        QCOMPARE(name("Slider1"), QString("Scroll-Tempo"));
        QCOMPARE(name("rtfLog"), QString("Log:"));
        QCOMPARE(name("txtNewNick"), QString("Nickname"));
        QCOMPARE(name("txtNewDescr"), QString("Description"));
        fs::create_directories((*folder) / "data/emphaty/original_factions");
        LoadProject("P");
        Click("btnImport");
        auto* import = window->findChild<QDialog*>("frmImport");
        QVERIFY(import && import->isVisible());
        const auto importCaptions = [import] {
            QStringList shown;
            for (const VantelButton* button : import->findChildren<VantelButton*>())
                shown << button->Caption();
            return shown;
        };
        const QStringList ownCaptions = importCaptions();
        Click("VantelButton7");
        RunTimer("Timer1");
        Get<QLineEdit>("txtdateiname")->setText("half-typed");
        Click("VantelButton2");
        check(captions::Language::English, false);
        QCOMPARE(Get<QLineEdit>("txtdateiname")->text(), QString("Projectname"));
        QCOMPARE(Get<QTabWidget>("SSTab1")->tabText(1), QString("Emphaty.ini"));
        QCOMPARE(importCaptions(), ownCaptions);
        QCOMPARE(name("Slider1"), QString("Scroll-speed"));
        Click("VantelButton2");
        check(captions::Language::German, false);
        QCOMPARE(Get<VantelButton>("VantelButton2")->Caption(), QString("Englische Version"));
        QCOMPARE(Get<VantelButton>("VantelButton3")->Caption(), QString("?"));
        QCOMPARE(Get<QTabWidget>("SSTab1")->tabText(4), QString("XML-Script"));
    }

    // "?" twice leaves one About window; closed, it opens again.
    void AboutOpensOnceWithoutOwnerAndClosesByItsLabel() {
        QWidget* about = nullptr;
        const auto abouts = [&about] {
            int count = 0;
            for (QWidget* top : QApplication::topLevelWidgets())
                if (top->objectName() == "frmAbout" && top->isVisible()) {
                    about = top;
                    ++count;
                }
            return count;
        };
        Click("VantelButton3");
        Click("VantelButton3");
        QCOMPARE(abouts(), 1);
        QCOMPARE(about->parentWidget(), nullptr);
        QCOMPARE(about->windowTitle(), QString("Orrindel 2.0 || Halvex"));
        auto* tabs = about->findChild<QTabWidget*>();
        QCOMPARE(tabs->tabText(0), QString("Creating a Faction"));
        QCOMPARE(tabs->tabText(1), QString("Special Thanks"));
        QPointer<QWidget> guard(about);
        QTest::mouseClick(about->findChild<QLabel*>("Label1"), Qt::LeftButton);
        QTRY_VERIFY(guard.isNull());
        QVERIFY(window->isVisible());
        QCOMPARE(Get<QLabel>("Label1")->text(), QString("Scroll-Tempo"));
        Click("VantelButton3");
        QCOMPARE(abouts(), 1);
        about->close();
    }
};

QTEST_MAIN(frmMainTest)
#include "frmMain_test.moc"
