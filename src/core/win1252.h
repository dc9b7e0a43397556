// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Conversion between UTF-8 (terminal, window) and Windows-1252 (every file).
#include <optional>
#include <string>
#include <string_view>

namespace win1252 {

// nullopt when the text holds a character that Windows-1252 cannot represent
// (or is not valid UTF-8).
std::optional<std::string> FromUtf8(std::string_view utf8);
// The same for text that is only shown: what cannot be converted becomes "?".
std::string FromUtf8Lossy(std::string_view utf8);
std::string ToUtf8(std::string_view bytes);
// The Unicode code point of one Windows-1252 byte.
char32_t CodePoint(unsigned char byte);
// The byte for a code point, or nullopt.
std::optional<unsigned char> ByteFor(char32_t codePoint);

} // namespace win1252
