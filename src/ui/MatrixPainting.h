// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the reputation matrix is drawn: the diverging colour scale, the cell delegate that
// paints each cell straight from the model, a column header with upright nicknames, and the
// exported picture.
#include "matrix/ReputationMatrix.h"

#include <QColor>
#include <QHeaderView>
#include <QImage>
#include <QStyledItemDelegate>

class MatrixModel;

namespace matrixColours {
// -1 red (hostile), 0 near white, +1 blue (friendly); marks for the rest.
QColor Scale(double value);
QColor Background(const matrix::Reading& reading, bool diagonal);
QColor Foreground(const matrix::Reading& reading, bool diagonal);
QColor Asymmetric();
} // namespace matrixColours

class MatrixDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    MatrixDelegate(const MatrixModel& model, QObject* parent = nullptr);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // One cell into a rectangle; also used for the exported picture.
    void PaintCell(QPainter& painter, const QRect& rect, int row, int column, bool withText,
                   bool selected) const;

private:
    const MatrixModel& model_;
};

// Column header whose nicknames read bottom to top, so that narrow columns show them whole.
class NicknameHeader : public QHeaderView {
    Q_OBJECT
public:
    explicit NicknameHeader(QWidget* parent = nullptr);
    // Paints one upright caption; also used for the exported picture.
    static void PaintUpright(QPainter& painter, const QRect& rect, const QString& text,
                             const QPalette& palette);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

namespace matrixPicture {
// A cell's size in the grid, and in a picture small enough to show the cells whole.
inline constexpr int CellWidth = 46;
inline constexpr int CellHeight = 20;
// The widest nickname in pixels, within bounds that keep the grid usable.
int HeaderExtent(const MatrixModel& model, const QFontMetrics& metrics);
// The shown matrix, cells painted as the grid paints them, in the grid's font and palette.
// A large matrix gets smaller cells, colour only, so that the picture stays a few thousand
// pixels a side.
QImage Picture(const MatrixModel& model, const MatrixDelegate& delegate, const QFont& font,
               const QPalette& palette);
} // namespace matrixPicture
