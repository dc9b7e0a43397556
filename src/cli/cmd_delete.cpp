// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunDelete(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    modFunctions::DeleteProjectFolder(context.appDir, *project);
    if (!modFunctions::FindProject(context.appDir, *project).empty())
        return Failure(context, "the project \"" + args[0] + "\" could not be deleted completely");
    return Ok;
}

extern constinit const Command DeleteCommand{"delete", "NAME", "delete the project folder",
                                             RunDelete, Exactly(1)};

} // namespace cli
