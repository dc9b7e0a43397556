// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Copying library factions into a project: one faction (the import dialog, `import`) or the
// whole library (`import-all`). Every entry is read and checked completely before anything
// is written, and the writes of one run reach the disk together or not at all.
#include "core/Progress.h"
#include "core/txtReadWrite.h"
#include "import/OriginalLibrary.h"

#include <string>
#include <string_view>
#include <vector>

namespace importer {

// The three files of one library entry, read and checked.
struct OriginalFaction {
    std::string nickname;
    OriginalReputation reputation;
    OriginalFactionProps props;
    OriginalInitialWorld world;
};

// Reads the entry named nickname from the three library folders of appDir. Throws
// LibraryError for a refused name, a missing file or a malformed line.
OriginalFaction ReadOriginalFaction(std::string_view appDir, std::string_view nickname);

// Reads, checks and imports one faction. Throws LibraryError (nothing written),
// IniWriteError or platform::FileError (nothing written either).
void ImportOriginalFaction(std::string_view appDir, std::string_view nickname,
                           const std::string& projectFolder);

struct ImportAllResult {
    std::vector<std::string> imported; // nicknames, in list order
    // In list order, then the names that only the other two folders hold.
    std::vector<LibraryError> refused;
};

// Imports every library entry (the reputation folder's list, each entry's files paired by
// name) into the project. Every entry is checked first; refused ones are skipped and
// returned. The good ones are written in one transaction. Progress counts the entries (outer):
// once before the first, then after each one, refused ones included.
ImportAllResult ImportAllOriginalFactions(std::string_view appDir, const std::string& projectFolder,
                                          const progress::Report& progress = {});

} // namespace importer
