#pragma once
// How the reputation matrix is drawn: the diverging colour scale, the cell delegate that
// paints each cell straight from the model, and a column header with upright nicknames.
#include "matrix/ReputationMatrix.h"

#include <QColor>
#include <QHeaderView>
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
