// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/GameNumber.h"

#include <charconv>
#include <limits>

namespace gameNumber {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Whether the whole text has the decimal form; sets exponentNegative for an "e-" exponent.
bool HasNumberForm(std::string_view text, bool& exponentNegative) {
    std::size_t i = 0;
    const auto digits = [&] {
        const std::size_t from = i;
        while (i < text.size() && IsDigit(text[i]))
            ++i;
        return i - from;
    };
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    std::size_t mantissa = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0)
        return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        exponentNegative = i < text.size() && text[i] == '-';
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        if (digits() == 0)
            return false;
    }
    return i == text.size();
}

} // namespace

std::optional<double> Read(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    bool exponentNegative = false;
    if (!HasNumberForm(text, exponentNegative))
        return std::nullopt;
    const bool negative = text.front() == '-';
    if (text.front() == '+')
        text.remove_prefix(1); // from_chars takes no plus sign
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Beyond a double: infinite when it is large, 0 when it is tiny (only a negative
        // exponent or a zero whole part makes a value that small).
        const bool tiny = exponentNegative || text.find_first_not_of("+-0") == text.find('.');
        value = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        if (negative)
            value = -value;
    }
    return value;
}

bool SameValue(std::string_view a, std::string_view b) {
    const auto x = Read(a);
    const auto y = Read(b);
    return x && y ? *x == *y : a == b;
}

} // namespace gameNumber
