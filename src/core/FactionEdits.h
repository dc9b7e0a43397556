// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A faction as a whole: renamed, or copied under a new nickname, with every file of the project
// that names it following. Each is one staged commit: every file changes, or none does.
#include "core/FileReplacement.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace factionEdits {

// A rename or duplicate that was not done, and why. No byte of the project changed.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Renames the registered faction oldName (found without regard to case) to newName. Every
// section header naming it (any case) in the registry, the three grp.ini files and every
// reps_*.facts, and every starting-reputation key naming it, is spelled newName in place; its
// own files take the new name and keep the rest of their name as spelled on disk. The protocol
// and the compiled files stay. Returns the nickname as it was registered. Throws Refused when
// the faction is unknown, newName fails the names rule, is registered as another faction or
// still named by the leftovers of a deleted one; platform::FileError when the commit fails.
std::string RenameFaction(std::string_view appDir, std::string_view project,
                          std::string_view oldName, std::string_view newName);

enum class Relations {
    Copied, // every other faction's rates toward the source are given toward the copy too
    Left,   // the other factions are not touched
};

// Registers newName last, with the source's group or the given one, and gives it the source's
// own values: event values, empathy rates, property sheet, list files, IDS keys and starting
// reputations (a value the source lacks stays absent). Toward each other the two hold what the
// source holds toward itself. Refusals and failures as RenameFaction's.
void DuplicateFaction(std::string_view appDir, std::string_view project, std::string_view source,
                      std::string_view newName, std::optional<std::string_view> group,
                      Relations relations);

} // namespace factionEdits
