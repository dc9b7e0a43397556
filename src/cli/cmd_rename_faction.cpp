#include "cli/Command.h"
#include "core/FactionEdits.h"

namespace cli {

int RunRenameFaction(const Arguments& args, Context& context) {
    if (args.size() != 3)
        return UsageError(*FindCommand("rename-faction"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    const auto oldName = FileText(context, args[1]);
    const auto newName = oldName ? FileText(context, args[2]) : std::nullopt;
    if (!newName)
        return Failed;
    factionEdits::RenameFaction(context.appDir, *project, *oldName, *newName);
    return Ok;
}

} // namespace cli
