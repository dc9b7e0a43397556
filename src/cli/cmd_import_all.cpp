// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/win1252.h"
#include "import/Import.h"

namespace cli {

// Imports the whole library in one run; refused entries are named on stderr afterwards.
int RunImportAll(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    importer::ImportAllResult result;
    try {
        result = importer::ImportAllOriginalFactions(
            context.appDir, modFunctions::ProjectPath(context.appDir, *project));
    } catch (const std::exception& error) {
        return Failure(context, "nothing imported: " + win1252::ToUtf8(error.what()));
    }
    context.out << result.imported.size() << " factions imported\n";
    for (const importer::LibraryError& refused : result.refused)
        Failure(context, "refused: " + win1252::ToUtf8(refused.what()));
    return result.refused.empty() ? Ok : Failed;
}

extern constinit const Command ImportAllCommand{
    "import-all", "PROJECT", "import the whole library; refused entries on stderr", RunImportAll,
    Exactly(1)};

} // namespace cli
