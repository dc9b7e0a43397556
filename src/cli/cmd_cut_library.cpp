#include "cli/Command.h"
#include "core/win1252.h"
#include "import/CutLibrary.h"

namespace cli {

int RunCutLibrary(const Arguments& args, Context& context) {
    const Command& command = *FindCommand("cut-library");
    std::optional<std::string> into;
    importer::CutSources sources;
    for (std::size_t i = 0; i < args.size(); i += 2) {
        if (i + 1 >= args.size())
            return UsageError(command, context, "\"" + args[i] + "\" needs a value");
        // A path is used as the system spells it.
        const std::string& path = args[i + 1];
        if (args[i] == "--into")
            into = path;
        else if (args[i] == "--emphaty")
            sources.emphaty = path;
        else if (args[i] == "--faction-prop")
            sources.factionProp = path;
        else if (args[i] == "--initialworld")
            sources.initialWorld = path;
        else
            return UsageError(command, context, "unknown option \"" + args[i] + "\"");
    }
    if (!into)
        return UsageError(command, context, "--into is required");
    if (!sources.emphaty && !sources.factionProp && !sources.initialWorld)
        return UsageError(command, context, "name at least one compiled file");
    try {
        const auto result = importer::CutLibrary(*into, sources);
        context.out << result.reputation.size() << " reputation, " << result.factionProp.size()
                    << " faction-property and " << result.initialWorld.size()
                    << " initial-world files written\n";
    } catch (const std::exception& error) {
        return Failure(context, "nothing written: " + win1252::ToUtf8(error.what()));
    }
    return Ok;
}

} // namespace cli
