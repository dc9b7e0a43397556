// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Cutting a library from game files in the compiled form: every block of a compiled file is
// already a valid library file, so a modder can turn the files of a modded game into a
// library of their own.
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace importer {

// A block that cannot become a library file (no name, a refused name, a name given twice).
class CutError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct CutSources {
    std::optional<std::string> emphaty;      // blocks "[RepChangeEffects]", named by `group`
    std::optional<std::string> factionProp;  // blocks "[FactionProps]", named by `affiliation`
    std::optional<std::string> initialWorld; // blocks "[Group]", named by `nickname`
};

struct CutResult {
    // The names written into each folder, in the order of their blocks.
    std::vector<std::string> reputation;
    std::vector<std::string> factionProp;
    std::vector<std::string> initialWorld;
};

// One block of a compiled file: its name and its lines, without the empty lines that only
// separate it from the next block.
struct CutBlock {
    std::string name;
    std::vector<std::string> lines;
};
// Splits the text at every line that is exactly header; lines before the first block are
// skipped. The name is the block's value of key (blanks around it removed).
std::vector<CutBlock> CutBlocks(std::string_view text, std::string_view header,
                                std::string_view key);

// Writes the blocks of the given files as library entries under libraryRoot (a folder laid
// out like <app dir>\data: emphaty\original_factions and its siblings, created when missing).
// Every block is checked first; on any fault CutError is thrown and nothing is written.
// Each entry's lines are written as they stand, each ended by CR LF.
CutResult CutLibrary(const std::string& libraryRoot, const CutSources& sources);

} // namespace importer
