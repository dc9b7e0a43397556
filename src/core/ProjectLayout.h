// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where everything of a project lives: its folders, the shared INI files, each faction's own
// files and the compiled output. Names below the project folder are Windows-1252, as findings
// and messages show them, and spelled as new files get them (every lookup ignores letter
// case, so older spellings on disk are still found). Nothing else spells a piece of a
// project path.
#include <array>
#include <string>
#include <string_view>
#include <vector>

// The five pick lists of a faction, each kept whole in a list file of its own.
enum class PickList { Ships, Voices, Bodyparts, Scan, Formations };
inline constexpr std::array<PickList, 5> AllPickLists = {
    PickList::Ships, PickList::Voices, PickList::Bodyparts, PickList::Scan, PickList::Formations};

// Names below the project folder, "\"-separated.
namespace layout {
inline constexpr std::string_view RegistryFile = "misc\\factions.ini";
inline constexpr std::string_view EmpathyFolder = "emphaty\\new";
inline constexpr std::string_view EventFile = "emphaty\\new\\grp.ini";
inline constexpr std::string_view PropertyFolder = "faction_prop";
inline constexpr std::string_view PropertyFile = "faction_prop\\grp.ini";
inline constexpr std::string_view WorldFile = "initialworld\\grp.ini";
inline constexpr std::string_view CompiledFolder = "compiled";
inline constexpr std::string_view CompiledEmphaty = "compiled\\emphaty.ini";
inline constexpr std::string_view CompiledFactionProp = "compiled\\faction_prop.ini";
inline constexpr std::string_view CompiledInitialWorld = "compiled\\initialworld.ini";
inline constexpr std::string_view ProtocolFile = "protocol\\protocol.txt";
// The subfolders a new project gets, in the order they are made.
inline constexpr std::array<std::string_view, 8> Subfolders = {
    "emphaty", "emphaty\\new", "faction_prop", "initialworld",
    "XML",     "Protocol",     "compiled",     "misc"};

// A per-faction file name is a prefix, the nickname and a suffix.
struct FactionFileName {
    std::string_view folder; // below the project folder
    std::string_view prefix;
    std::string_view suffix;
};
inline constexpr FactionFileName EmpathyName = {EmpathyFolder, "reps_", ".facts"};
// The compiler's scratch file, left behind only by an interrupted run.
inline constexpr FactionFileName ScratchName = {EmpathyFolder, "", ".tmp"};
// "Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_", then ".lst".
FactionFileName ListName(PickList list);

// The names of the files that belong to one faction alone, in the order a deletion removes
// them: its empathy file, its scratch file and its five list files.
std::array<FactionFileName, 7> OwnFileNames();

// "<folder>\<file name>" below the project folder, for a name a folder listing gives.
std::string FileIn(std::string_view folder, std::string_view fileName);
// "<folder>\<prefix><nickname><suffix>" below the project folder.
std::string FactionFile(const FactionFileName& name, std::string_view nickname);
// The nickname in a file name "<prefix><nickname><suffix>" (no folder), matched without
// regard to letter case; "" for any other name.
std::string NicknameIn(const FactionFileName& name, std::string_view fileName);
} // namespace layout

class ProjectLayout {
public:
    // <app dir>\projects
    static std::string ProjectsFolder(std::string_view appDir);
    // The project <app dir>\projects\<project>; the name (Windows-1252) spelled as on disk.
    static ProjectLayout Of(std::string_view appDir, std::string_view project);
    // A project folder given whole, spelled as on disk.
    explicit ProjectLayout(std::string_view folder) : folder_(folder) {}

    const std::string& Folder() const { return folder_; }
    // <project folder>\<name>, for a name below the project folder (see layout).
    std::string Path(std::string_view name) const;

    std::string Registry() const { return Path(layout::RegistryFile); }
    std::string EventFile() const { return Path(layout::EventFile); }
    std::string EmpathyFile(std::string_view nickname) const;
    std::string ScratchFile(std::string_view nickname) const;
    std::string PropertyFile() const { return Path(layout::PropertyFile); }
    std::string ListFile(PickList list, std::string_view nickname) const;
    std::string WorldFile() const { return Path(layout::WorldFile); }
    std::string ProtocolFile() const { return Path(layout::ProtocolFile); }

    // The files that belong to one faction alone, in the order a deletion removes them: its
    // empathy file, its scratch file and its five list files.
    std::vector<std::string> FactionFiles(std::string_view nickname) const;
    // Every INI file of the project that can name a faction (as a section or a key): the
    // registry, the event, property and initial-world files, and the empathy file of each
    // of the given factions (their sections name the factions they rate).
    std::vector<std::string> IniFilesNamingFactions(const std::vector<std::string>& factions) const;

private:
    std::string folder_;
};
