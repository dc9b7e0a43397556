// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "import/OriginalLibrary.h"

namespace cli {

int RunLibrary(const Arguments&, Context& context) {
    PrintLines(context, importer::ListOriginalFactions(importer::ReputationFolder(context.appDir)));
    return Ok;
}

extern constinit const Command LibraryCommand{
    "library", "", "the original faction library's entries, one per line", RunLibrary, Exactly(0)};

} // namespace cli
