#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunProtocol(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    Print(context, txtReadWrite::ReadFileText(modFunctions::ProjectPath(
                       context.appDir, *project, "\\protocol\\protocol.txt")));
    return Ok;
}

extern constinit const Command ProtocolCommand{
    "protocol", "NAME", "print the project's protocol file as it is", RunProtocol, Exactly(1)};

} // namespace cli
