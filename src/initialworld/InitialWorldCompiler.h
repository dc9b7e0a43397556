// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Builds compiled\initialworld.ini: the comment block, then one "[Group]" section per
// faction with its IDS values and a reputation line toward every row faction.
#include "core/Progress.h"

#include <string>
#include <string_view>
#include <vector>

class IniDocument;

namespace initialworld {

// Progress: the factions are the outer count, the rows of each faction the inner one.
// The whole file as it is written (without the line end that the file writer adds).
std::string CompiledText(const IniDocument& data, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows,
                         const progress::Report& progress = {});

// Reads the project's initial-world file once and replaces the compiled file in one step;
// a failure leaves the previous output as it was. Throws platform::FileError.
void CompileInitialWorld(std::string_view projectFolder, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows,
                         const progress::Report& progress = {});

} // namespace initialworld
