// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/names.h"

#include "core/win1252.h"

#include <algorithm>

namespace names {

unsigned char FoldByte(unsigned char c) {
    if (c >= 'A' && c <= 'Z')
        return static_cast<unsigned char>(c + 32);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return static_cast<unsigned char>(c + 32);
    switch (c) {
    case 0x8A:
        return 0x9A; // S caron
    case 0x8C:
        return 0x9C; // OE
    case 0x8E:
        return 0x9E; // Z caron
    case 0x9F:
        return 0xFF; // Y diaeresis
    default:
        return c;
    }
}

std::string Folded(std::string_view name) {
    std::string out(name);
    for (char& c : out)
        c = static_cast<char>(FoldByte(static_cast<unsigned char>(c)));
    return out;
}

std::optional<std::string> Refusal(std::string_view name) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    if (name.empty() || std::all_of(name.begin(), name.end(), isBlank))
        return "the name is empty";
    if (name == "." || name == "..")
        return "the name \".\" or \"..\" is not allowed";
    // Counted in the form the name has on disk (UTF-8; one letter such as "é" takes two bytes
    // there), so that the longest file made from it stays within the file system's limit.
    if (name.size() > MaxNameBytes || win1252::ToUtf8(name).size() > MaxNameBytes)
        return "the name is longer than 200 bytes as a file name (UTF-8)";
    const char first = name.front();
    const char last = name.back();
    if (isBlank(first) || isBlank(last))
        return "the name starts or ends with a blank";
    if (first == '.' || last == '.')
        return "the name starts or ends with a dot";
    constexpr std::string_view Forbidden = "\\/:*?\"<>|[]=";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F)
            return "the name contains a control character";
        if (Forbidden.find(c) != std::string_view::npos)
            return std::string("the name contains the character ") + c +
                   " (not allowed: \\ / : * ? \" < > | [ ] =)";
        if (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D)
            return "the name contains a character outside Windows-1252";
    }
    return std::nullopt;
}

void Require(std::string_view name, std::string_view what) {
    if (const auto reason = Refusal(name))
        throw NameRefused(std::string(what) + " \"" + std::string(name) +
                          "\" is refused: " + *reason);
}

std::optional<std::string> RefusalUtf8(std::string_view utf8Name) {
    const auto bytes = win1252::FromUtf8(utf8Name);
    if (!bytes)
        return "the name contains a character outside Windows-1252";
    return Refusal(*bytes);
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](unsigned char c) {
        return (c >= 'A' && c <= 'Z') ? static_cast<unsigned char>(c + 32) : c;
    };
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const auto x = lower(static_cast<unsigned char>(a[i]));
        const auto y = lower(static_cast<unsigned char>(b[i]));
        if (x != y)
            return x < y;
    }
    if (a.size() != b.size())
        return a.size() < b.size();
    return a < b;
}

void SortIgnoringCase(std::vector<std::string>& list) {
    std::sort(list.begin(), list.end(),
              [](const std::string& a, const std::string& b) { return LessIgnoringCase(a, b); });
}

} // namespace names
