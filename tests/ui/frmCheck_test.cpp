// The check button of the registry panel, the findings window and the way back from a
// finding to the page and faction it is about, driven through the main window.
#include "core/modFunctions.h"
#include "ui/CheckAction.h"
#include "ui/VantelButton.h"
#include "ui/frmCheck.h"
#include "ui/support/MainWindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

class frmCheckTest : public QObject, protected MainWindowFixture {
    Q_OBJECT

private:
    void Write(const std::string& piece, std::string_view bytes) {
        TempFolder::Write((*folder) / ("projects/P/" + piece), bytes);
    }
    frmCheck* RunCheck() {
        emit Get<VantelButton>("btnCheck")->Click();
        return Get<CheckAction>("checkAction")->FindingsWindow();
    }
    // The table's rows as "severity|faction|where", top to bottom, hidden rows left out.
    static QStringList Rows(frmCheck* findings) {
        QStringList rows;
        auto* table = findings->findChild<QTreeWidget*>(QStringLiteral("lvFindings"));
        for (int i = 0; i < table->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* item = table->topLevelItem(i);
            if (!item->isHidden())
                rows << item->text(0) + "|" + item->text(1) + "|" + item->text(3);
        }
        return rows;
    }
    void DoubleClick(frmCheck* findings, const QString& faction, const QString& file,
                     const QString& where) {
        auto* table = findings->findChild<QTreeWidget*>(QStringLiteral("lvFindings"));
        for (int i = 0; i < table->topLevelItemCount(); ++i) {
            QTreeWidgetItem* item = table->topLevelItem(i);
            if (item->text(1) == faction && item->text(2) == file && item->text(3) == where) {
                table->setCurrentItem(item);
                emit table->itemDoubleClicked(item, 0);
                return;
            }
        }
        QFAIL(qPrintable("no finding " + faction + " " + where));
    }

private slots:
    void init() {
        NewFolder();
        modFunctions::EnsureProjectsFolder(folder->path());
        modFunctions::CreateProjectFolders(folder->path(), "P");
        // Two factions; b_grp's event value has a comma, a_grp's ship list a ship of its own.
        Write("misc/factions.ini", "[a_grp]\r\ngrp=A\r\n[b_grp]\r\ngrp=B\r\n");
        Write("emphaty/new/grp.ini", "[a_grp]\r\no_d=0.1\r\n[b_grp]\r\no_d=0,5\r\n");
        Write("faction_prop/Shiplist_a_grp.lst", "my_own_ship\r\n\r\n");
        OpenWindow();
        emit Get<VantelButton>("VantelButton4")->Click();
        Get<QListWidget>("lstProjects")->setCurrentRow(0);
        emit Get<VantelButton>("VantelButton6")->Click();
    }
    void cleanup() { CloseWindow(); }

    static QStringList Headings(frmCheck* findings) {
        const auto* table = findings->findChild<QTreeWidget*>(QStringLiteral("lvFindings"));
        QStringList headings;
        for (int column = 0; column < table->columnCount(); ++column)
            headings << table->headerItem()->text(column);
        return headings;
    }

