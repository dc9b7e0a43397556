// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/ApplicationFolder.h"
#include "core/BuildInfo.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "core/win1252.h"

#include <algorithm>
#include <ostream>

namespace cli {
namespace {

void PrintUsage(std::ostream& out) {
    out << "usage: orrindel-cli [--app-dir DIR] COMMAND ARGS\n"
           "       orrindel-cli COMMAND --help\n"
           "       orrindel-cli --version\n"
           "A \"--\" among the ARGS ends the options: what follows it is taken as it is.\n\n"
           "commands:\n";
    for (const Command& command : Commands()) {
        std::string head = "  " + std::string(command.name) + " " + std::string(command.arguments);
        if (head.size() < 36)
            head.resize(36, ' ');
        out << head << "  " << command.summary << "\n";
    }
}

} // namespace

void WriteSynopsis(std::ostream& out, const Command& command) {
    out << "usage: orrindel-cli " << command.name << " " << command.arguments << "\n  "
        << command.summary << "\n";
}

int UsageError(Context& context, std::string_view message) {
    if (!message.empty())
        context.err << "orrindel-cli " << context.command.name << ": " << message << "\n";
    WriteSynopsis(context.err, context.command);
    return Usage;
}

int Failure(Context& context, std::string_view message) {
    context.err << "orrindel-cli: " << message << "\n";
    return Failed;
}

void Print(Context& context, std::string_view bytes) {
    context.out << win1252::ToUtf8(bytes);
}

void PrintLines(Context& context, const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
        context.out << win1252::ToUtf8(line) << "\n";
}

int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::size_t i = 0;
    std::string appDir;
    if (i < args.size() && (args[i] == "--help" || args[i] == "-h")) {
        PrintUsage(out);
        return Ok;
    }
    if (i < args.size() && args[i] == "--version") {
        out << "orrindel-cli " << buildInfo::Version << "\n";
        return Ok;
    }
    if (i < args.size() && args[i] == "--app-dir") {
        if (i + 1 >= args.size()) {
            err << "orrindel-cli: --app-dir needs a folder\n";
            PrintUsage(err);
            return Usage;
        }
        appDir = args[i + 1];
        i += 2;
    }
    if (i >= args.size()) {
        PrintUsage(err);
        return Usage;
    }
    const auto found =
        std::find_if(Commands().begin(), Commands().end(),
                     [&](const Command& command) { return command.name == args[i]; });
    if (found == Commands().end()) {
        err << "orrindel-cli: unknown command \"" << args[i] << "\"\n";
        PrintUsage(err);
        return Usage;
    }
    const Command& command = *found;
    Arguments rest(args.begin() + static_cast<std::ptrdiff_t>(i) + 1, args.end());
    // "--" ends the options: it is dropped, and every argument after it is taken as it is.
    const auto end = std::find(rest.begin(), rest.end(), "--");
    if (std::find(rest.begin(), end, "--help") != end) {
        WriteSynopsis(out, command);
        return Ok;
    }
    if (end != rest.end())
        rest.erase(end);
    if (appDir.empty()) {
        const auto choice = applicationFolder::Choose(platform::ExecutableFolder());
        appDir = choice.folder;
        if (!choice.problem.empty())
            err << "orrindel-cli: " << choice.problem << "\n";
    }
    // The folder's path is used as the system gave it, never re-encoded.
    txtReadWrite::SetApplicationDirectory(appDir);
    Context context{appDir, out, err, command};
    try {
        modFunctions::EnsureProjectsFolder(context.appDir);
    } catch (const std::exception& error) {
        return Failure(context,
                       "cannot create the projects folder: " + win1252::ToUtf8(error.what()));
    }
    if (rest.size() < command.count.least || rest.size() > command.count.most)
        return UsageError(context, command.count.most == 0 ? "takes no arguments" : "");
    try {
        return command.run(rest, context);
    } catch (const std::exception& error) {
        return Failure(context, win1252::ToUtf8(error.what()));
    }
}

} // namespace cli
