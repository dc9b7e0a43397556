#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/win1252.h"

namespace cli {

int RunProjects(const Arguments& args, Context& context) {
    if (!args.empty())
        return UsageError(*FindCommand("projects"), context, "takes no arguments");
    std::vector<std::string> leftOut;
    for (const std::string& project : modFunctions::ListProjects(context.appDir, &leftOut)) {
        Print(context, project);
        context.out << "\n";
    }
    for (const std::string& message : leftOut)
        context.err << "orrindel-cli: " << win1252::ToUtf8(message) << "\n";
    return Ok;
}

} // namespace cli
