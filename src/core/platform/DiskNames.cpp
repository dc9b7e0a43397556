// SPDX-License-Identifier: GPL-3.0-or-later
// How names from file contents stand on disk: the same on every system (UTF-8 inside the
// program; a Windows build turns it into UTF-16 only at its system calls).
#include "core/PathLookup.h"
#include "core/names.h"
#include "core/win1252.h"

#include <algorithm>

namespace platform {
namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

std::string DiskName(std::string_view name) {
    return IsAscii(name) ? std::string(name) : win1252::ToUtf8(name);
}

std::optional<std::string> NameFromDisk(std::string_view diskName) {
    if (IsAscii(diskName))
        return std::string(diskName);
    return win1252::FromUtf8(diskName);
}

std::string FoldedDiskName(std::string_view diskName) {
    if (const auto name = NameFromDisk(diskName))
        return names::Folded(*name);
    // A NUL byte never occurs in a name, so such a key equals no decoded one. (Appended, not
    // concatenated: GCC's -O3 reports a false overlap on the operator+ form.)
    return std::string(1, '\0').append(diskName);
}

} // namespace platform
