// SPDX-License-Identifier: GPL-3.0-or-later
// The pick-list files (faction_prop\<Kind>list_<nickname>.lst): blank lines, malformed
// entries and entries no catalogue holds.
#include "check/Inspection.h"
#include "core/txtReadWrite.h"

namespace check {
namespace {

// The pieces of a list entry between ", " separators.
std::vector<std::string_view> Parts(std::string_view entry) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t comma = entry.find(", ");
        parts.push_back(entry.substr(0, comma));
        if (comma == std::string_view::npos)
            return parts;
        entry.remove_prefix(comma + 2);
    }
}

struct ListKind {
    PickList list;
    std::string_view name; // in messages
    std::string_view form; // what a well-formed entry is, for entries of several parts
    std::vector<std::unordered_set<std::string_view>> catalogues; // one per part
};

void CheckListLines(Inspection& inspection, const ListKind& kind, std::string_view faction,
                    std::string_view file) {
    const auto bytes = inspection.Read(Store::FactionProps, faction, file);
    if (!bytes)
        return;
    const auto warn = [&](std::string_view where, std::string_view line, std::string message) {
        inspection
            .Add(Severity::Warning, Store::FactionProps, faction, file, std::string(where), line,
                 std::move(message))
            .list = kind.list;
    };
    const auto lines = txtReadWrite::SplitLines(*bytes);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        const std::string where = "line " + std::to_string(i + 1);
        if (line.find_first_not_of(" \t") == std::string_view::npos) {
            // The empty line after the last entry is how every list file ends.
            if (!(line.empty() && i + 1 == lines.size()))
                warn(where, line, "The line is blank; the compiler skips it.");
            continue;
        }
        const auto parts = Parts(line);
        if (parts.size() != kind.catalogues.size()) {
            warn(where, line,
                 "The " + std::string(kind.name) + " entry " + Quoted(line) + " is not " +
                     std::string(kind.form) + ".");
            continue;
        }
        for (std::size_t p = 0; p < parts.size(); ++p)
            if (!kind.catalogues[p].contains(parts[p]))
                warn(where, line,
                     "No catalogue holds " + Quoted(parts[p]) + " (fine if the mod adds it).");
    }
}

} // namespace

void CheckLists(Inspection& inspection) {
    const std::vector<ListKind> kinds = {
        {PickList::Ships, "ship", "", {SetOf(factionprops::ShipCatalogue())}},
        {PickList::Voices, "voice", "", {SetOf(factionprops::VoiceCatalogue())}},
        {PickList::Bodyparts,
         "body-part",
         "head, body and accessory",
         {SetOf(factionprops::HeadCatalogue()), SetOf(factionprops::BodyCatalogue()),
          SetOf(factionprops::CommAccessoryCatalogue())}},
        {PickList::Scan, "scan", "", {SetOf(factionprops::ScanCatalogue())}},
        {PickList::Formations,
         "formation",
         "a formation class and a formation",
         {SetOf(factionprops::FormationClassCatalogue()),
          SetOf(factionprops::FormationCatalogue())}},
    };
    for (const std::string& name : inspection.SortedFiles(layout::PropertyFolder)) {
        for (const ListKind& kind : kinds) {
            const std::string nick = layout::NicknameIn(layout::ListName(kind.list), name);
            if (nick.empty())
                continue;
            const std::string file = layout::FileIn(layout::PropertyFolder, name);
            if (inspection.IndexOf(nick))
                CheckListLines(inspection, kind, nick, file);
            else
                inspection
                    .Add(Severity::Warning, Store::FactionProps, nick, file, {}, {},
                         "The list belongs to " + Quoted(nick) +
                             ", which is not registered; it is not compiled.")
                    .list = kind.list;
            break;
        }
    }
}

} // namespace check
