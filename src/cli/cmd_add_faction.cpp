#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunAddFaction(const Arguments& args, Context& context) {
    if (args.size() < 2 || args.size() > 3)
        return UsageError(*FindCommand("add-faction"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    const auto nickname = CheckedName(context, args[1], "nickname");
    if (!nickname)
        return Failed;
    const auto group = FileText(context, args.size() == 3 ? args[2] : std::string());
    if (!group)
        return Failed;
    modFunctions::SaveFaction(context.appDir, *project, *nickname, *group);
    return Ok;
}

} // namespace cli
