// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/FactionEdits.h"

namespace cli {

int RunRenameFaction(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    const auto oldName = FileText(context, args[1]);
    const auto newName = oldName ? FileText(context, args[2]) : std::nullopt;
    if (!newName)
        return Failed;
    factionEdits::RenameFaction(context.appDir, *project, *oldName, *newName);
    return Ok;
}

extern constinit const Command RenameFactionCommand{
    "rename-faction", "PROJECT OLD NEW",
    "rename a faction in every file of the project that names it", RunRenameFaction, Exactly(3)};

} // namespace cli
