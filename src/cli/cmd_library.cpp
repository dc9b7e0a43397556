#include "cli/Command.h"
#include "import/OriginalLibrary.h"

namespace cli {

int RunLibrary(const Arguments& args, Context& context) {
    if (!args.empty())
        return UsageError(*FindCommand("library"), context);
    for (const std::string& name :
         importer::ListOriginalFactions(importer::ReputationFolder(context.appDir))) {
        Print(context, name);
        context.out << "\n";
    }
    return Ok;
}

} // namespace cli
