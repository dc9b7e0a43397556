// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What each system's file-system layer gives the shared path lookup: a look at one path, a
// name joined to its folder, a path split at its last piece and a folder's names.
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace platform::lookup {

bool Exists(const std::string& hostPath);
std::string Joined(const std::string& folder, std::string_view name);
// The folder and the last name of a host path; nullopt when there is no name in a folder to
// look up (a root, a path ending in a separator, a bare name).
struct Split {
    std::string folder;
    std::string name;
};
std::optional<Split> SplitLast(const std::string& host);
// Calls take for each entry of the folder, as the disk spells it; false when it cannot be read.
bool ListNames(const std::string& folder, const std::function<void(std::string_view)>& take);

} // namespace platform::lookup
