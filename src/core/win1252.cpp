// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/win1252.h"

#include <array>

namespace win1252 {
namespace {

// 0x80..0x9F; the five bytes without a character map to the C1 control of the same
// number, as the platform's own conversion does, so every byte survives a round trip.
constexpr std::array<char32_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

} // namespace

char32_t CodePoint(unsigned char byte) {
    if (byte >= 0x80 && byte < 0xA0)
        return HighControls[byte - 0x80];
    return byte;
}

std::optional<unsigned char> ByteFor(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
        return static_cast<unsigned char>(cp);
    for (std::size_t i = 0; i < HighControls.size(); ++i)
        if (HighControls[i] == cp)
            return static_cast<unsigned char>(0x80 + i);
    return std::nullopt;
}

std::string ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char c : bytes)
        AppendUtf8(out, CodePoint(c));
    return out;
}

namespace {

// Decodes UTF-8 into Windows-1252. A byte sequence that is not UTF-8, or a character that
// Windows-1252 lacks, ends the decoding (nullopt) or, when lossy, becomes "?".
std::optional<std::string> Decode(std::string_view utf8, bool lossy) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        int extra = 0;
        char32_t cp = 0;
        bool valid = true;
        if (lead < 0x80) {
            cp = lead;
        } else if ((lead & 0xE0) == 0xC0) {
            extra = 1;
            cp = lead & 0x1F;
        } else if ((lead & 0xF0) == 0xE0) {
            extra = 2;
            cp = lead & 0x0F;
        } else if ((lead & 0xF8) == 0xF0) {
            extra = 3;
            cp = lead & 0x07;
        } else {
            valid = false;
        }
        if (valid && extra > 0 && i + static_cast<std::size_t>(extra) >= utf8.size())
            valid = false;
        for (int k = 1; valid && k <= extra; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(k)]);
            if ((next & 0xC0) != 0x80)
                valid = false;
            cp = (cp << 6) | (next & 0x3F);
        }
        constexpr char32_t Smallest[] = {0, 0x80, 0x800, 0x10000};
        if (valid && cp < Smallest[extra]) // overlong forms are not valid UTF-8
            valid = false;
        const auto byte = valid ? ByteFor(cp) : std::nullopt;
        if (!byte) {
            if (!lossy)
                return std::nullopt;
            out += '?';
            i += valid ? 1 + static_cast<std::size_t>(extra) : 1;
            continue;
        }
        out += static_cast<char>(*byte);
        i += 1 + static_cast<std::size_t>(extra);
    }
    return out;
}

} // namespace

std::optional<std::string> FromUtf8(std::string_view utf8) {
    return Decode(utf8, false);
}

std::string FromUtf8Lossy(std::string_view utf8) {
    return *Decode(utf8, true);
}

} // namespace win1252
