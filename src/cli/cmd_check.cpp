// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/ProjectCheck.h"
#include "cli/Command.h"

namespace cli {

int RunCheck(const Arguments& args, Context& context) {
    std::string format = "text";
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--format") {
            if (i + 1 >= args.size())
                return UsageError(context, "--format needs text or json");
            format = args[++i];
        } else {
            rest.push_back(args[i]);
        }
    }
    if (rest.size() != 1)
        return UsageError(context);
    if (format != "text" && format != "json")
        return UsageError(context, "unknown format \"" + format + "\"");
    const auto project = ParseProject(context, rest[0]);
    if (!project)
        return Failed;
    const auto findings = check::CheckProject(context.appDir, *project);
    Print(context, format == "json" ? check::JsonReport(findings) : check::TextReport(findings));
    return check::HasError(findings) ? FoundErrors : Ok;
}

extern constinit const Command CheckCommand{
    "check", "PROJECT [--format text|json]",
    "report what looks wrong; exit 3 when an error is found", RunCheck, AnyCount};

} // namespace cli
