// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/ProtocolLines.h"
#include "core/modFunctions.h"

namespace cli {

int RunCreate(const Arguments& args, Context& context) {
    const auto name = CheckedName(context, args[0], "project name");
    if (!name)
        return Failed;
    if (!modFunctions::FindProject(context.appDir, *name).empty())
        return Failure(context, "a project \"" + args[0] + "\" exists already");
    try {
        modFunctions::CreateProjectFolders(context.appDir, *name);
        modFunctions::WriteProtocol(context.appDir, *name, protocol::ProjectCreated);
    } catch (...) {
        // A failed command leaves nothing behind: the project did not exist before.
        modFunctions::DeleteProjectFolder(context.appDir, *name);
        throw;
    }
    return Ok;
}

extern constinit const Command CreateCommand{
    "create", "NAME", "create a project; \"Project created.\" goes to its own protocol", RunCreate,
    Exactly(1)};

} // namespace cli
