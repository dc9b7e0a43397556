#include "cli/Command.h"
#include "core/ProtocolLines.h"
#include "core/RunTogether.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/win1252.h"
#include "factionprops/FactionPropCompiler.h"
#include "initialworld/InitialWorldCompiler.h"
#include "reputation/EmphatyCompiler.h"

#include <functional>

namespace cli {
namespace {

// One game file: its name on the command line, how to build it from the project folder and
// the registry's faction order, and the protocol line that follows a successful compile.
struct Compiler {
    std::string_view name;
    std::function<void(const std::string& projectFolder, const std::vector<std::string>& factions)>
        compile;
    std::string_view protocolLine;
};

const std::vector<Compiler>& Compilers() {
    // In this order when no file is named.
    static const std::vector<Compiler> compilers = {
        {"emphaty",
         [](const std::string& folder, const std::vector<std::string>& factions) {
             reputation::CompileEmphaty(folder, factions, factions);
         },
         protocol::EmphatyCompiled},
        {"faction_prop",
         [](const std::string& folder, const std::vector<std::string>& factions) {
             factionprops::CompileFactionProp(folder, factions);
         },
         protocol::FactionPropCompiled},
        {"initialworld",
         [](const std::string& folder, const std::vector<std::string>& factions) {
             initialworld::CompileInitialWorld(folder, factions, factions);
         },
         protocol::InitialWorldCompiled},
    };
    return compilers;
}

} // namespace

int RunCompile(const Arguments& args, Context& context) {
    const auto project = ParseProject(context, args[0]);
    if (!project)
        return Failed;
    std::vector<const Compiler*> chosen;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const Compiler* found = nullptr;
        for (const Compiler& compiler : Compilers())
            if (compiler.name == args[i])
                found = &compiler;
        if (!found)
            return UsageError(context, "unknown game file \"" + args[i] + "\"");
        chosen.push_back(found);
    }
    if (chosen.empty())
        for (const Compiler& compiler : Compilers())
            chosen.push_back(&compiler);
    const std::string folder = modFunctions::ProjectPath(context.appDir, *project);
    const auto factions =
        modFunctions::RegistryNicknames(modFunctions::RegistryPath(context.appDir, *project));
    for (const std::string& nickname : factions)
        names::Require(nickname, "The registry's nickname");
    // The game files are independent of each other: they are compiled side by side. Each
    // one compiled gets its protocol line, in the usual order, before a failure is reported.
    std::vector<std::function<void()>> jobs;
    for (const Compiler* compiler : chosen)
        jobs.emplace_back([compiler, &folder, &factions] { compiler->compile(folder, factions); });
    const auto failures = together::Run(jobs);
    for (std::size_t i = 0; i < chosen.size(); ++i)
        if (!failures[i])
            modFunctions::WriteProtocol(context.appDir, *project, chosen[i]->protocolLine);
    // Every game file that failed is told, not just the first.
    int result = Ok;
    for (const std::exception_ptr& failure : failures) {
        if (!failure)
            continue;
        try {
            std::rethrow_exception(failure);
        } catch (const std::exception& error) {
            result = Failure(context, win1252::ToUtf8(error.what()));
        }
    }
    return result;
}

extern constinit const Command CompileCommand{
    "compile", "PROJECT [emphaty|faction_prop|initialworld]...",
    "compile the project's game files (all when none is named)", RunCompile, AtLeast(1)};

} // namespace cli
