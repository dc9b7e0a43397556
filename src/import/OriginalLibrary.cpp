// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/OriginalLibrary.h"

#include "core/IniDocument.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

namespace importer {
namespace {

std::string Describe(const std::string& file, long line, const std::string& reason) {
    std::string text = platform::ForMessage(platform::ResolvePath(file));
    if (line > 0)
        text += ", line " + std::to_string(line);
    return text + ": " + reason;
}

std::string ReadLibraryFile(const std::string& path) {
    std::optional<std::string> bytes;
    try {
        bytes = platform::ReadBytes(path);
    } catch (const platform::FileError& error) {
        throw LibraryError(path, 0, error.what());
    }
    if (!bytes)
        throw LibraryError(path, 0, "the library file is missing");
    return std::move(*bytes);
}

// Drops a line's prefix; a line shorter than its prefix has no value to give.
std::string_view DropPrefix(std::string_view line, std::size_t length, const std::string& path,
                            long number) {
    if (line.size() < length)
        throw LibraryError(path, number,
                           "the line is shorter than its " + std::to_string(length) +
                               "-character prefix");
    return line.substr(length);
}

// The field split: text before the first comma, and the text after it minus the one
// character (normally the blank of ", ") that follows the comma.
std::pair<std::string, std::string> Split(std::string_view rest, const std::string& path,
                                          long number) {
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos)
        throw LibraryError(path, number, "the line has no comma");
    if (comma + 1 == rest.size())
        throw LibraryError(path, number, "the line ends in its comma");
    return {std::string(rest.substr(0, comma)), std::string(rest.substr(comma + 2))};
}

bool StartsWith(std::string_view line, std::string_view prefix) {
    return line.substr(0, prefix.size()) == prefix;
}

} // namespace

LibraryError::LibraryError(std::string file, long line, std::string reason)
    : std::runtime_error(Describe(file, line, reason)), file_(std::move(file)), line_(line),
      reason_(std::move(reason)) {}

std::string ReputationFolder(std::string_view appDir) {
    return modFunctions::LibraryFolder(appDir, "emphaty");
}
std::string FactionPropFolder(std::string_view appDir) {
    return modFunctions::LibraryFolder(appDir, "faction_prop");
}
std::string InitialWorldFolder(std::string_view appDir) {
    return modFunctions::LibraryFolder(appDir, "initialworld");
}

std::vector<std::string> ListOriginalFactions(const std::string& folder,
                                              std::vector<std::string>* leftOut) {
    std::vector<std::string> entries;
    for (std::string& name : platform::ListFolder(folder, platform::EntryKind::Files, leftOut))
        if (name.find('.') == std::string::npos)
            entries.push_back(std::move(name));
    names::SortIgnoringCase(entries);
    return entries;
}

OriginalReputation ParseOriginalReputation(std::string_view text, const std::string& path) {
    OriginalReputation reputation;
    reputation.group = IniDocument::ReadOnce(text, "RepChangeEffects", "group", "[Error]");
    const auto lines = txtReadWrite::SplitLines(text);
    for (long number = 1; number <= ReputationLinesRead; ++number) {
        if (static_cast<std::size_t>(number) > lines.size())
            break; // the lines past the end are empty and match nothing
        std::string_view line = lines[static_cast<std::size_t>(number) - 1];
        if (StartsWith(line, "emp")) {
            line = DropPrefix(line, 15, path, number);
            auto [nickname, value] = Split(line, path, number);
            reputation.empathy.push_back({std::move(nickname), std::move(value)});
        }
        // The shortened empathy text is tested again, as the rule reads it.
        if (StartsWith(line, "event")) {
            auto [name, value] = Split(DropPrefix(line, 8, path, number), path, number);
            reputation.events.push_back({std::move(name), std::move(value)});
        }
    }
    return reputation;
}

OriginalFactionProps ParseOriginalFactionProps(std::string_view text, const std::string& path) {
    OriginalFactionProps props;
    const IniDocument document(text);
    for (std::size_t i = 0; i < FactionPropKeys.size(); ++i)
        props.values[i] = document.Read("FactionProps", FactionPropKeys[i], "");
    struct ListKey {
        std::string_view begins;
        std::size_t drop;
        std::vector<std::string> OriginalFactionProps::*list;
    };
    static constexpr ListKey ListKeys[] = {
        {"npc_ship", 11, &OriginalFactionProps::ships},
        {"voice", 8, &OriginalFactionProps::voices},
        {"space_costume", 16, &OriginalFactionProps::bodyParts},
        {"scan_for_cargo", 17, &OriginalFactionProps::scans},
        {"formation", 12, &OriginalFactionProps::formations},
    };
    long number = 0;
    for (const std::string_view line : txtReadWrite::SplitLines(text)) {
        ++number;
        if (StartsWith(line, "formation_desig"))
            continue; // a single value, never a formation list line
        for (const ListKey& key : ListKeys) {
            if (StartsWith(line, key.begins)) {
                (props.*key.list).emplace_back(DropPrefix(line, key.drop, path, number));
                break;
            }
        }
    }
    return props;
}

OriginalInitialWorld ParseOriginalInitialWorld(std::string_view text, const std::string& path) {
    OriginalInitialWorld world;
    // The file holds a line for every faction: indexing them all for three reads at its top
    // would cost more than the rest of the import of the entry.
    world.idsName = IniDocument::ReadOnce(text, "Group", "ids_name", "");
    world.idsInfo = IniDocument::ReadOnce(text, "Group", "ids_info", "");
    world.idsShortName = IniDocument::ReadOnce(text, "Group", "ids_short_name", "");
    // Most lines are reputations of a dozen bytes or more: room for all of them, as a rule,
    // without counting the lines first.
    constexpr std::size_t UsualShortestLine = 12;
    world.reputations.reserve(text.size() / UsualShortestLine + 1);
    long number = 0;
    txtReadWrite::ForEachLine(text, [&](std::string_view line) {
        ++number;
        if (!StartsWith(line, "rep"))
            return;
        auto [value, nickname] = Split(DropPrefix(line, 6, path, number), path, number);
        world.reputations.push_back({std::move(value), std::move(nickname)});
    });
    return world;
}

OriginalReputation ReadOriginalReputation(const std::string& path) {
    return ParseOriginalReputation(ReadLibraryFile(path), path);
}

OriginalFactionProps ReadOriginalFactionProps(const std::string& path) {
    return ParseOriginalFactionProps(ReadLibraryFile(path), path);
}

OriginalInitialWorld ReadOriginalInitialWorld(const std::string& path) {
    return ParseOriginalInitialWorld(ReadLibraryFile(path), path);
}

} // namespace importer
