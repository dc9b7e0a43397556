// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one place where window text (QString) and file text (Windows-1252 bytes) meet.
#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace text {
QString ToQt(std::string_view bytes);
// Characters outside Windows-1252 become "?", as the platform's own conversion does.
std::string ToFile(const QString& text);
// nullopt when a character is outside Windows-1252 (for names, which must be exact).
std::optional<std::string> ToFileExact(const QString& text);
// A path of the core ("...\\projects\\P\\misc\\factions.ini") as the user's system writes paths.
QString NativePath(std::string_view path);
// A path the user gave as the core takes it: in the file system's encoding on POSIX, in UTF-8
// on Windows (where Qt's 8-bit file names are the ANSI code page, which cannot spell every
// name). DiskText: the way back, for a path or a message of the core.
std::string CorePath(const QString& path);
QString DiskText(std::string_view coreText);
} // namespace text
