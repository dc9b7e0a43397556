// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the game reads as a number in a value of its INI files, decided once for the project
// check, the matrix and the mirror comparisons. The game converts a value as the C library's
// strtod does in the "C" locale, and a value means a number only when that takes all of it:
// an optional sign, digits with at most one decimal point (".5" and "5." too) and an optional
// exponent ("1e-1" is 0.1, "+.5" is 0.5). Blanks around the value are no part of it (" 0.5 "
// is 0.5; reads trim them anyway). A comma is no decimal point ("1,5" is not a number), and
// strtod's other forms (hexadecimal, "inf", "nan") mean nothing as a game value and do not
// count either.
#include <optional>
#include <string_view>

namespace gameNumber {

// The number the text reads as; nullopt when it is none. A value too large for a double is
// infinite, one too small is 0, as with strtod.
std::optional<double> Read(std::string_view text);

// Two stored values are the same when both read as the same number, however written, or,
// when either is no number, when they are the same text.
bool SameValue(std::string_view a, std::string_view b);

} // namespace gameNumber
