#include "check/ProjectCheck.h"
#include "cli/Command.h"

namespace cli {

// Exit status 3: the check ran and found at least one error.
constexpr int FoundErrors = 3;

int RunCheck(const Arguments& args, Context& context) {
    const Command& command = *FindCommand("check");
    std::string format = "text";
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--format") {
            if (i + 1 >= args.size())
                return UsageError(command, context, "--format needs text or json");
            format = args[++i];
        } else {
            rest.push_back(args[i]);
        }
    }
    if (rest.size() != 1)
        return UsageError(command, context);
    if (format != "text" && format != "json")
        return UsageError(command, context, "unknown format \"" + format + "\"");
    const auto project = ExistingProject(context, rest[0]);
    if (!project)
        return Failed;
    const auto findings = check::CheckProject(context.appDir, *project);
    Print(context, format == "json" ? check::JsonReport(findings) : check::TextReport(findings));
    return check::HasError(findings) ? FoundErrors : Ok;
}

} // namespace cli
