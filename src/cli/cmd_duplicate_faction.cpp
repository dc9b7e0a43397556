// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/FactionEdits.h"

#include <algorithm>

namespace cli {

int RunDuplicateFaction(const Arguments& given, Context& context) {
    Arguments args = given;
    const auto option = std::find(args.begin(), args.end(), "--no-relations");
    const auto relations =
        option == args.end() ? factionEdits::Relations::Copied : factionEdits::Relations::Left;
    if (option != args.end())
        args.erase(option);
    if (args.size() < 3 || args.size() > 4 ||
        std::any_of(args.begin(), args.end(),
                    [](const std::string& arg) { return arg.starts_with("--"); }))
        return UsageError(context);
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    const auto source = FileText(context, args[1]);
    const auto newName = source ? FileText(context, args[2]) : std::nullopt;
    const auto group = newName && args.size() == 4 ? FileText(context, args[3]) : std::nullopt;
    if (!newName || (args.size() == 4 && !group))
        return Failed;
    factionEdits::DuplicateFaction(context.appDir, *project, *source, *newName,
                                   group ? std::optional<std::string_view>(*group) : std::nullopt,
                                   relations);
    return Ok;
}

extern constinit const Command DuplicateFactionCommand{
    "duplicate-faction", "PROJECT SOURCE NEW [GROUP] [--no-relations]",
    "copy a faction under a new nickname; the others' rates toward it follow unless "
    "--no-relations",
    RunDuplicateFaction, AnyCount};

} // namespace cli
