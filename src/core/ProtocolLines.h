// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The lines that successful actions append to a project's protocol; the window and the
// command line write the same ones.
#include <string_view>

namespace protocol {

inline constexpr std::string_view ProjectCreated = "Project created.";
inline constexpr std::string_view OriginalImported = "Original imported...";
inline constexpr std::string_view EmphatyCompiled = "Emphaty.ini compiled...";
inline constexpr std::string_view FactionPropCompiled = "Faction_Prop.ini created...";
inline constexpr std::string_view InitialWorldCompiled = "Initialworld.ini created...";

} // namespace protocol
