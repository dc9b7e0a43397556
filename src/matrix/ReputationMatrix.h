// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Every faction's reputation toward every registered faction, from one of the two stores:
// the empathy rates (reps_<nickname>.facts, key "rep") or the starting reputations
// (initialworld\grp.ini). Each store file is read once per load. Values are kept as text,
// exactly as a read returns them; reading one as a number is only for showing it.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace matrix {

enum class Store { Emphaty, InitialWorld };
// The store by its command-line name, "emphaty" or "initialworld".
std::optional<Store> StoreNamed(std::string_view name);

// An N x N table in registry order: row = the faction whose value it is, column = the
// faction it is toward.
class Matrix {
public:
    Matrix() = default;
    explicit Matrix(std::vector<std::string> factions);

    std::size_t Size() const { return factions_.size(); }
    const std::vector<std::string>& Factions() const { return factions_; }

    // What a read of the entry returns (line-break escapes decoded); "" when not stored.
    const std::string& Value(std::size_t row, std::size_t column) const {
        return values_[row * Size() + column];
    }
    bool IsStored(std::size_t row, std::size_t column) const {
        return stored_[row * Size() + column] != 0;
    }
    void Set(std::size_t row, std::size_t column, std::string value);

private:
    std::vector<std::string> factions_;
    std::vector<std::string> values_; // row-major
    std::vector<std::uint8_t> stored_;
};

// Reads the store of the project for the given factions (registry order).
Matrix Load(Store store, std::string_view projectFolder, const std::vector<std::string>& factions);

// Edits one entry as the page that owns the store does, and updates the matrix to what is
// then on disk. Empathy rates: the row faction's whole column of rates (missing ones as
// "0.0") is stored with the new value, as on the reputation page. Starting reputations: the
// one entry. With mirror, the column faction also gets the value toward the row faction.
// Throws IniWriteError; the matrix is unchanged then.
void Edit(Store store, std::string_view projectFolder, Matrix& matrix, std::size_t row,
          std::size_t column, std::string_view value, bool mirror);

// How a value reads on the scale from -1 (hostile) to +1 (friendly).
enum class Kind : std::uint8_t { Missing, Number, OutOfRange, NotANumber };
struct Reading {
    Kind kind = Kind::Missing;
    double number = 0.0;
};
// A number is what the game reads as one (gameNumber::Read); anything else, an empty stored
// value included, is not a number.
Reading Read(std::string_view value, bool stored);
// Two directions differ: one is stored and the other not, or they are not the same value
// (gameNumber::SameValue).
bool Differ(const Matrix& matrix, std::size_t row, std::size_t column);

// The factions whose group is group (any group when it is empty) and whose nickname holds
// text without regard to letter case, as indices in registry order.
std::vector<std::size_t> Filter(const std::vector<std::string>& nicknames,
                                const std::vector<std::string>& groups, std::string_view group,
                                std::string_view text);

enum class Format { Tabs, Csv };
// The matrix narrowed to the given factions (rows and columns alike) as UTF-8 text: a head
// line of the nicknames after an empty corner, then per row its nickname and its values,
// missing ones empty. Csv: quoted where needed, CR LF line ends. Tabs: one line per row with
// "\n" ends; a line break in a value is written as its stored escape.
std::string Formatted(const Matrix& matrix, const std::vector<std::size_t>& shown, Format format);

} // namespace matrix
