// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "compile/Compile.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/win1252.h"

namespace cli {
namespace {

// One game file: its name on the command line.
struct Compiler {
    std::string_view name;
    compile::GameFile file;
};

const std::vector<Compiler>& Compilers() {
    // In this order when no file is named.
    static const std::vector<Compiler> compilers = {
        {"emphaty", compile::GameFile::Emphaty},
        {"faction_prop", compile::GameFile::FactionProp},
        {"initialworld", compile::GameFile::InitialWorld},
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
    // The game files are independent of each other: they are compiled side by side.
    std::vector<compile::Job> jobs;
    for (const Compiler* compiler : chosen)
        jobs.push_back({compiler->file, folder, factions, factions});
    const auto failures = compile::RunTogether(jobs, [&](std::string_view line) {
        modFunctions::WriteProtocol(context.appDir, *project, line);
    });
    // Every failure is named, not only the first.
    int code = Ok;
    for (const std::exception_ptr& failure : failures) {
        try {
            std::rethrow_exception(failure);
        } catch (const std::exception& error) {
            code = Failure(context, win1252::ToUtf8(error.what()));
        }
    }
    return code;
}

extern constinit const Command CompileCommand{
    "compile", "PROJECT [emphaty|faction_prop|initialworld]...",
    "compile the project's game files (all when none is named)", RunCompile, AtLeast(1)};

} // namespace cli
