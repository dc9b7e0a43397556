#pragma once
// The five pick lists of a faction, each kept whole in faction_prop\<Kind>list_<nick>.lst,
// one entry per line. Names are found on disk without regard to letter case; new files get
// the spelling below.
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace factionprops {

enum class PickList { Ships, Voices, Bodyparts, Scan, Formations };
inline constexpr std::array<PickList, 5> AllPickLists = {
    PickList::Ships, PickList::Voices, PickList::Bodyparts, PickList::Scan, PickList::Formations};

// "Shiplist_", "Voicelist_", "Bodylist_", "Scanlist_", "Formationlist_".
std::string_view ListPrefix(PickList list);
// <app dir>\projects\<project>\faction_prop\<prefix><nickname>.lst
std::string ListFilePath(std::string_view appDir, std::string_view project, PickList list,
                         std::string_view nickname);
// The same below a project folder given whole.
std::string ListFileIn(std::string_view projectFolder, PickList list, std::string_view nickname);

// The entries as the file holds them: each followed by CR LF (the writer adds one more).
std::string ListFileText(const std::vector<std::string>& entries);
// Replaces the whole file. Throws platform::FileError.
void WriteListFile(const std::string& path, const std::vector<std::string>& entries);
// The non-empty lines of the file; empty when it is missing or cannot be read.
std::vector<std::string> ReadListFile(const std::string& path);

// The two-part entries the page builds: "<head>, <body>, <accessory>" and "<class>, <formation>".
std::string BodypartEntry(std::string_view head, std::string_view body, std::string_view accessory);
std::string FormationEntry(std::string_view formationClass, std::string_view formation);

} // namespace factionprops
