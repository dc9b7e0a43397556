// SPDX-License-Identifier: GPL-3.0-or-later
// Many paths resolved in a row, each folder listed once: the same on every system.
#include "core/PathLookup.h"
#include "core/platform/LookupSteps.h"

namespace platform {

PathResolver::Found PathResolver::Find(std::string_view path) {
    const std::string given(path);
    if (const auto it = found_.find(given); it != found_.end())
        return it->second;
    const auto split = lookup::SplitLast(HostPath(path));
    Found result;
    if (!split) {
        result.path = ResolvePath(path);
        result.listed = lookup::Exists(result.path);
    } else {
        const std::string parent = Folder(split->folder);
        const std::string& name = split->name;
        const Listing& listing = ListingOf(parent);
        std::string spelled = name;
        if (!listing.readable) {
            result.listed = lookup::Exists(lookup::Joined(parent, name));
        } else if (listing.exact.count(name)) {
            result.listed = true;
        } else if (const auto match = listing.byFolded.find(FoldedDiskName(name));
                   match != listing.byFolded.end()) {
            spelled = match->second;
            result.listed = true;
        } else {
            result.listed = false;
        }
        result.path = lookup::Joined(parent, spelled);
    }
    found_.emplace(given, result);
    return result;
}

std::string PathResolver::Folder(const std::string& hostFolder) {
    if (const auto it = folders_.find(hostFolder); it != folders_.end())
        return it->second;
    // Folders are few: one look at each, spelled as given when that exists.
    std::string onDisk = ResolvePath(hostFolder);
    folders_.emplace(hostFolder, onDisk);
    return onDisk;
}

const PathResolver::Listing& PathResolver::ListingOf(const std::string& folder) {
    auto [it, inserted] = listings_.try_emplace(folder);
    if (inserted) {
        Listing& listing = it->second;
        listing.readable = lookup::ListNames(folder, [&](std::string_view name) {
            listing.exact.emplace(name);
            listing.byFolded.try_emplace(FoldedDiskName(name), name);
        });
    }
    return it->second;
}

} // namespace platform
