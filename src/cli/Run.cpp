#include "cli/Command.h"
#include "core/ApplicationFolder.h"
#include "core/BuildInfo.h"
#include "core/modFunctions.h"
#include "core/names.h"
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

const Command* FindCommand(std::string_view name) {
    for (const Command& command : Commands())
        if (command.name == name)
            return &command;
    return nullptr;
}

int UsageError(const Command& command, Context& context, std::string_view message) {
    if (!message.empty())
        context.err << "orrindel-cli " << command.name << ": " << message << "\n";
    context.err << "usage: orrindel-cli " << command.name << " " << command.arguments << "\n  "
                << command.summary << "\n";
    return Usage;
}

int Failure(Context& context, std::string_view message) {
    context.err << "orrindel-cli: " << message << "\n";
    return Failed;
}

std::optional<std::string> FileText(Context& context, std::string_view utf8) {
    auto bytes = win1252::FromUtf8(utf8);
    if (!bytes) {
        // Appended rather than "\"" + ...: GCC 12 at -O3 warns falsely (-Wrestrict) on that.
        Failure(context,
                std::string("\"").append(utf8).append("\" holds a character outside Windows-1252"));
    }
    return bytes;
}

std::optional<std::string> CheckedName(Context& context, std::string_view utf8,
                                       std::string_view what) {
    auto bytes = FileText(context, utf8);
    if (!bytes)
        return std::nullopt;
    if (const auto reason = names::Refusal(*bytes)) {
        Failure(context,
                std::string(what) + " \"" + std::string(utf8) + "\" is refused: " + *reason);
        return std::nullopt;
    }
    return bytes;
}

std::optional<std::string> ExistingProject(Context& context, std::string_view utf8Name) {
    auto name = CheckedName(context, utf8Name, "project name");
    if (!name)
        return std::nullopt;
    std::string found = modFunctions::FindProject(context.appDir, *name);
    if (found.empty()) {
        Failure(context, "no project \"" + std::string(utf8Name) + "\" in " +
                             platform::HostPath(modFunctions::ProjectsFolder(context.appDir)));
        return std::nullopt;
    }
    return found;
}

void Print(Context& context, std::string_view bytes) {
    context.out << win1252::ToUtf8(bytes);
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
    const Command* command = FindCommand(args[i]);
    if (!command) {
        err << "orrindel-cli: unknown command \"" << args[i] << "\"\n";
        PrintUsage(err);
        return Usage;
    }
    Arguments rest(args.begin() + static_cast<std::ptrdiff_t>(i) + 1, args.end());
    // "--" ends the options: it is dropped, and every argument after it is taken as it is.
    const auto end = std::find(rest.begin(), rest.end(), "--");
    if (std::find(rest.begin(), end, "--help") != end) {
        out << "usage: orrindel-cli " << command->name << " " << command->arguments << "\n  "
            << command->summary << "\n";
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
    Context context{appDir, out, err};
    try {
        modFunctions::EnsureProjectsFolder(context.appDir);
    } catch (const std::exception& error) {
        return Failure(context,
                       "cannot create the projects folder: " + win1252::ToUtf8(error.what()));
    }
    try {
        return command->run(rest, context);
    } catch (const std::exception& error) {
        return Failure(context, win1252::ToUtf8(error.what()));
    }
}

} // namespace cli
