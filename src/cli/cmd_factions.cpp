// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/platform.h"

namespace cli {

int RunFactions(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    const std::string registry = modFunctions::RegistryPath(context.appDir, *project);
    if (!platform::IsFile(registry))
        return Ok; // a project without factions
    for (const auto& entry : modFunctions::LoadRegistry(registry)) {
        Print(context, entry.nickname + "\t" + entry.group);
        context.out << "\n";
    }
    return Ok;
}

extern constinit const Command FactionsCommand{
    "factions", "PROJECT", "registry in file order: nickname TAB group", RunFactions, Exactly(1)};

} // namespace cli
