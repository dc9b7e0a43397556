// SPDX-License-Identifier: GPL-3.0-or-later
// The matrix page against real project folders: what it shows, that its edits leave on disk
// exactly what the one-faction pages' edits leave, and that an edit shows at once what a
// reload would show, the mirrored cell included.
#include "core/modFunctions.h"
#include "support/PageFixture.h"
#include "ui/InitialWorldPage.h"
#include "ui/MatrixModel.h"
#include "ui/MatrixPage.h"
#include "ui/ReputationPage.h"
#include "ui/Session.h"

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

class MatrixPageTest : public QObject, protected PageFixture<MatrixPage> {
    Q_OBJECT

private:
    // Three factions and both stores partly filled, in a made project.
    void FillProject(const std::string& name) {
        modFunctions::SaveFaction(folder->path(), name, "A", "Alpha");
        modFunctions::SaveFaction(folder->path(), name, "B", "Beta");
        modFunctions::SaveFaction(folder->path(), name,
                                  "K\xE4"
                                  "fer",
                                  "Alpha");
        const std::string at = *folder / ("projects/" + name + "/");
        TempFolder::Write(at + "emphaty/new/reps_A.facts",
                          "[A]\r\nrep=1.5\r\n[B]\r\nrep=-0.5\r\n[K\xE4"
                          "fer]\r\nrep=friendly\r\n");
        TempFolder::Write(at + "emphaty/new/reps_B.facts", "[A]\r\nrep=0.3\r\n[K\xE4"
                                                           "fer]\r\nrep=a/20&\\b\r\n");
        TempFolder::Write(at + "initialworld/grp.ini",
                          "[A]\r\nids_name=1\r\nB=0.9\r\n[B]\r\nA=-1\r\n");
    }
    std::vector<modFunctions::RegistryEntry> Registry(const std::string& name) {
        return modFunctions::LoadRegistry(modFunctions::RegistryPath(folder->path(), name));
    }
    // Every file of a project's two stores, by its path in the project.
    std::map<std::string, std::string> Stores(const std::string& name) {
        std::map<std::string, std::string> files;
        for (const char* store : {"emphaty/new", "initialworld"})
            for (const auto& entry :
                 fs::directory_iterator(*folder / ("projects/" + name + "/" + store)))
                if (entry.is_regular_file())
                    files[std::string(store) + "/" + entry.path().filename().string()] =
                        TempFolder::Read(entry.path().string());
        return files;
    }
    QTableView* Grid() { return Get<QTableView>("grdMatrix"); }
    MatrixModel* Model() { return qobject_cast<MatrixModel*>(Grid()->model()); }
    QString Cell(int row, int column) {
        return Model()->data(Model()->index(row, column), Qt::DisplayRole).toString();
    }
    // Every cell as shown, row by row.
    QStringList Cells() {
        QStringList cells;
        for (int r = 0; r < Model()->rowCount(); ++r)
            for (int c = 0; c < Model()->columnCount(); ++c)
                cells << Cell(r, c);
        return cells;
    }
    // Whether the view was told to repaint the cell.
    static bool Covers(const QSignalSpy& changes, int row, int column) {
        for (const QList<QVariant>& change : changes) {
            const auto from = change[0].toModelIndex(), to = change[1].toModelIndex();
            if (from.row() <= row && row <= to.row() && from.column() <= column &&
                column <= to.column())
                return true;
        }
        return false;
    }
    QStringList Heads() {
        QStringList heads;
        for (int i = 0; i < Model()->columnCount(); ++i)
            heads << Model()->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
        return heads;
    }

private slots:
    void init() {
        OpenPage("Grid");
        FillProject("Grid");
        page->AddFactions(Registry("Grid"));
        page->resize(800, 500);
        page->show(); // reads the store
    }

    void cleanup() { ClosePage(); }

