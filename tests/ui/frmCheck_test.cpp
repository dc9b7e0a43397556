// SPDX-License-Identifier: GPL-3.0-or-later
// The check button of the registry panel, the findings window and the way back from a
// finding to the page and faction it is about, driven through the main window.
#include "core/modFunctions.h"
#include "ui/CheckAction.h"
#include "ui/VantelButton.h"
#include "ui/frmCheck.h"
#include "ui/support/MainWindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
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

    void FindingsComeErrorsFirstAndAreFilteredBySeverity() {
        frmCheck* findings = RunCheck();
        QVERIFY(findings && findings->isVisible());
        QCOMPARE(findings->windowTitle(), QString("P"));
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
    }

    // A double-click shows the page the finding is about, with its faction chosen.
    void DoubleClickOpensThePageAndFaction() {
        Write("misc/factions.ini", "[a_grp]\r\ngrp=A\r\n[b_grp]\r\n");
        emit Get<VantelButton>("btnnewfactionreload")->Click();
        frmCheck* findings = RunCheck();
        const struct {
            const char *faction, *file, *where;
            const char *control, *shown; // on the page shown, and what it shows
        } cases[] = {
            {"b_grp", "emphaty\\new\\grp.ini", "[b_grp] o_d", "Combo1", "0,5"},
            {"a_grp", "faction_prop\\Shiplist_a_grp.lst", "line 1", "cboFP_group", "a_grp"},
            {"b_grp", "initialworld\\grp.ini", "[b_grp]", "cboInit_group", "b_grp"}, // no entry
            {"b_grp", "misc\\factions.ini", "[b_grp] grp", "txtNewDescr", "[ERROR]"},
        };
        for (const auto& c : cases) {
            DoubleClick(findings, c.faction, c.file, c.where);
            QWidget* control = Get<QWidget>(c.control);
            QVERIFY2(Get<QTabWidget>("SSTab1")->currentWidget()->isAncestorOf(control), c.where);
            const auto* combo = qobject_cast<QComboBox*>(control);
            QCOMPARE(combo ? combo->currentText() : control->property("text").toString(),
                     QString(c.shown));
        }
        QCOMPARE(Get<QListWidget>("lstFPShips")->item(0)->text(), QString("my_own_ship"));
    }
};

QTEST_MAIN(frmCheckTest)
#include "frmCheck_test.moc"
