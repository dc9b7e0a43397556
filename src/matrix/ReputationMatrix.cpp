// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/ReputationMatrix.h"

#include "core/GameNumber.h"
#include "core/IniDocument.h"
#include "core/names.h"
#include "core/txtReadWrite.h"
#include "core/win1252.h"
#include "initialworld/InitialWorld.h"
#include "reputation/ReputationFiles.h"

#include <stdexcept>

namespace matrix {
namespace {

void Put(Matrix& matrix, std::size_t row, std::size_t column, std::optional<std::string> entry) {
    if (entry)
        matrix.Set(row, column, std::move(*entry));
}

void AppendField(std::string& out, std::string_view bytes, Format format) {
    const std::string utf8 = win1252::ToUtf8(bytes);
    if (format == Format::Tabs) {
        out += ini::EscapeLineBreaks(utf8);
        return;
    }
    if (utf8.find_first_of(",\"\r\n") == std::string::npos) {
        out += utf8;
        return;
    }
    out += '"';
    for (const char c : utf8) {
        if (c == '"')
            out += '"';
        out += c;
    }
    out += '"';
}

} // namespace

std::optional<Store> StoreNamed(std::string_view name) {
    if (name == "emphaty")
        return Store::Emphaty;
    if (name == "initialworld")
        return Store::InitialWorld;
    return std::nullopt;
}

Matrix::Matrix(std::vector<std::string> factions)
    : factions_(std::move(factions)), values_(factions_.size() * factions_.size()),
      stored_(values_.size(), 0) {}

void Matrix::Set(std::size_t row, std::size_t column, std::string value) {
    const std::size_t at = row * Size() + column;
    values_.at(at) = std::move(value);
    stored_[at] = 1;
}

Matrix Load(Store store, std::string_view projectFolder, const std::vector<std::string>& factions) {
    Matrix matrix(factions);
    const std::size_t n = factions.size();
    if (store == Store::Emphaty) {
        for (std::size_t row = 0; row < n; ++row) {
            const auto rates = txtReadWrite::ReadIniDocument(
                reputation::EmpathyFile(projectFolder, factions[row]));
            for (std::size_t column = 0; column < n; ++column)
                Put(matrix, row, column, rates->ReadStored(factions[column], reputation::RateKey));
        }
    } else {
        const auto world = txtReadWrite::ReadIniDocument(initialworld::DataFile(projectFolder));
        for (std::size_t row = 0; row < n; ++row)
            for (std::size_t column = 0; column < n; ++column)
                Put(matrix, row, column, world->ReadStored(factions[row], factions[column]));
    }
    return matrix;
}

void Edit(Store store, std::string_view projectFolder, Matrix& matrix, std::size_t row,
          std::size_t column, std::string_view value, bool mirror) {
    const auto& factions = matrix.Factions();
    if (row >= factions.size() || column >= factions.size())
        throw std::out_of_range("matrix::Edit: no such cell");
    const std::string& g = factions[row];
    const std::string& s = factions[column];
    if (store == Store::Emphaty) {
        // The column as the reputation page shows it when g is chosen.
        const std::string file = reputation::EmpathyFile(projectFolder, g);
        reputation::StoreEditedRate(projectFolder, g, factions,
                                    reputation::ReadRates(file, factions), column, value, mirror);
        // Every entry of g's file is stored now; read back what the file holds.
        const auto rates = txtReadWrite::ReadIniDocument(file);
        for (std::size_t c = 0; c < factions.size(); ++c)
            Put(matrix, row, c, rates->ReadStored(factions[c], reputation::RateKey));
        if (mirror)
            Put(matrix, column, row,
                txtReadWrite::ReadIniDocument(reputation::EmpathyFile(projectFolder, s))
                    ->ReadStored(g, reputation::RateKey));
        return;
    }
    const std::string file = initialworld::DataFile(projectFolder);
    initialworld::WriteReputation(file, g, s, value, mirror);
    const auto world = txtReadWrite::ReadIniDocument(file);
    Put(matrix, row, column, world->ReadStored(g, s));
    if (mirror)
        Put(matrix, column, row, world->ReadStored(s, g));
}

Reading Read(std::string_view value, bool stored) {
    if (!stored)
        return {Kind::Missing, 0.0};
    const auto number = gameNumber::Read(value);
    if (!number)
        return {Kind::NotANumber, 0.0};
    return {*number < -1.0 || *number > 1.0 ? Kind::OutOfRange : Kind::Number, *number};
}

bool Differ(const Matrix& matrix, std::size_t row, std::size_t column) {
    return matrix.IsStored(row, column) != matrix.IsStored(column, row) ||
           !gameNumber::SameValue(matrix.Value(row, column), matrix.Value(column, row));
}

std::vector<std::size_t> Filter(const std::vector<std::string>& nicknames,
                                const std::vector<std::string>& groups, std::string_view group,
                                std::string_view text) {
    const std::string folded = names::Folded(text);
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < nicknames.size(); ++i) {
        if (!group.empty() && (i >= groups.size() || groups[i] != group))
            continue;
        if (!folded.empty() && names::Folded(nicknames[i]).find(folded) == std::string::npos)
            continue;
        shown.push_back(i);
    }
    return shown;
}

std::string Formatted(const Matrix& matrix, const std::vector<std::size_t>& shown, Format format) {
    const char separator = format == Format::Csv ? ',' : '\t';
    const std::string_view end = format == Format::Csv ? "\r\n" : "\n";
    std::string out;
    for (const std::size_t column : shown) {
        out += separator;
        AppendField(out, matrix.Factions()[column], format);
    }
    out += end;
    for (const std::size_t row : shown) {
        AppendField(out, matrix.Factions()[row], format);
        for (const std::size_t column : shown) {
            out += separator;
            AppendField(out, matrix.Value(row, column), format);
        }
        out += end;
    }
    return out;
}

} // namespace matrix
