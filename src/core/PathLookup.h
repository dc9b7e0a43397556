// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Finding files on disk. Names on disk are UTF-8; names in file contents are Windows-1252.
// Every lookup ignores letter case per path component, folding the Windows-1252 letter pairs
// on the decoded names.
#include "core/platformBasics.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace platform {

// A name from file contents (Windows-1252), spelled as it is on disk (UTF-8).
std::string DiskName(std::string_view name);
// A name from a folder listing as Windows-1252; nullopt when it is not valid UTF-8 or holds a
// character outside Windows-1252.
std::optional<std::string> NameFromDisk(std::string_view diskName);
// The key under which a disk name is compared without regard to case. A name that cannot be
// decoded matches only itself.
std::string FoldedDiskName(std::string_view diskName);

// Maps a "\"-separated path onto the disk: each existing component is found without
// regard to case (keeping its spelling on disk); missing components keep the given spelling.
std::string ResolvePath(std::string_view path);

// Resolves many paths in a row, reading each folder's listing at most once: a batch that
// creates thousands of new files in a few folders would otherwise look each one up anew.
class PathResolver {
public:
    struct Found {
        std::string path; // host path, spelled as on disk where it exists
        bool listed;      // the last component exists in its folder
    };
    Found Find(std::string_view path);

private:
    struct Listing {
        bool readable = false;
        std::unordered_set<std::string> exact;
        std::unordered_map<std::string, std::string> byFolded; // folded -> as on disk
    };
    const Listing& ListingOf(const std::string& folder);
    std::string Folder(const std::string& hostFolder);
    std::unordered_map<std::string, Found> found_;         // given path -> result
    std::unordered_map<std::string, std::string> folders_; // host folder -> on disk
    std::unordered_map<std::string, Listing> listings_;    // folder on disk -> its names
};

// Size, modification time and identity of a file, to tell whether it changed.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t mtimeNs = 0;
    std::uint64_t inode = 0;
    bool operator==(const FileStamp&) const = default;
};
std::optional<FileStamp> StampOf(std::string_view path);
// The same for a host path spelled as on disk already: one look, no search for another
// spelling (a batch creates thousands of new files in one folder).
std::optional<FileStamp> StampOfHost(const std::string& hostPath);
// The resolved path of a file and its stamp (nullopt when it is no ordinary file).
struct ResolvedFile {
    std::string path;
    std::optional<FileStamp> stamp;
};
ResolvedFile LookUpFile(std::string_view path);

bool IsFile(std::string_view path);
bool IsDirectory(std::string_view path);

} // namespace platform
