// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/win1252.h"
#include "import/CutLibrary.h"

namespace cli {

int RunCutLibrary(const Arguments& args, Context& context) {
    std::optional<std::string> into;
    importer::CutSources sources;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& option = args[i];
        auto* path =
            Named<std::optional<std::string>>(option, {{"--into", &into},
                                                       {"--emphaty", &sources.emphaty},
                                                       {"--faction-prop", &sources.factionProp},
                                                       {"--initialworld", &sources.initialWorld}});
        if (!path)
            return UsageError(context, "unknown option \"" + option + "\"");
        // A path is used as the system spells it.
        *path = OptionValue(context, args, i);
        if (!*path)
            return Usage;
    }
    if (!into)
        return UsageError(context, "--into is required");
    if (!sources.emphaty && !sources.factionProp && !sources.initialWorld)
        return UsageError(context, "name at least one compiled file");
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

extern constinit const Command CutLibraryCommand{
    "cut-library", "--into LIBDIR [--emphaty F] [--faction-prop F] [--initialworld F]",
    "cut library entries from compiled game files", RunCutLibrary, AnyCount};

} // namespace cli