    void cellsShowTheStoresAndTheFilterNarrowsRowsAndColumns() {
        QCOMPARE(Heads(), (QStringList{"A", "B", "Käfer"}));
        QCOMPARE((QStringList{Cell(0, 0), Cell(0, 1), Cell(0, 2), Cell(1, 0), Cell(1, 1),
                              Cell(1, 2), Cell(2, 0)}),
                 (QStringList{"1.5", "-0.5", "friendly", "0.3", "", "a\u21B5b", ""}));
        const QString tip = Model()->data(Model()->index(0, 1), Qt::ToolTipRole).toString();
        QCOMPARE(tip, QString("A \u2192 B: -0.5\nB \u2192 A: 0.3"));
        // Asymmetric pairs are marked only while the toggle is on (which pairs is the core's).
        QVERIFY(!Model()->CellAt(0, 1).asymmetric);
        Get<QCheckBox>("chkMatrixAsymmetric")->click();
        QVERIFY(Model()->CellAt(0, 1).asymmetric);

        // A screen reader reads each cell's value with both nicknames.
        QAccessibleInterface* table = QAccessible::queryAccessibleInterface(Grid());
        QVERIFY(table && table->tableInterface());
        QCOMPARE(table->tableInterface()->cellAt(1, 0)->text(QAccessible::Name),
                 QString("B \u2192 A: 0.3"));

        Get<QRadioButton>("optMatrixInitialworld")->click();
        QCOMPARE((QStringList{Cell(0, 1), Cell(1, 0), Cell(0, 0), Cell(2, 0)}),
                 (QStringList{"0.9", "-1", "", ""}));

        auto* group = Get<QComboBox>("cboMatrixGroup");
        QCOMPARE(group->count(), 3); // every group, Alpha, Beta
        group->setCurrentIndex(1);
        emit group->activated(1);
        QCOMPARE(Heads(), (QStringList{"A", "Käfer"}));
        QCOMPARE(Model()->rowCount(), 2);
        Get<QLineEdit>("txtMatrixFilter")->setText("KÄ");
        QCOMPARE(Heads(), (QStringList{"Käfer"}));
        // A registry reload keeps the chosen group.
        page->ClearFactions();
        page->AddFactions(Registry("Grid"));
        QCOMPARE(group->currentText(), QString("Alpha"));
    }

