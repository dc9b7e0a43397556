#include "cli/Command.h"
#include "core/ProjectLayout.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunProtocol(const Arguments& args, Context& context) {
    if (args.size() != 1)
        return UsageError(*FindCommand("protocol"), context);
    const auto project = ExistingProject(context, args[0]);
    if (!project)
        return Failed;
    Print(context,
          txtReadWrite::ReadFileText(ProjectLayout::Of(context.appDir, *project).ProtocolFile()));
    return Ok;
}

} // namespace cli
