// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Paths for std::filesystem and the standard streams. Inside the program a path is UTF-8;
// Windows reads a narrow path in its ANSI code page, so there it must be handed over wide.
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

// A host path (UTF-8) as the standard library takes it on this system.
std::filesystem::path NativePath(std::string_view hostPath);
// The reverse: a standard library path as a UTF-8 host path.
std::string PathText(const std::filesystem::path& path);

} // namespace platform
