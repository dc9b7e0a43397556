// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/win1252.h"
#include "matrix/ReputationMatrix.h"

namespace cli {

int RunMatrix(const Arguments& args, Context& context) {
    bool csv = false;
    Arguments positional;
    for (const std::string& arg : args) {
        if (arg == "--csv")
            csv = true;
        else
            positional.push_back(arg);
    }
    if (positional.size() != 2)
        return UsageError(context);
    const auto store = matrix::StoreNamed(positional[1]);
    if (!store)
        return UsageError(context, "unknown store \"" + positional[1] + "\"");
    const auto project = ParseProject(context, positional[0]);
    if (!project)
        return Failed;
    auto usable =
        modFunctions::RegistryNicknames(modFunctions::RegistryPath(context.appDir, *project));
    // Nicknames become file names: the window leaves refused ones out, so does this.
    for (const auto& [nickname, reason] : modFunctions::LeaveOutRefused(usable))
        context.err << "orrindel-cli matrix: left out \"" << win1252::ToUtf8(nickname)
                    << "\": " << reason << "\n";
    const auto loaded =
        matrix::Load(*store, modFunctions::ProjectPath(context.appDir, *project), usable);
    std::vector<std::size_t> all(usable.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = i;
    context.out << matrix::Formatted(loaded, all, csv ? matrix::Format::Csv : matrix::Format::Tabs);
    return Ok;
}

extern constinit const Command MatrixCommand{
    "matrix", "PROJECT emphaty|initialworld [--csv]",
    "every faction's reputation toward every faction, tab-separated or CSV", RunMatrix, AnyCount};

} // namespace cli
