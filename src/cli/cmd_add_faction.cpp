// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunAddFaction(const Arguments& args, Context& context) {
    const auto faction = ParseFaction(context, args);
    if (!faction)
        return Failed;
    const auto group = FileText(context, args.size() == 3 ? args[2] : std::string());
    if (!group)
        return Failed;
    modFunctions::SaveFaction(context.appDir, faction->project, faction->nickname, *group);
    return Ok;
}

extern constinit const Command AddFactionCommand{"add-faction", "PROJECT NICK [GROUP]",
                                                 "add a faction or change its group", RunAddFaction,
                                                 Between(2, 3)};

} // namespace cli
