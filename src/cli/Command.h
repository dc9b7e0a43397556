// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The command-line front end: one small file per command, each describing itself; one table
// lists them.
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <limits>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

struct Command;

struct Context {
    std::string appDir; // application directory as the system spells it ("/" path of the host)
    std::ostream& out;
    std::ostream& err;
    const Command& command; // the command being run, for its usage errors
};

// The command's own arguments, UTF-8 as given on the command line.
using Arguments = std::vector<std::string>;

// FoundErrors: the operation ran and found errors in what it judged (check).
enum ExitCode : int { Ok = 0, Usage = 1, Failed = 2, FoundErrors = 3 };

// How many arguments a command takes; checked before it runs.
struct ArgumentCount {
    std::size_t least = 0;
    std::size_t most = std::numeric_limits<std::size_t>::max();
};
constexpr ArgumentCount Exactly(std::size_t count) {
    return {count, count};
}
constexpr ArgumentCount AtLeast(std::size_t count) {
    return {count};
}
constexpr ArgumentCount Between(std::size_t least, std::size_t most) {
    return {least, most};
}
// For a command with options, which counts what is left after them itself.
inline constexpr ArgumentCount AnyCount{};

struct Command {
    std::string_view name;
    std::string_view arguments; // e.g. "PROJECT NICK [GROUP]"
    std::string_view summary;
    int (*run)(const Arguments&, Context&);
    ArgumentCount count;
};

// Every command, in the order --help lists them.
const std::vector<std::reference_wrapper<const Command>>& Commands();

// Runs the program on argv-style arguments (without the program name).
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// ---- what the commands print (Run.cpp) ----
// "usage: orrindel-cli COMMAND ARGS" and the summary, as --help and usage errors show them.
void WriteSynopsis(std::ostream& out, const Command& command);
// The message (if any) and the running command's synopsis on err; returns Usage.
int UsageError(Context& context, std::string_view message = {});
// "orrindel-cli: <message>" on err; returns Failed.
int Failure(Context& context, std::string_view message);
// Windows-1252 bytes printed as UTF-8.
void Print(Context& context, std::string_view bytes);
// Windows-1252 bytes printed as UTF-8, one per line.
void PrintLines(Context& context, const std::vector<std::string>& lines);

// ---- the checks of what they were given (Arguments.cpp) ----
// The value that follows the option at args[i], moving i onto it; nullopt (after a usage
// error) when the option is last.
std::optional<std::string> OptionValue(Context& context, const Arguments& args, std::size_t& i);
// The field an option names among (option, field) pairs; nullptr when it names none.
template <typename Field>
Field* Named(std::string_view option,
             std::initializer_list<std::pair<std::string_view, Field*>> fields) {
    for (const auto& [name, field] : fields)
        if (name == option)
            return field;
    return nullptr;
}
// A UTF-8 argument as Windows-1252 bytes; nullopt (after reporting) when it cannot be.
std::optional<std::string> FileText(Context& context, std::string_view utf8);
// A UTF-8 name checked by the name rule; nullopt (after reporting) when refused.
std::optional<std::string> CheckedName(Context& context, std::string_view utf8,
                                       std::string_view what);
// A faction nickname checked by the name rule; nullopt (after reporting) when refused.
std::optional<std::string> ParseNickname(Context& context, std::string_view utf8);
// The project named without regard to case, as spelled on disk; nullopt (after reporting).
std::optional<std::string> ParseProject(Context& context, std::string_view utf8Name);
// A faction named by "PROJECT NICK ...": the project as spelled on disk and the checked
// nickname; nullopt (after reporting) when either is refused.
struct FactionArgument {
    std::string project;
    std::string nickname;
};
std::optional<FactionArgument> ParseFaction(Context& context, const Arguments& args);

} // namespace cli
