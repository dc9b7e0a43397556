// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MatrixPainting.h"

#include "ui/MatrixModel.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace matrixColours {
namespace {

QColor Mix(const QColor& from, const QColor& to, double t) {
    const auto channel = [t](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * std::clamp(t, 0.0, 1.0)));
    };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

const QColor Neutral(247, 247, 247);
const QColor Hostile(202, 0, 32);
const QColor Friendly(5, 113, 176);

} // namespace

QColor Scale(double value) {
    return value < 0 ? Mix(Neutral, Hostile, -value) : Mix(Neutral, Friendly, value);
}

QColor Background(const matrix::Reading& reading, bool diagonal) {
    if (diagonal)
        return {205, 205, 205};
    switch (reading.kind) {
    case matrix::Kind::Missing:
        return Qt::white;
    case matrix::Kind::Number:
        return Scale(reading.number);
    case matrix::Kind::OutOfRange:
        return {255, 176, 32};
    case matrix::Kind::NotANumber:
        return {196, 148, 236};
    }
    return Qt::white;
}

QColor Foreground(const matrix::Reading& reading, bool diagonal) {
    if (diagonal)
        return {96, 96, 96};
    if (reading.kind == matrix::Kind::Number && std::abs(reading.number) > 0.55)
        return Qt::white;
    return Qt::black;
}

QColor Asymmetric() {
    return {0, 170, 60};
}

} // namespace matrixColours

MatrixDelegate::MatrixDelegate(const MatrixModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

void MatrixDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    PaintCell(*painter, option.rect, index.row(), index.column(), true,
              option.state.testFlag(QStyle::State_Selected));
}

void MatrixDelegate::PaintCell(QPainter& painter, const QRect& rect, int row, int column,
                               bool withText, bool selected) const {
    const MatrixModel::Cell cell = model_.CellAt(row, column);
    painter.fillRect(rect, matrixColours::Background(cell.reading, cell.diagonal));
    if (withText && !cell.text.isEmpty()) {
        painter.setPen(matrixColours::Foreground(cell.reading, cell.diagonal));
        const QRect inner = rect.adjusted(2, 0, -2, 0);
        painter.drawText(
            inner, Qt::AlignCenter,
            painter.fontMetrics().elidedText(cell.text, Qt::ElideRight, inner.width()));
    }
    if (cell.asymmetric) {
        painter.setPen(QPen(matrixColours::Asymmetric(), 2));
        painter.drawRect(rect.adjusted(1, 1, -1, -1));
    }
    if (selected) {
        painter.setPen(QPen(Qt::black, 2, Qt::DotLine));
        painter.drawRect(rect.adjusted(1, 1, -1, -1));
    }
}

NicknameHeader::NicknameHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

void NicknameHeader::PaintUpright(QPainter& painter, const QRect& rect, const QString& text,
                                  const QPalette& palette) {
    painter.save();
    painter.fillRect(rect, palette.button());
    painter.setPen(palette.mid().color());
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.setPen(palette.buttonText().color());
    painter.translate(rect.left(), rect.bottom());
    painter.rotate(-90);
    // In the turned frame x runs up the column and y across it.
    const QRect turned(4, 0, rect.height() - 8, rect.width());
    painter.drawText(turned, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, turned.width()));
    painter.restore();
}

void NicknameHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    if (!rect.isValid() || !model())
        return;
    PaintUpright(*painter, rect,
                 model()->headerData(logicalIndex, Qt::Horizontal, Qt::DisplayRole).toString(),
                 palette());
}

namespace matrixPicture {
namespace {

// The exported picture stays below this many pixels a side; smaller cells lose their text.
constexpr int PictureLimit = 4000;

} // namespace

int HeaderExtent(const MatrixModel& model, const QFontMetrics& metrics) {
    int widest = 0;
    for (int i = 0; i < model.rowCount(); ++i)
        widest = std::max(widest, metrics.horizontalAdvance(model.Nickname(i)));
    return std::clamp(widest + 12, 40, 180);
}

QImage Picture(const MatrixModel& model, const MatrixDelegate& delegate, const QFont& font,
               const QPalette& palette) {
    const int n = model.rowCount();
    const int cell = std::clamp(PictureLimit / std::max(n, 1), 2, CellWidth);
    // Full-size cells keep their text and the nicknames; smaller ones are colour only.
    const bool withText = cell == CellWidth;
    const int width = cell;
    const int height = withText ? CellHeight : cell;
    const int head = withText ? HeaderExtent(model, QFontMetrics(font)) : 0;
    QImage image(head + n * width, head + n * height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    if (withText) {
        painter.fillRect(0, 0, head, head, palette.button());
        for (int i = 0; i < n; ++i) {
            NicknameHeader::PaintUpright(painter, QRect(head + i * width, 0, width, head),
                                         model.Nickname(i), palette);
            const QRect rowHead(0, head + i * height, head, height);
            painter.fillRect(rowHead, palette.button());
            painter.setPen(palette.buttonText().color());
            painter.drawText(rowHead.adjusted(4, 0, -2, 0), Qt::AlignLeft | Qt::AlignVCenter,
                             model.Nickname(i));
        }
    }
    for (int r = 0; r < n; ++r)
        for (int c = 0; c < n; ++c)
            delegate.PaintCell(painter, QRect(head + c * width, head + r * height, width, height),
                               r, c, withText, false);
    if (withText) {
        painter.setPen(palette.mid().color());
        for (int i = 0; i <= n; ++i) {
            painter.drawLine(head + i * width, head, head + i * width, head + n * height);
            painter.drawLine(head, head + i * height, head + n * width, head + i * height);
        }
    }
    return image;
}

} // namespace matrixPicture
