#include "cli/Command.h"
#include "script/XmlScript.h"

#include <optional>

namespace cli {

int RunScript(const Arguments& args, Context& context) {
    const Command& command = *FindCommand("script");
    bool withHeader = false;
    script::ScriptHeader header;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        if (option == "--header") {
            withHeader = true;
            continue;
        }
        std::string* field = option == "--name"             ? &header.name
                             : option == "--script-version" ? &header.scriptVersion
                             : option == "--url"            ? &header.modUrl
                             : option == "--author"         ? &header.author
                             : option == "--description"    ? &header.description
                                                            : nullptr;
        if (!field)
            return UsageError(command, context, "unknown argument \"" + option + "\"");
        if (i + 1 >= args.size())
            return UsageError(command, context, option + " needs a value");
        const auto value = FileText(context, args[++i]);
        if (!value)
            return Failed;
        *field = *value;
    }
    Print(context, script::BuildScript(withHeader ? &header : nullptr));
    return Ok;
}

} // namespace cli
