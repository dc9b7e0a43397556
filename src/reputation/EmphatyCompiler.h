// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Builds the game's compiled\emphaty.ini from the event file and the empathy files: one
// "[RepChangeEffects]" block per faction, in the given faction order, with one
// "emphaty_rate" line per row other than the faction itself, in row order.
#include "core/Progress.h"

#include <string>
#include <vector>

namespace reputation {

// Progress: the factions are the outer count, the rows of each faction the inner one.
// The whole text of the output file, each file read once.
std::string EmphatyText(const std::string& projectFolder, const std::vector<std::string>& factions,
                        const std::vector<std::string>& rows,
                        const progress::Report& progress = {});

// Writes compiled\emphaty.ini in one crash-safe replacement; with no factions the old output is
// deleted and nothing is written. Throws platform::FileError, leaving the previous output.
void CompileEmphaty(const std::string& projectFolder, const std::vector<std::string>& factions,
                    const std::vector<std::string>& rows, const progress::Report& progress = {});

} // namespace reputation
