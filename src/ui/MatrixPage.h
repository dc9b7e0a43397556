// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Matrix" page: every faction's reputation toward every faction at once, from either
// store (empathy rates or starting reputations), in registry order. A double-click edits a
// cell as the page that owns the store does; a filter narrows rows and columns together; the
// shown matrix is exported as CSV or as a picture.
#include "core/FileReplacement.h"
#include "matrix/ReputationMatrix.h"
#include "ui/RegistryView.h"

#include <QWidget>

class Session;
class Dialogs;
class MatrixDelegate;
class MatrixModel;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QTableView;
class VantelButton;

class MatrixPage : public QWidget, public RegistryView {
    Q_OBJECT
public:
    MatrixPage(Session& session, Dialogs& dialogs, QWidget* parent = nullptr);
    void ClearFactions() override;
    void AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) override;
    // Makes the faction's row current; false when the filter hides it or it is not registered.
    bool ChooseFaction(const std::string& nickname) override;

    // Reads the chosen store anew (each of its files once).
    void Reload();
    matrix::Store CurrentStore() const;
    // The shown matrix, as the export buttons write it; false after telling the user why not.
    // The calls that put the bytes on disk can be a test's.
    bool ExportCsvTo(const QString& path, platform::FileCalls& calls = platform::SystemFileCalls());
    bool ExportPngTo(const QString& path, platform::FileCalls& calls = platform::SystemFileCalls());

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void optMatrixEmphaty_Click();
    void optMatrixInitialworld_Click();
    void cboMatrixGroup_Click();
    void txtMatrixFilter_Change();
    void chkMatrixAsymmetric_Click();
    void grdMatrix_DblClick(const QModelIndex& index);
    void grdMatrix_MouseMove(const QModelIndex& index);
    void btnMatrixCsv_Click();
    void btnMatrixPng_Click();

private:
    void ApplyFilter();
    void FitHeaders();
    bool WriteExport(const QString& path, std::string_view bytes, platform::FileCalls& calls);

    Session& session;
    Dialogs& dialogs;
    std::vector<modFunctions::RegistryEntry> entries_;

    QRadioButton* optMatrixEmphaty;
    QRadioButton* optMatrixInitialworld;
    QLabel* lblMatrixGroup;
    QComboBox* cboMatrixGroup;
    QLabel* lblMatrixFilter;
    QLineEdit* txtMatrixFilter;
    QTableView* grdMatrix;
    MatrixModel* model;
    MatrixDelegate* delegate;
    QLabel* lblMatrixCell;
    QLabel* lblMatrixHostile;
    QLabel* lblMatrixFriendly;
    QLabel* lblMatrixOutOfRange;
    QLabel* lblMatrixNotANumber;
    QLabel* lblMatrixMissing;
    QCheckBox* chkMatrixAsymmetric;
    QCheckBox* chkMatrixForceRep;
    VantelButton* btnMatrixCsv;
    VantelButton* btnMatrixPng;
};
