#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunRemoveFaction(const Arguments& args, Context& context) {
    if (args.size() != 2)
        return UsageError(*FindCommand("remove-faction"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    const auto nickname = CheckedName(context, args[1], "nickname");
    if (!nickname)
        return Failed;
    const std::string registry = modFunctions::RegistryPath(context.appDir, *project);
    for (const auto& entry : modFunctions::LoadRegistry(registry)) {
        if (entry.nickname == *nickname) {
            modFunctions::DeleteFaction(context.appDir, *project, entry.nickname, entry.group);
            return Ok;
        }
    }
    return Failure(context, "the faction \"" + args[1] + "\" is not registered in project \"" +
                                args[0] + "\"");
}

} // namespace cli
