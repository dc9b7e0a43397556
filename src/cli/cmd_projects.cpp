// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/win1252.h"

namespace cli {

int RunProjects(const Arguments&, Context& context) {
    std::vector<std::string> leftOut;
    PrintLines(context, modFunctions::ListProjects(context.appDir, &leftOut));
    for (const std::string& message : leftOut)
        context.err << "orrindel-cli: " << win1252::ToUtf8(message) << "\n";
    return Ok;
}

extern constinit const Command ProjectsCommand{
    "projects", "", "project names, one per line, sorted without regard to case", RunProjects,
    Exactly(0)};

} // namespace cli
