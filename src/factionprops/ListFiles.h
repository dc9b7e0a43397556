// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The five pick lists of a faction, each kept whole in its list file (ProjectLayout), one
// entry per line. Names are found on disk without regard to letter case.
#include "core/ProjectLayout.h"

#include <string>
#include <string_view>
#include <vector>

namespace factionprops {

using ::AllPickLists;
using ::PickList;

// The list file of a faction in the project <app dir>\projects\<project>.
std::string ListFilePath(std::string_view appDir, std::string_view project, PickList list,
                         std::string_view nickname);

// The entries as the file holds them: each followed by CR LF (the writer adds one more).
std::string ListFileText(const std::vector<std::string>& entries);
// Replaces the whole file. Throws platform::FileError.
void WriteListFile(const std::string& path, const std::vector<std::string>& entries);
// The non-empty lines of the file; empty when it is missing or cannot be read.
std::vector<std::string> ReadListFile(const std::string& path);

// The two-part entries the page builds: "<head>, <body>, <accessory>" and "<class>, <formation>".
std::string BodypartEntry(std::string_view head, std::string_view body, std::string_view accessory);
std::string FormationEntry(std::string_view formationClass, std::string_view formation);

} // namespace factionprops
