// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Joins every faction's property sheet and pick lists into the game's faction_prop.ini.
#include "core/Progress.h"

#include <string>
#include <vector>

namespace factionprops {

// The text of faction_prop.ini (without the final CR LF the writer adds): one
// [FactionProps] block per faction, in the given order, each followed by an empty line.
// projectFolder is "<app dir>\projects\<project>". Progress counts factions (outer) only.
std::string FactionPropText(const std::string& projectFolder,
                            const std::vector<std::string>& factions,
                            const progress::Report& progress = {});

// Builds the text and replaces the compiled file once; on failure the previous file stays.
// Throws platform::FileError when the file cannot be written.
void CompileFactionProp(const std::string& projectFolder, const std::vector<std::string>& factions,
                        const progress::Report& progress = {});

} // namespace factionprops
