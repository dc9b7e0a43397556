// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The reputation data of a project: the event file (four event values per faction) and one
// empathy file per faction (its rate toward every other faction). Values are kept as text.
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace reputation {

inline constexpr std::string_view DefaultValue = "0.0";
// The key of a rate in an empathy file, under the section of the faction it is toward.
inline constexpr std::string_view RateKey = "rep";

// The keys of the four event values, in the order of Combo1..Combo4.
inline constexpr std::array<std::string_view, 4> EventKeys = {"o_d", "r_m_s", "r_m_f", "r_m_a"};

// The entries every event combo offers.
inline constexpr std::array<std::string_view, 19> Choices = {
    "-0.9", "-0.8", "-0.7", "-0.6", "-0.5", "-0.4", "-0.3", "-0.2", "-0.1", "0.0",
    "0.1",  "0.2",  "0.3",  "0.4",  "0.5",  "0.6",  "0.7",  "0.8",  "0.9"};

// The event file and a faction's empathy file of a project folder (see ProjectLayout).
std::string EventFile(std::string_view projectFolder);
std::string EmpathyFile(std::string_view projectFolder, std::string_view nickname);

// The four event values of a faction, "0.0" for each one missing.
std::array<std::string, 4> ReadEvents(const std::string& eventFile, std::string_view faction);
// Stores one event value (index into EventKeys). Throws IniWriteError.
void WriteEvent(const std::string& eventFile, std::string_view faction, std::size_t event,
                std::string_view value);

// The rates an empathy file holds toward each of the given factions, "0.0" when missing.
std::vector<std::string> ReadRates(const std::string& empathyFile,
                                   const std::vector<std::string>& towards);
// The edit of one rate, as the reputation page and the matrix page make it: the faction's
// whole column as shown (rates[i] toward towards[i]), with value put in at row edited, is
// stored in the faction's empathy file, which ends up as row-by-row WriteIni calls in that
// order would leave it; with mirror, value is also stored as the rate of towards[edited]
// toward the faction. All of it lands in one write, or none of it does.
// Throws IniWriteError.
void StoreEditedRate(std::string_view projectFolder, std::string_view faction,
                     const std::vector<std::string>& towards, std::vector<std::string> rates,
                     std::size_t edited, std::string_view value, bool mirror);

} // namespace reputation
