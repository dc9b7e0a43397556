// SPDX-License-Identifier: GPL-3.0-or-later
// The registry (misc\factions.ini): which factions are usable, and so looked up by every
// other rule.
#include "check/Inspection.h"
#include "core/modFunctions.h"
#include "core/names.h"

namespace check {
namespace {
constexpr std::string_view MissingGroup = "[ERROR]";
} // namespace

void CheckRegistry(Inspection& inspection) {
    constexpr std::string_view file = layout::RegistryFile;
    const auto bytes = inspection.Read(Store::Registry, {}, file);
    if (!bytes)
        return;
    const IniDocument document(*bytes);
    for (const auto& entry : modFunctions::ParseRegistry(*bytes, document)) {
        const std::string& nick = entry.nickname;
        if (const auto reason = names::Refusal(nick)) {
            inspection.Add(Severity::Error, Store::Registry, nick, file, Where(nick), {},
                           "The nickname cannot name files (" + *reason +
                               "); the editor leaves the faction out.");
            continue;
        }
        if (const auto first = inspection.IndexOf(nick)) {
            const std::string& spelling = inspection.Factions()[*first];
            inspection.Add(Severity::Error, Store::Registry, nick, file, Where(nick), {},
                           spelling == nick
                               ? "The faction is registered twice, so it compiles twice."
                               : "The nickname differs from " + Quoted(spelling) +
                                     " only in letter case; both name the same sections and "
                                     "files.");
            continue;
        }
        inspection.Register(nick);
        if (names::EqualIgnoringCase(entry.group, MissingGroup)) {
            const auto stored = document.Stored(nick, "grp");
            inspection.Add(
                Severity::Warning, Store::Registry, nick, file, Where(nick, "grp"),
                stored.value_or(""),
                stored ? "The group is the placeholder " + Quoted(*stored) +
                             " of an import whose library entry had none."
                       : std::string("The faction has no group; it is listed as \"[ERROR]\"."));
        }
    }
    document.ForEachValue([&](const IniDocument::Value& value) {
        inspection.CheckText(Store::Registry, value.section, file, value);
    });
}

} // namespace check
