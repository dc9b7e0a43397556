#pragma once
// The command-line front end: one small file per command, found through one table.
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

struct Context {
    std::string appDir; // application directory as the system spells it ("/" path of the host)
    std::ostream& out;
    std::ostream& err;
};

// The command's own arguments, UTF-8 as given on the command line.
using Arguments = std::vector<std::string>;

enum ExitCode : int { Ok = 0, Usage = 1, Failed = 2 };

struct Command {
    std::string_view name;
    std::string_view arguments; // e.g. "PROJECT NICK [GROUP]"
    std::string_view summary;
    int (*run)(const Arguments&, Context&);
};

// Every command, in the order --help lists them.
const std::vector<Command>& Commands();
const Command* FindCommand(std::string_view name);

// Runs the program on argv-style arguments (without the program name).
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// ---- helpers shared by the commands ----
// Prints "usage: orrindel-cli COMMAND ARGS" and the summary to err; returns Usage.
int UsageError(const Command& command, Context& context, std::string_view message = {});
// "orrindel-cli: <message>" on err; returns Failed.
int Failure(Context& context, std::string_view message);
// A UTF-8 argument as Windows-1252 bytes; nullopt (after reporting) when it cannot be.
std::optional<std::string> FileText(Context& context, std::string_view utf8);
// A UTF-8 name checked by the name rule; nullopt (after reporting) when refused.
std::optional<std::string> CheckedName(Context& context, std::string_view utf8,
                                       std::string_view what);
// Windows-1252 bytes printed as UTF-8.
void Print(Context& context, std::string_view bytes);
// The project named without regard to case, as spelled on disk; nullopt (after reporting).
std::optional<std::string> ExistingProject(Context& context, std::string_view utf8Name);

} // namespace cli
