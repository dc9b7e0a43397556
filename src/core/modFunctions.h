// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Project routines: the project folder tree, the project list, the protocol, the
// faction registry, list files and the file-exists helper. The window and the
// command line call these; neither touches paths or files on its own.
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class IniDocument;

namespace modFunctions {

// Why a name on disk is left out of a listing.
inline constexpr std::string_view NameNotFromDisk =
    "the name is not UTF-8 or holds a character outside Windows-1252";

// <app dir>\projects
std::string ProjectsFolder(std::string_view appDir);
// <app dir>\projects\<project>; the project name (Windows-1252) is spelled in UTF-8, as on
// disk. What lies below it, ProjectLayout knows; a piece ("\misc\factions.ini") is appended
// as given, for tests that spell the files they look at themselves.
std::string ProjectPath(std::string_view appDir, std::string_view project,
                        std::string_view piece = {});
// <app dir>\data\<subsystem>\original_factions for "emphaty", "faction_prop", "initialworld".
std::string LibraryFolder(std::string_view appDir, std::string_view subsystem);

// Creates <app dir>\projects when it is missing (start-up).
void EnsureProjectsFolder(std::string_view appDir);

// The names of the direct subfolders of the projects folder, sorted without regard to case.
// A folder whose name cannot be a project name is left out; with leftOut, a message says so.
std::vector<std::string> ListProjects(std::string_view appDir,
                                      std::vector<std::string>* leftOut = nullptr);
// The project named without regard to case, as spelled on disk; empty when there is none.
std::string FindProject(std::string_view appDir, std::string_view name);
// Creates the project folder and its eight subfolders (layout::Subfolders) in order. Throws
// platform::FileError at the first folder that cannot be made (folders made before it stay).
void CreateProjectFolders(std::string_view appDir, std::string_view name);
// Deletes the project folder with all its contents, ignoring errors.
void DeleteProjectFolder(std::string_view appDir, std::string_view name);
// Moves the project folder to the desktop's trash; where there is none, deletes it as
// DeleteProjectFolder does. True when it went to the trash.
bool TrashProjectFolder(std::string_view appDir, std::string_view name);

// "<date>    <time>: <text>" + CR LF, date and time from the C library's locale.
std::string ProtocolEntry(std::string_view text);
// Appends an entry to <app dir>\projects\<project>\protocol\protocol.txt, written anew when
// missing. All or nothing: a failure leaves the file as it was and reaches the caller.
void WriteProtocol(std::string_view appDir, std::string_view project, std::string_view text);

// ---- faction registry (misc\factions.ini) ----
std::string RegistryPath(std::string_view appDir, std::string_view project);

struct RegistryEntry {
    std::string nickname;
    std::string group; // "grp", "[ERROR]" when missing
    std::string rep;   // "Rep", "0.0" when missing
};
// The sections in file order. A section line starts with "[" and ends with "]"; the
// nickname is the line with every bracket removed. Throws platform::FileError when the
// registry cannot be read (missing).
std::vector<RegistryEntry> LoadRegistry(const std::string& registryPath);
// The same from the registry's bytes and their parsed document, for a caller that has both.
std::vector<RegistryEntry> ParseRegistry(std::string_view bytes, const IniDocument& document);
// Just the nicknames in file order; empty when the registry is missing.
std::vector<std::string> RegistryNicknames(const std::string& registryPath);

// A registered nickname that the name rule refuses, and why. Such a name (edited by hand into
// the registry) must never become part of a path, so callers leave it out and say so.
struct RefusedNickname {
    std::string nickname;
    std::string reason;
};
// Takes the refused names out, keeping the order of the rest, and returns them.
std::vector<RefusedNickname> LeaveOutRefused(std::vector<RegistryEntry>& entries);
std::vector<RefusedNickname> LeaveOutRefused(std::vector<std::string>& nicknames);

// The New/Save action: WriteIni(nick, "grp", group). Returns the group stored: the
// nickname when the description is blank. Nothing happens (returns "") for a blank nickname.
std::string SaveFaction(std::string_view appDir, std::string_view project,
                        std::string_view nickname, std::string_view description);
// The Delete action: rewrites the registry in one step with the section line and its
// "grp=<group>" line emptied, then deletes the faction's seven per-faction files (errors
// skipped). A failed rewrite throws before any file is deleted.
void DeleteFaction(std::string_view appDir, std::string_view project, std::string_view nickname,
                   std::string_view group);
// The text of the registry with the faction's two lines emptied (line ends kept).
std::string RegistryWithoutFaction(std::string_view registryText, std::string_view nickname,
                                   std::string_view group);

// ---- list files and files ----
// The lines of a list file, for filling a list box; empty when the file is missing.
std::vector<std::string> LoadListFile(const std::string& path);
// True when the path names an existing ordinary file.
bool FileExists(const std::string& path);

} // namespace modFunctions
