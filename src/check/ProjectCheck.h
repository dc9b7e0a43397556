// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Looks through a project for what the compilers would copy into the game files wrongly:
// values the game reads as numbers that are none, entries about factions that are gone,
// factions missing from a store, list entries no catalogue knows, values the read limit or
// the line-break escape would spoil. It only reads; values stay text and nothing is changed.
#include "factionprops/ListFiles.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace check {

enum class Severity { Error, Warning, Note };

// The store a finding is about, and so the page that edits it.
enum class Store { Registry, Reputation, FactionProps, InitialWorld };

struct Finding {
    Severity severity;
    Store store;
    std::string faction; // the nickname concerned; "" when none
    std::string file;    // below the project folder, e.g. "emphaty\new\grp.ini"
    std::string where;   // "[section] key", "[section]", "line 3", or "" for the whole file
    std::string stored;  // the stored text at fault ("" when nothing is stored)
    std::string message; // one plain sentence
    // For a finding in a list file, the pick list it belongs to (the page that edits it).
    std::optional<factionprops::PickList> list = {};
};

// Every finding of the project <app dir>\projects\<project>, grouped by store. Texts are
// Windows-1252 bytes. A project without a registry has no factions; files it holds are
// still looked at. Throws platform::FileError only when the project folder is missing.
std::vector<Finding> CheckProject(std::string_view appDir, std::string_view project);

// "error", "warning", "note".
std::string_view SeverityName(Severity severity);
bool HasError(const std::vector<Finding>& findings);

// One finding per line: severity TAB faction TAB file TAB where TAB message, each ended by
// LF. Tabs and line breaks inside a field become blanks, so every line keeps five fields.
std::string TextReport(const std::vector<Finding>& findings);
// A JSON array of objects with the keys "severity", "faction", "file", "where", "stored" and
// "message". The bytes are Windows-1252 like the fields; only ASCII is escaped.
std::string JsonReport(const std::vector<Finding>& findings);

} // namespace check
