#include "cli/Command.h"
#include "core/modFunctions.h"

namespace cli {

int RunProjects(const Arguments& args, Context& context) {
    if (!args.empty())
        return UsageError(*FindCommand("projects"), context, "takes no arguments");
    for (const std::string& project : modFunctions::ListProjects(context.appDir)) {
        Print(context, project);
        context.out << "\n";
    }
    return Ok;
}

} // namespace cli
