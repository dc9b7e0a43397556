#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunDelete(const Arguments& args, Context& context) {
    if (args.size() != 1)
        return UsageError(*FindCommand("delete"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    modFunctions::DeleteProjectFolder(context.appDir, *project);
    if (!modFunctions::FindProject(context.appDir, *project).empty())
        return Failure(context, "the project \"" + args[0] + "\" could not be deleted completely");
    return Ok;
}

} // namespace cli
