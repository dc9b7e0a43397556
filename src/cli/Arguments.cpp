// SPDX-License-Identifier: GPL-3.0-or-later
// The checks the commands share for what they were given.
#include "cli/Command.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/win1252.h"

namespace cli {

std::optional<std::string> OptionValue(Context& context, const Arguments& args, std::size_t& i) {
    if (i + 1 >= args.size()) {
        UsageError(context, args[i] + " needs a value");
        return std::nullopt;
    }
    return args[++i];
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

std::optional<std::string> ParseNickname(Context& context, std::string_view utf8) {
    return CheckedName(context, utf8, "nickname");
}

std::optional<std::string> ParseProject(Context& context, std::string_view utf8Name) {
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

std::optional<FactionArgument> ParseFaction(Context& context, const Arguments& args) {
    auto project = ParseProject(context, args.at(0));
    if (!project)
        return std::nullopt;
    auto nickname = ParseNickname(context, args.at(1));
    if (!nickname)
        return std::nullopt;
    return FactionArgument{std::move(*project), std::move(*nickname)};
}

} // namespace cli