    void editsWriteTheBytesOfTheOwningPagesEdit() {
        // The same edits through the one-faction pages into a twin project.
        modFunctions::CreateProjectFolders(folder->path(), "Page");
        FillProject("Page");
        Session pageSession;
        pageSession.appDir = session->appDir;
        pageSession.ActiveProject = "Page";
        pageSession.SetActiveProjectCaption("Page");
        ScriptedDialogs pageDialogs;
        ReputationPage reputation(pageSession, pageDialogs);
        InitialWorldPage world(pageSession, pageDialogs);
        reputation.AddFactions(Registry("Page"));
        world.AddFactions(Registry("Page"));

        struct Edit {
            bool initialWorld;
            int g, s;
            const char* value;
            bool mirror;
        };
        const Edit edits[] = {{false, 2, 0, "-0.7", true}, {false, 1, 2, "0.25", false},
                              {false, 0, 0, "x y", true},  {true, 0, 2, "0.4", true},
                              {true, 2, 1, "-0.1", false}, {true, 1, 1, "1", true}};
        for (const Edit& edit : edits) {
            const char* picker = edit.initialWorld ? "cboInit_group" : "cboemphaty_group";
            const char* list = edit.initialWorld ? "lv_Init" : "lv_emphaty";
            const char* force = edit.initialWorld ? "chkForceRep2" : "chkForceREP";
            QWidget& owner = edit.initialWorld ? static_cast<QWidget&>(world) : reputation;
            owner.findChild<QCheckBox*>(force)->setChecked(edit.mirror);
            auto* combo = owner.findChild<QComboBox*>(picker);
            combo->setCurrentIndex(edit.g);
            emit combo->activated(edit.g);
            auto* rows = owner.findChild<QTreeWidget*>(list);
            rows->setCurrentItem(rows->topLevelItem(edit.s));
            // Choosing a faction stores its shown values again; both edits start from that.
            for (const auto& [file, bytes] : Stores("Page"))
                TempFolder::Write(*folder / ("projects/Grid/" + file), bytes);
            pageDialogs.Answer(edit.value);
            emit rows->itemDoubleClicked(rows->topLevelItem(edit.s), 0);

            Get<QRadioButton>(edit.initialWorld ? "optMatrixInitialworld" : "optMatrixEmphaty")
                ->click();
            Get<QCheckBox>("chkMatrixForceRep")->setChecked(edit.mirror);
            page->Reload(); // the stores as the page left them
            dialogs->Answer(edit.value);
            QSignalSpy repainted(Model(), &QAbstractItemModel::dataChanged);
            emit Grid()->doubleClicked(Model()->index(edit.g, edit.s));

            // Shown at once as a reload shows it, the mirrored cell too, and both repainted.
            QCOMPARE(Cell(edit.g, edit.s), QString(edit.value));
            QVERIFY(Covers(repainted, edit.g, edit.s));
            QVERIFY(!edit.mirror || Covers(repainted, edit.s, edit.g));
            const QStringList shown = Cells();
            page->Reload();
            QCOMPARE(Cells(), shown);
            QCOMPARE(Stores("Grid"), Stores("Page"));
        }
        // A cancelled box writes nothing.
        const auto before = Stores("Grid");
        emit Grid()->doubleClicked(Model()->index(0, 1));
        QCOMPARE(Stores("Grid"), before);
        QVERIFY(dialogs->shown.empty());
    }

    void exportsWriteTheShownMatrix() {
        auto* group = Get<QComboBox>("cboMatrixGroup");
        group->setCurrentIndex(1);
        emit group->activated(1);
        const std::string csv = *folder / "out.csv";
        QVERIFY(page->ExportCsvTo(QString::fromStdString(csv)));
        QCOMPARE(TempFolder::Read(csv), std::string(",A,K\xC3\xA4"
                                                    "fer\r\n"
                                                    "A,1.5,friendly\r\n"
                                                    "K\xC3\xA4"
                                                    "fer,,\r\n"));
        const std::string png = *folder / "out.png";
        QVERIFY(page->ExportPngTo(QString::fromStdString(png)));
        QCOMPARE(TempFolder::Read(png).substr(0, 8), std::string("\x89PNG\r\n\x1A\n"));
    }

    void aFailedEditIsToldNamingTheFileAndLeavesTheCell() {
        // A folder where B's empathy file belongs: it reads as missing and cannot be written.
        fs::create_directory(*folder / "projects/Grid/emphaty/new/reps_B.facts.d");
        fs::remove(*folder / "projects/Grid/emphaty/new/reps_B.facts");
        fs::rename(*folder / "projects/Grid/emphaty/new/reps_B.facts.d",
                   *folder / "projects/Grid/emphaty/new/reps_B.facts");
        page->Reload();
        const auto before = Stores("Grid");
        dialogs->Answer("0.5");
        emit Grid()->doubleClicked(Model()->index(1, 0)); // B toward A, mirrored into A's file
        QCOMPARE(dialogs->shown.size(), std::size_t(1));
        QVERIFY(dialogs->shown.front().text.contains("reps_B.facts"));
        QCOMPARE(Cell(1, 0), QString());
        QCOMPARE(Cell(0, 1), QString("-0.5"));
        QCOMPARE(TempFolder::Read(*folder / "projects/Grid/emphaty/new/reps_A.facts"),
                 before.at("emphaty/new/reps_A.facts"));
    }
};

QTEST_MAIN(MatrixPageTest)
#include "MatrixPage_test.moc"
