// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A faction's property sheet: one section per faction nickname in faction_prop\grp.ini,
// fourteen keys, all values kept as text. The editing page and the compiler read it.
#include <string>
#include <string_view>
#include <vector>

namespace factionprops {

// <app dir>\projects\<project>\faction_prop\grp.ini
std::string PropertyFile(std::string_view appDir, std::string_view project);

// Keys of the sheet, spelled as the file stores them.
namespace key {
inline constexpr std::string_view Legality = "Legality";
inline constexpr std::string_view Plurality = "plurality";
inline constexpr std::string_view Jump = "jump";
inline constexpr std::string_view MsgIdPrefix = "msg_id_prefix";
inline constexpr std::string_view McCostume = "mc_costume";
inline constexpr std::string_view FirstnameMale = "firstname_male";
inline constexpr std::string_view FirstnameFemale = "firstname_female";
inline constexpr std::string_view Lastname = "lastname";
inline constexpr std::string_view RankDesig = "rank_desig";
inline constexpr std::string_view FormationDesig = "formation_desig";
inline constexpr std::string_view ScanChance = "scan_chance";
inline constexpr std::string_view ScanAnnounce = "scan_announce";
inline constexpr std::string_view LargeShipDesig = "large_ship_desig";
inline constexpr std::string_view LargeShipNames = "large_ship_names";
} // namespace key

// The values the page writes for its option groups, and its defaults for absent keys.
namespace value {
inline constexpr std::string_view Lawful = "lawful";
inline constexpr std::string_view Unlawful = "unlawful";
inline constexpr std::string_view Singular = "singular";
inline constexpr std::string_view Plural = "plural";
inline constexpr std::string_view Jumpgate = "jumpgate";
inline constexpr std::string_view Jumphole = "jumphole";
inline constexpr std::string_view Both = "both";
inline constexpr std::string_view ScanChanceDefault = "0.0";
inline constexpr std::string_view ScanAnnounceDefault = "False";
} // namespace value

// Which option of a group a stored value selects; comparisons are exact.
enum class Legality { Lawful, Unlawful };
enum class Plurality { Singular, Plural };
enum class Jump { Jumpgate, Jumphole, Both };
Legality LegalityOf(std::string_view stored);
Plurality PluralityOf(std::string_view stored);
Jump JumpOf(std::string_view stored);

// The items offered for the message prefix: "gcs_refer_faction_<nick without _grp>" for a
// nickname ending in "_grp", then "ignore".
std::vector<std::string> PrefixItems(std::string_view nickname);

} // namespace factionprops
