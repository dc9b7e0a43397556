// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MatrixModel.h"

#include "ui/Text.h"

MatrixModel::MatrixModel(QObject* parent) : QAbstractTableModel(parent) {}

void MatrixModel::Reset(matrix::Matrix data) {
    beginResetModel();
    data_ = std::move(data);
    nicknames_.clear();
    nicknames_.reserve(data_.Size());
    for (const std::string& nickname : data_.Factions())
        nicknames_.push_back(text::ToQt(nickname));
    shown_.resize(data_.Size());
    for (std::size_t i = 0; i < shown_.size(); ++i)
        shown_[i] = i;
    endResetModel();
}

void MatrixModel::SetShown(std::vector<std::size_t> shown) {
    beginResetModel();
    shown_ = std::move(shown);
    endResetModel();
}

void MatrixModel::SetHighlightAsymmetric(bool on) {
    highlightAsymmetric_ = on;
    DataChanged();
}

void MatrixModel::SetDescribe(std::function<QString(matrix::Kind)> describe) {
    describe_ = std::move(describe);
}

void MatrixModel::Edit(matrix::Store store, std::string_view projectFolder, int row, int column,
                       std::string_view value, bool mirror) {
    matrix::Edit(store, projectFolder, data_, FactionAt(row), FactionAt(column), value, mirror);
    DataChanged();
}

void MatrixModel::DataChanged() {
    if (!shown_.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QString MatrixModel::Nickname(int section) const {
    return nicknames_[FactionAt(section)];
}

MatrixModel::Cell MatrixModel::CellAt(int row, int column) const {
    const std::size_t r = FactionAt(row);
    const std::size_t c = FactionAt(column);
    Cell cell;
    const std::string& value = data_.Value(r, c);
    cell.text = text::ToQt(value);
    // A stored line break shows as a mark, so that every cell stays one line.
    cell.text.replace(QStringLiteral("\r\n"), QStringLiteral("\u21B5"));
    cell.reading = matrix::Read(value, data_.IsStored(r, c));
    cell.diagonal = r == c;
    cell.asymmetric = highlightAsymmetric_ && r != c && matrix::Differ(data_, r, c);
    return cell;
}

QString MatrixModel::Direction(std::size_t from, std::size_t to) const {
    QString line = nicknames_[from] + QStringLiteral(" \u2192 ") + nicknames_[to] +
                   QStringLiteral(": ") + text::ToQt(data_.Value(from, to));
    const matrix::Kind kind = matrix::Read(data_.Value(from, to), data_.IsStored(from, to)).kind;
    if (kind != matrix::Kind::Number && describe_)
        line += QStringLiteral(" (") + describe_(kind) + QStringLiteral(")");
    return line;
}

QString MatrixModel::BothDirections(int row, int column) const {
    const std::size_t r = FactionAt(row);
    const std::size_t c = FactionAt(column);
    if (r == c)
        return Direction(r, c);
    return Direction(r, c) + QStringLiteral("\n") + Direction(c, r);
}

int MatrixModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int MatrixModel::columnCount(const QModelIndex& parent) const {
    return rowCount(parent);
}

QVariant MatrixModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return CellAt(index.row(), index.column()).text;
    case Qt::ToolTipRole:
        return BothDirections(index.row(), index.column());
    case Qt::AccessibleTextRole:
        // A screen reader reads the value and both nicknames of the cell.
        return Direction(FactionAt(index.row()), FactionAt(index.column()));
    default:
        return {};
    }
}

QVariant MatrixModel::headerData(int section, Qt::Orientation, int role) const {
    if (section < 0 || section >= rowCount())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
        return Nickname(section);
    return {};
}