    void FindingsAreSortedAndFilteredBySeverity() {
        frmCheck* findings = RunCheck();
        QVERIFY(findings && findings->isVisible());
        QCOMPARE(findings->windowTitle(), QString("P"));
        QCOMPARE(Control<QCheckBox>(findings, "chkCheckNotes")->text(), QString("Hinweise"));
        QCOMPARE(Headings(findings),
                 QStringList({"Schwere", "Fraktion", "Datei", "Stelle", "Gespeichert", "Befund"}));
        const QStringList rows = Rows(findings);
        QCOMPARE(rows.size(), qsizetype(findings->Findings().size()));
        QCOMPARE(rows.front(), QString("error|b_grp|[b_grp] o_d"));
        QVERIFY(rows.contains("warning|a_grp|line 1"));
        QVERIFY(rows.back().startsWith("warning|"));

        Control<QCheckBox>(findings, "chkCheckWarnings")->setChecked(false);
        QCOMPARE(Rows(findings), QStringList{"error|b_grp|[b_grp] o_d"});
        Control<QCheckBox>(findings, "chkCheckWarnings")->setChecked(true);
        Control<QCheckBox>(findings, "chkCheckErrors")->setChecked(false);
        QCOMPARE(Rows(findings).size(), rows.size() - 1);

        auto* table = findings->findChild<QTreeWidget*>(QStringLiteral("lvFindings"));
        table->sortByColumn(0, Qt::DescendingOrder);
        QVERIFY(Rows(findings).front().startsWith("warning|"));
        table->sortByColumn(1, Qt::AscendingOrder);
        QVERIFY(Rows(findings).front().contains("|a_grp|"));

        // Checking again replaces the window; in English its captions are English.
        emit Get<VantelButton>("VantelButton2")->Click();
        frmCheck* again = RunCheck();
        QVERIFY(again != nullptr);
        QCOMPARE(Control<QCheckBox>(again, "chkCheckNotes")->text(), QString("Notes"));
        QCOMPARE(Control<QLabel>(again, "lblCheckHint")->text(),
                 QString("Double-click opens the page of the faction."));
        QCOMPARE(Headings(again),
                 QStringList({"Severity", "Faction", "File", "Where", "Stored", "Message"}));
        QCOMPARE(Rows(again).size(), rows.size());
    }

    void DoubleClickOpensThePageAndFaction() {
        frmCheck* findings = RunCheck();
        auto* SSTab1 = Get<QTabWidget>("SSTab1");

        DoubleClick(findings, "b_grp", "emphaty\\new\\grp.ini", "[b_grp] o_d");
        QCOMPARE(SSTab1->currentWidget()->isAncestorOf(Get<QWidget>("cboemphaty_group")), true);
        QCOMPARE(Get<QComboBox>("cboemphaty_group")->currentText(), QString("b_grp"));
        QCOMPARE(Get<QComboBox>("Combo1")->currentText(), QString("0,5")); // the faction loaded

        DoubleClick(findings, "a_grp", "faction_prop\\Shiplist_a_grp.lst", "line 1");
        QCOMPARE(SSTab1->currentWidget()->isAncestorOf(Get<QWidget>("cboFP_group")), true);
        QCOMPARE(Get<QComboBox>("cboFP_group")->currentText(), QString("a_grp"));
        QCOMPARE(Get<QTabWidget>("SSTab2")->currentIndex(), 0); // the ships' tab
        QCOMPARE(Get<QListWidget>("lstFPShips")->item(0)->text(), QString("my_own_ship"));

        DoubleClick(findings, "b_grp", "initialworld\\grp.ini", "[b_grp]"); // no entry there
        QCOMPARE(SSTab1->currentWidget()->isAncestorOf(Get<QWidget>("cboInit_group")), true);
        QCOMPARE(Get<QComboBox>("cboInit_group")->currentText(), QString("b_grp"));
    }

    void RegistryFindingsSelectTheRegistryEntry() {
        Write("misc/factions.ini", "[a_grp]\r\ngrp=A\r\n[b_grp]\r\n");
        emit Get<VantelButton>("btnnewfactionreload")->Click();
        frmCheck* findings = RunCheck();
        Get<QTabWidget>("SSTab1")->setCurrentIndex(1);
        DoubleClick(findings, "b_grp", "misc\\factions.ini", "[b_grp] grp");
        QCOMPARE(Get<QTabWidget>("SSTab1")->currentIndex(), 0);
        QCOMPARE(Get<QLineEdit>("txtNewNick")->text(), QString("b_grp"));
        QCOMPARE(Get<QLineEdit>("txtNewDescr")->text(), QString("[ERROR]"));
    }
};

QTEST_MAIN(frmCheckTest)
#include "frmCheck_test.moc"
