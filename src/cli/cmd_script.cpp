// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "script/XmlScript.h"

#include <optional>

namespace cli {

int RunScript(const Arguments& args, Context& context) {
    bool withHeader = false;
    script::ScriptHeader header;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        if (option == "--header") {
            withHeader = true;
            continue;
        }
        std::string* field =
            Named<std::string>(option, {{"--name", &header.name},
                                        {"--script-version", &header.scriptVersion},
                                        {"--url", &header.modUrl},
                                        {"--author", &header.author},
                                        {"--description", &header.description}});
        if (!field)
            return UsageError(context, "unknown argument \"" + option + "\"");
        const auto typed = OptionValue(context, args, i);
        if (!typed)
            return Usage;
        const auto value = FileText(context, *typed);
        if (!value)
            return Failed;
        *field = *value;
    }
    Print(context, script::BuildScript(withHeader ? &header : nullptr));
    return Ok;
}

extern constinit const Command ScriptCommand{
    "script", "[--header] [--name N] [--script-version V] [--url U] [--author A] [--description D]",
    "print the mod manager's install script (header fields count with --header)", RunScript,
    AnyCount};

} // namespace cli
