// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The findings of a project check in a window of their own: a table that sorts by any
// column, one check box per severity to filter it, and a double-click that hands the finding
// to the main window, which opens the page and faction concerned.
#include "check/ProjectCheck.h"
#include "ui/Captions.h"

#include <QWidget>
#include <functional>
#include <vector>

class QCheckBox;
class QLabel;
class QTreeWidget;

class frmCheck : public QWidget {
    Q_OBJECT
public:
    using GoTo = std::function<void(const check::Finding&)>;
    // The window speaks the language the main window shows when it opens; like the import
    // dialog it keeps its captions afterwards (rows of its own table, not the main one's).
    frmCheck(std::vector<check::Finding> findings, const QString& project, GoTo goTo,
             captions::Language language, QWidget* parent = nullptr);

    const std::vector<check::Finding>& Findings() const { return findings; }

private slots:
    void chkSeverity_Click();
    void lvFindings_DblClick();

private:
    void FillTable();

    std::vector<check::Finding> findings;
    GoTo goTo;
    QTreeWidget* lvFindings;
    QCheckBox* chkCheckErrors;
    QCheckBox* chkCheckWarnings;
    QCheckBox* chkCheckNotes;
    QLabel* lblCheckCount;
    QLabel* lblCheckHint;
};
