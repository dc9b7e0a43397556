// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunRemoveFaction(const Arguments& args, Context& context) {
    const auto faction = ParseFaction(context, args);
    if (!faction)
        return Failed;
    const std::string registry = modFunctions::RegistryPath(context.appDir, faction->project);
    for (const auto& entry : modFunctions::LoadRegistry(registry)) {
        if (entry.nickname == faction->nickname) {
            modFunctions::DeleteFaction(context.appDir, faction->project, entry.nickname,
                                        entry.group);
            return Ok;
        }
    }
    return Failure(context, "the faction \"" + args[1] + "\" is not registered in project \"" +
                                args[0] + "\"");
}

extern constinit const Command RemoveFactionCommand{"remove-faction", "PROJECT NICK",
                                                    "delete a registered faction and its files",
                                                    RunRemoveFaction, Exactly(2)};

} // namespace cli
