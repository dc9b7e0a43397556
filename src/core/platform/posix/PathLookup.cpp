// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PathLookup.h"

#include "core/platform/LookupSteps.h"

#include <algorithm>
#include <dirent.h>
#include <sys/stat.h>

namespace platform {

using lookup::Exists;
using lookup::Joined;

namespace {

using Look = int (*)(const char*, struct stat*);

// Whether the entry found at hostPath (as st, by look) is found under the other case of its
// name's letters too: then the file system is blind to case there, the spelling given need
// not be the disk's, and only the folder's listing tells. On a file system that tells case
// apart the extra look fails at once.
bool FoundCaseBlind(const std::string& hostPath, const struct stat& st, Look look) {
    const auto slash = hostPath.rfind('/');
    std::string swapped = hostPath;
    bool letters = false;
    for (std::size_t i = slash == std::string::npos ? 0 : slash + 1; i < swapped.size(); ++i) {
        char& c = swapped[i];
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            c = static_cast<char>(c ^ 0x20);
            letters = true;
        }
    }
    struct stat other {};
    return letters && look(swapped.c_str(), &other) == 0 && other.st_ino == st.st_ino &&
           other.st_dev == st.st_dev;
}

// The entry exists, and under the spelling it has on disk.
bool ExistsAsSpelled(const std::string& hostPath) {
    struct stat st {};
    return ::lstat(hostPath.c_str(), &st) == 0 && !FoundCaseBlind(hostPath, st, ::lstat);
}

// The entry of a folder that matches a name without regard to case; "" when none does.
std::string MatchInFolder(const std::string& folder, std::string_view name) {
    DIR* dir = ::opendir(folder.empty() ? "." : folder.c_str());
    if (!dir)
        return {};
    const std::string key = FoldedDiskName(name);
    std::string found;
    while (const dirent* entry = ::readdir(dir)) {
        if (entry->d_name == name) {
            found = entry->d_name;
            break;
        }
        if (found.empty() && FoldedDiskName(entry->d_name) == key)
            found = entry->d_name;
    }
    ::closedir(dir);
    return found;
}

FileStamp StampFrom(const struct stat& st) {
    return FileStamp{static_cast<std::uint64_t>(st.st_size),
                     static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec,
                     static_cast<std::uint64_t>(st.st_ino)};
}

} // namespace

std::string ResolvePath(std::string_view path) {
    std::string host = HostPath(path);
    if (host.empty() || ExistsAsSpelled(host))
        return host;
    std::string resolved;
    std::size_t pos = 0;
    if (host.front() == '/') {
        resolved = "/";
        pos = 1;
    }
    bool parentExists = true;
    while (pos <= host.size()) {
        std::size_t next = host.find('/', pos);
        if (next == std::string::npos)
            next = host.size();
        const std::string_view piece(host.data() + pos, next - pos);
        pos = next + 1;
        if (piece.empty())
            continue;
        const std::string folder = resolved;
        if (!resolved.empty() && resolved.back() != '/')
            resolved += '/';
        std::string spelled(piece);
        if (parentExists && piece != "." && piece != ".." && !ExistsAsSpelled(resolved + spelled)) {
            std::string match = MatchInFolder(folder, piece);
            if (match.empty())
                parentExists = false;
            else
                spelled = std::move(match);
        }
        resolved += spelled;
    }
    return resolved;
}

namespace lookup {

bool Exists(const std::string& hostPath) {
    struct stat st {};
    return ::lstat(hostPath.c_str(), &st) == 0;
}

std::string Joined(const std::string& folder, std::string_view name) {
    std::string out = folder;
    if (out.empty() || out.back() != '/')
        out += '/';
    out += name;
    return out;
}

std::optional<Split> SplitLast(const std::string& host) {
    const auto slash = host.find_last_of('/');
    if (slash == std::string::npos || slash + 1 == host.size())
        return std::nullopt;
    return Split{slash == 0 ? "/" : host.substr(0, slash), host.substr(slash + 1)};
}

bool ListNames(const std::string& folder, const std::function<void(std::string_view)>& take) {
    DIR* dir = ::opendir(folder.c_str());
    if (!dir)
        return false;
    while (const dirent* entry = ::readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            take(name);
    }
    ::closedir(dir);
    return true;
}

} // namespace lookup

std::optional<FileStamp> StampOfHost(const std::string& hostPath) {
    struct stat st {};
    if (::stat(hostPath.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return std::nullopt;
    return StampFrom(st);
}

std::optional<FileStamp> StampOf(std::string_view path) {
    return StampOfHost(ResolvePath(path));
}

ResolvedFile LookUpFile(std::string_view path) {
    // One stat when the path is spelled as on disk, the common case.
    ResolvedFile out{HostPath(path), std::nullopt};
    struct stat st {};
    if (::stat(out.path.c_str(), &st) != 0 || FoundCaseBlind(out.path, st, ::stat)) {
        out.path = ResolvePath(path);
        if (::stat(out.path.c_str(), &st) != 0)
            return out;
    }
    if (S_ISREG(st.st_mode))
        out.stamp = StampFrom(st);
    return out;
}

bool IsFile(std::string_view path) {
    struct stat st {};
    return ::stat(ResolvePath(path).c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool IsDirectory(std::string_view path) {
    struct stat st {};
    return ::stat(ResolvePath(path).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

} // namespace platform
