// A matrix edit shows at once what a reload of the store would show: the edited cell and,
// with the mirror, the cell of the reverse direction.
#include "core/modFunctions.h"
#include "ui/MatrixModel.h"
#include "ui/MatrixPage.h"
#include "ui/support/PageFixture.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

class MatrixMirrorTest : public QObject, protected PageFixture<MatrixPage> {
    Q_OBJECT

    MatrixModel* Model() {
        return qobject_cast<MatrixModel*>(Get<QTableView>("grdMatrix")->model());
    }
    // Every cell as shown, row by row: A-A, A-B, B-A, B-B.
    QStringList Cells() {
        QStringList cells;
        for (int r = 0; r < Model()->rowCount(); ++r)
            for (int c = 0; c < Model()->columnCount(); ++c)
                cells << Model()->data(Model()->index(r, c), Qt::DisplayRole).toString();
        return cells;
    }

private slots:
    void cleanup() { ClosePage(); }

    void editsShowWhatAReloadShows() {
        const struct {
            const char* store; // the radio button
            bool mirror;
            const char* value;
            const char* reverse; // A toward B after editing B toward A
        } cases[] = {
            {"optMatrixEmphaty", true, "0.25", "0.25"},
            {"optMatrixEmphaty", false, "0.25", "-0.5"},
            {"optMatrixInitialworld", true, "-0.75", "-0.75"},
            {"optMatrixInitialworld", false, "-0.75", "0.9"},
        };
        for (const auto& c : cases) {
            OpenPage("Grid");
            modFunctions::SaveFaction(folder->path(), "Grid", "A", "Alpha");
            modFunctions::SaveFaction(folder->path(), "Grid", "B", "Beta");
            TempFolder::Write(*folder / "projects/Grid/emphaty/new/reps_A.facts",
                              "[B]\r\nrep=-0.5\r\n");
            TempFolder::Write(*folder / "projects/Grid/initialworld/grp.ini", "[A]\r\nB=0.9\r\n");
            page->AddFactions(
                modFunctions::LoadRegistry(modFunctions::RegistryPath(folder->path(), "Grid")));
            page->show();
            Get<QRadioButton>(c.store)->click();
            Get<QCheckBox>("chkMatrixForceRep")->setChecked(c.mirror);
            dialogs->Answer(QString::fromLatin1(c.value));
            QSignalSpy repainted(Model(), &QAbstractItemModel::dataChanged);
            emit Get<QTableView>("grdMatrix")->doubleClicked(Model()->index(1, 0));

            // The view repaints both cells: neither keeps showing its old value.
            const auto covers = [&](int row, int column) {
                for (const QList<QVariant>& change : repainted) {
                    const auto from = change[0].toModelIndex(), to = change[1].toModelIndex();
                    if (from.row() <= row && row <= to.row() && from.column() <= column &&
                        column <= to.column())
                        return true;
                }
                return false;
            };
            QVERIFY(covers(1, 0) && covers(0, 1));
            const QStringList shown = Cells();
            QCOMPARE(shown[2], QString::fromLatin1(c.value));
            QCOMPARE(shown[1], QString::fromLatin1(c.reverse));
            page->Reload();
            QCOMPARE(Cells(), shown);
            QVERIFY(dialogs->shown.empty());
            ClosePage();
        }
    }
};

QTEST_MAIN(MatrixMirrorTest)
#include "MatrixMirror_test.moc"
