// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Folders: creating one, listing one, deleting files and whole trees. Deleting never follows
// a link (a symbolic link, or on Windows any reparse point such as a junction): a link is
// removed as a link, and nothing it points at changes.
#include "core/platformBasics.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Creates one folder; throws FileError when it exists already or cannot be made.
void CreateFolder(std::string_view path);
// Deletes a file (a link as the link); false when it could not be deleted (missing, a folder).
bool DeleteFile(std::string_view path) noexcept;
// Removes a folder that is empty; false when it is not, or could not be removed.
bool RemoveEmptyFolder(std::string_view path) noexcept;
// Deletes a folder with everything in it, read-only files included; errors are skipped.
// A link, at the top or inside, is removed as a link.
void DeleteFolderTree(std::string_view path) noexcept;

enum class EntryKind { Files, Folders };
// Names of the direct entries of a folder (unsorted), as Windows-1252; empty when it cannot
// be read. A name that is not UTF-8 or holds a character outside Windows-1252 is left out;
// when leftOut is given, it receives such names as they are on disk.
std::vector<std::string> ListFolder(std::string_view path, EntryKind kind,
                                    std::vector<std::string>* leftOut = nullptr);

} // namespace platform
