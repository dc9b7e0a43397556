// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The reputation matrix as a table model: the core's matrix narrowed to the factions that
// pass the page's filter, rows and columns alike. It converts text only for the cells that
// are asked for, so a 1000 x 1000 matrix costs no more to show than a small one.
#include "matrix/ReputationMatrix.h"

#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <vector>

class MatrixModel : public QAbstractTableModel {
    Q_OBJECT
public:
    // What the delegate paints for one cell.
    struct Cell {
        QString text;
        matrix::Reading reading;
        bool diagonal = false;
        bool asymmetric = false; // only while asymmetric pairs are highlighted
    };

    explicit MatrixModel(QObject* parent = nullptr);

    // New data; every faction is shown.
    void Reset(matrix::Matrix data);
    // The factions to show, as registry indices.
    void SetShown(std::vector<std::size_t> shown);
    void SetHighlightAsymmetric(bool on);
    // Words for the marks in tool tips (they follow the page's language).
    void SetDescribe(std::function<QString(matrix::Kind)> describe);
    // Stores a value for the shown cell (its files first, then the matrix) and repaints; with
    // mirror the opposite cell gets it too. Throws as matrix::Edit; nothing changes then.
    void Edit(matrix::Store store, std::string_view projectFolder, int row, int column,
              std::string_view value, bool mirror);

    const matrix::Matrix& Data() const { return data_; }
    const std::vector<std::size_t>& Shown() const { return shown_; }
    // The registry index of a shown row or column.
    std::size_t FactionAt(int section) const { return shown_[static_cast<std::size_t>(section)]; }
    QString Nickname(int section) const;
    Cell CellAt(int row, int column) const;
    // "A → B: value" for both directions of the pair.
    QString BothDirections(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    // Every cell is repainted.
    void DataChanged();
    QString Direction(std::size_t from, std::size_t to) const;

    matrix::Matrix data_;
    std::vector<std::size_t> shown_;
    std::vector<QString> nicknames_; // converted once per reset
    bool highlightAsymmetric_ = false;
    std::function<QString(matrix::Kind)> describe_;
};
