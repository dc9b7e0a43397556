#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunProtocol(const Arguments& args, Context& context) {
    if (args.size() != 1)
        return UsageError(*FindCommand("protocol"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    Print(context, txtReadWrite::ReadFileText(modFunctions::ProjectPath(
                       context.appDir, *project, "\\protocol\\protocol.txt")));
    return Ok;
}

} // namespace cli
