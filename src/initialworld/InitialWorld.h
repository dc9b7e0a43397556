// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The initial-world file of a project (initialworld\grp.ini): per faction its three name
// numbers (IDS) and its starting reputation toward every registered faction, each stored
// under the other faction's nickname.
#include <string>
#include <string_view>
#include <vector>

namespace initialworld {

inline constexpr std::string_view IdsName = "ids_name";
inline constexpr std::string_view IdsShortName = "ids_short_name";
inline constexpr std::string_view IdsInfo = "ids_info";
// What the editor shows (and so stores again) for a missing IDS key.
inline constexpr std::string_view MissingIds = "error";

// The initial-world file of a project folder (see ProjectLayout).
std::string DataFile(std::string_view projectFolder);

struct Ids {
    std::string name;
    std::string shortName;
    std::string info;
};
// The three IDS values as the editor shows them ("error" when missing); one parse.
Ids ReadIds(const std::string& file, std::string_view faction);
// Stores one IDS value (key is IdsName, IdsShortName or IdsInfo). Throws IniWriteError.
void WriteIds(const std::string& file, std::string_view faction, std::string_view key,
              std::string_view value);

// The faction's starting reputation toward each row faction, "" when not stored; one parse.
std::vector<std::string> ReadReputations(const std::string& file, std::string_view faction,
                                         const std::vector<std::string>& rows);
// Stores the reputation of faction toward other, and with mirror also other's toward
// faction. Both entries land in one write, or neither does. Throws IniWriteError.
void WriteReputation(const std::string& file, std::string_view faction, std::string_view other,
                     std::string_view value, bool mirror);

} // namespace initialworld
