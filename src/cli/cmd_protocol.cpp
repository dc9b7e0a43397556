// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/ProjectLayout.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunProtocol(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    Print(context,
          txtReadWrite::ReadFileText(ProjectLayout::Of(context.appDir, *project).ProtocolFile()));
    return Ok;
}

extern constinit const Command ProtocolCommand{
    "protocol", "NAME", "print the project's protocol file as it is", RunProtocol, Exactly(1)};

} // namespace cli
