// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/ProtocolLines.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "core/win1252.h"
#include "import/Import.h"

namespace cli {

// Imports each named library faction as the dialog's Import button does, protocol line
// included. A refused entry is reported and the others still go in.
int RunImport(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    const auto library = importer::ListOriginalFactions(importer::ReputationFolder(context.appDir));
    const std::string folder = modFunctions::ProjectPath(context.appDir, *project);
    int result = Ok;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const auto typed = ParseNickname(context, args[i]);
        if (!typed) {
            result = Failed;
            continue;
        }
        // The library's own spelling names the faction in the project.
        std::string nickname;
        for (const std::string& entry : library)
            if (names::EqualIgnoringCase(entry, *typed))
                nickname = entry;
        if (nickname.empty()) {
            result = Failure(context, "\"" + args[i] + "\" is not in the original faction library");
            continue;
        }
        try {
            importer::ImportOriginalFaction(context.appDir, nickname, folder);
        } catch (const importer::LibraryError& error) {
            result = Failure(context, win1252::ToUtf8(error.what()));
            continue;
        } catch (const std::exception& error) {
            result =
                Failure(context, win1252::ToUtf8(nickname) + " not imported, nothing written: " +
                                     win1252::ToUtf8(error.what()));
            continue;
        }
        modFunctions::WriteProtocol(context.appDir, *project, protocol::OriginalImported);
    }
    return result;
}

extern constinit const Command ImportCommand{
    "import", "PROJECT NICK...", "import library factions; \"Original imported...\" per faction",
    RunImport, AtLeast(2)};

} // namespace cli
