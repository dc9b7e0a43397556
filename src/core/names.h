// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Project names and faction nicknames become file-name parts and INI section names;
// this is the one rule that decides which are acceptable, and the order they sort in.
#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace names {

// The longest name in its disk form (UTF-8): with the longest prefix and suffix a file name
// gets from it, it stays within the 255 bytes that file systems allow.
inline constexpr std::size_t MaxNameBytes = 200;

// nullopt when the name (Windows-1252 bytes) is acceptable, else the reason in plain words.
std::optional<std::string> Refusal(std::string_view name);
// A refused name, with the reason and the name in the message.
class NameRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
// Throws NameRefused ("<what> "<name>": <reason>") when the name is refused.
void Require(std::string_view name, std::string_view what);

// The same check for a UTF-8 name from the terminal or window.
std::optional<std::string> RefusalUtf8(std::string_view utf8Name);

// ASCII letters mapped to small letters, then bytes; ties broken by the original bytes.
bool LessIgnoringCase(std::string_view a, std::string_view b);
void SortIgnoringCase(std::vector<std::string>& names);
// A byte's small letter: ASCII and the Windows-1252 letters that have a case pair.
unsigned char FoldByte(unsigned char byte);
// FoldByte of every byte, for loops that fold much text.
inline const std::array<unsigned char, 256>& FoldTable() {
    static const std::array<unsigned char, 256> table = [] {
        std::array<unsigned char, 256> t{};
        for (int c = 0; c < 256; ++c)
            t[static_cast<std::size_t>(c)] = FoldByte(static_cast<unsigned char>(c));
        return t;
    }();
    return table;
}
std::string Folded(std::string_view name);
// Equality of names without regard to case (ASCII and the Windows-1252 letter pairs). Inline:
// the INI engine compares names in its innermost loops.
inline bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    if (a == b)
        return true; // names are mostly spelled alike: one byte comparison settles it
    const auto& fold = FoldTable();
    for (std::size_t i = 0; i < a.size(); ++i)
        if (fold[static_cast<unsigned char>(a[i])] != fold[static_cast<unsigned char>(b[i])])
            return false;
    return true;
}

} // namespace names
