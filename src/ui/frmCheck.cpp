// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmCheck.h"

#include "ui/Named.h"
#include "ui/Text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { SeverityColumn, FactionColumn, FileColumn, WhereColumn, StoredColumn, MessageColumn };
// The finding's place in the window's list, kept with its row through every sort.
constexpr int FindingRole = Qt::UserRole;
// The severity's rank, so that sorting by it puts errors before warnings before notes.
constexpr int RankRole = Qt::UserRole + 1;

class FindingItem : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    bool operator<(const QTreeWidgetItem& other) const override {
        const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
        if (column == SeverityColumn)
            return data(SeverityColumn, RankRole).toInt() <
                   other.data(SeverityColumn, RankRole).toInt();
        return QTreeWidgetItem::operator<(other);
    }
};

} // namespace

frmCheck::frmCheck(std::vector<check::Finding> findings_, const QString& project, GoTo goTo_,
                   captions::Language language, QWidget* parent)
    : QWidget(parent, Qt::Window), findings(std::move(findings_)), goTo(std::move(goTo_)) {
    setObjectName(QStringLiteral("frmCheck"));
    setWindowTitle(project);
    resize(900, 420);

    chkCheckErrors = Named(new QCheckBox(this), "chkCheckErrors");
    chkCheckWarnings = Named(new QCheckBox(this), "chkCheckWarnings");
    chkCheckNotes = Named(new QCheckBox(this), "chkCheckNotes");
    lblCheckCount = Named(new QLabel(this), "lblCheckCount");
    lblCheckHint = Named(new QLabel(this), "lblCheckHint");
    for (QCheckBox* box : {chkCheckErrors, chkCheckWarnings, chkCheckNotes}) {
        box->setChecked(true);
        connect(box, &QCheckBox::toggled, this, &frmCheck::chkSeverity_Click);
    }

    lvFindings = Named(new QTreeWidget(this), "lvFindings");
    lvFindings->setAccessibleName(QStringLiteral("Findings"));
    lvFindings->setRootIsDecorated(false);
    lvFindings->setUniformRowHeights(true);
    lvFindings->setColumnCount(MessageColumn + 1);
    lvFindings->header()->setStretchLastSection(true);
    connect(lvFindings, &QTreeWidget::itemDoubleClicked, this, &frmCheck::lvFindings_DblClick);

    auto* filters = new QHBoxLayout;
    filters->addWidget(chkCheckErrors);
    filters->addWidget(chkCheckWarnings);
    filters->addWidget(chkCheckNotes);
    filters->addStretch();
    filters->addWidget(lblCheckCount);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filters);
    layout->addWidget(lvFindings);
    layout->addWidget(lblCheckHint);

    captions::Apply(*this, language, captions::FindingsWindowTable());
    FillTable();
}

void frmCheck::FillTable() {
    int counts[3] = {0, 0, 0};
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(findings.size()));
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const check::Finding& finding = findings[i];
        const int rank = static_cast<int>(finding.severity);
        ++counts[rank];
        auto* item = new FindingItem({QString::fromLatin1(check::SeverityName(finding.severity)),
                                      text::ToQt(finding.faction), text::ToQt(finding.file),
                                      text::ToQt(finding.where), text::ToQt(finding.stored),
                                      text::ToQt(finding.message)});
        item->setData(SeverityColumn, FindingRole, static_cast<qulonglong>(i));
        item->setData(SeverityColumn, RankRole, rank);
        item->setToolTip(MessageColumn, item->text(MessageColumn));
        items.append(item);
    }
    lvFindings->setSortingEnabled(false);
    lvFindings->addTopLevelItems(items);
    lvFindings->setSortingEnabled(true);
    lvFindings->sortByColumn(SeverityColumn, Qt::AscendingOrder);
    for (int column = SeverityColumn; column < MessageColumn; ++column)
        lvFindings->resizeColumnToContents(column);
    lblCheckCount->setText(
        QStringLiteral("%1 / %2 / %3").arg(counts[0]).arg(counts[1]).arg(counts[2]));
}

void frmCheck::chkSeverity_Click() {
    const bool shown[3] = {chkCheckErrors->isChecked(), chkCheckWarnings->isChecked(),
                           chkCheckNotes->isChecked()};
    for (int i = 0; i < lvFindings->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = lvFindings->topLevelItem(i);
        item->setHidden(!shown[item->data(SeverityColumn, RankRole).toInt()]);
    }
}

void frmCheck::lvFindings_DblClick() {
    const QTreeWidgetItem* item = lvFindings->currentItem();
    if (!item || !goTo)
        return;
    goTo(findings[item->data(SeverityColumn, FindingRole).toULongLong()]);
}
