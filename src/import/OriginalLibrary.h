// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The shipped library of original factions: three folders holding one extension-less file
// per faction, and the positional, case-sensitive rules by which those files are read.
// The library is only ever read.
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace importer {

// A library file that cannot be imported: missing, a refused name, or a recognised line
// without its comma or too short for its prefix. Nothing is written for such an entry.
class LibraryError : public std::runtime_error {
public:
    // line is 1-based; 0 when the fault is not in a line (a missing file, a refused name).
    LibraryError(std::string file, long line, std::string reason);
    const std::string& file() const { return file_; }
    long line() const { return line_; }
    const std::string& reason() const { return reason_; }

private:
    std::string file_;
    long line_;
    std::string reason_;
};

// Only this many lines of a reputation file are read.
inline constexpr long ReputationLinesRead = 60;

struct EventEntry {
    std::string name;
    std::string value;
};
struct EmpathyEntry {
    std::string nickname;
    std::string value;
};
struct OriginalReputation {
    std::string group; // "[Error]" when the file has no group key
    std::vector<EventEntry> events;
    std::vector<EmpathyEntry> empathy;
};

// The fourteen single values of a faction-property file, in the order they are read and
// written on import.
inline constexpr std::array<std::string_view, 14> FactionPropKeys = {
    "legality",        "nickname_plurality", "msg_id_prefix",    "mc_costume",
    "firstname_male",  "firstname_female",   "lastname",         "rank_desig",
    "formation_desig", "large_ship_desig",   "large_ship_names", "jump_preference",
    "scan_chance",     "scan_announce"};

struct OriginalFactionProps {
    std::array<std::string, 14> values;  // by FactionPropKeys
    std::vector<std::string> ships;      // "npc_ship" lines
    std::vector<std::string> voices;     // "voice" lines
    std::vector<std::string> bodyParts;  // "space_costume" lines
    std::vector<std::string> scans;      // "scan_for_cargo" lines
    std::vector<std::string> formations; // "formation" lines
};

struct StartingReputation {
    std::string value;
    std::string nickname;
};
struct OriginalInitialWorld {
    std::string idsName;
    std::string idsInfo;
    std::string idsShortName;
    std::vector<StartingReputation> reputations;
};

// <app dir>\data\emphaty\original_factions and its two siblings.
std::string ReputationFolder(std::string_view appDir);
std::string FactionPropFolder(std::string_view appDir);
std::string InitialWorldFolder(std::string_view appDir);

// The entries of one library folder: ordinary files whose names hold no dot, sorted
// without regard to case. Empty when the folder cannot be read. A name that is no Windows-1252
// text in UTF-8 is left out; leftOut, when given, receives such names as they are on disk.
std::vector<std::string> ListOriginalFactions(const std::string& folder,
                                              std::vector<std::string>* leftOut = nullptr);

// The readers take the path of one library file. Each throws LibraryError when the file is
// missing or a line that its rules recognise is malformed.
OriginalReputation ReadOriginalReputation(const std::string& path);
OriginalFactionProps ReadOriginalFactionProps(const std::string& path);
OriginalInitialWorld ReadOriginalInitialWorld(const std::string& path);

// The same rules applied to text already in memory (path only names it in errors).
OriginalReputation ParseOriginalReputation(std::string_view text, const std::string& path);
OriginalFactionProps ParseOriginalFactionProps(std::string_view text, const std::string& path);
OriginalInitialWorld ParseOriginalInitialWorld(std::string_view text, const std::string& path);

} // namespace importer
