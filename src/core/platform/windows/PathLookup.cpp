// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PathLookup.h"

#include "core/platform/LookupSteps.h"
#include "core/platform/windows/Win32.h"

namespace platform {

using lookup::Exists;
using lookup::Joined;

namespace {

using windows::WidePath;

// The length of the part of a host path that is no name to look up: "C:\", "C:", "\",
// "\\server\share\" or an extended-length prefix with what follows it up to its root.
std::size_t RootLength(const std::string& host) {
    if (host.size() >= 2 && host[1] == ':')
        return host.size() >= 3 && host[2] == '\\' ? 3 : 2;
    if (host.starts_with("\\\\")) {
        // "\\server\share\", "\\?\C:\", "\\?\UNC\server\share\": the first pieces are fixed.
        std::size_t pieces = host.starts_with("\\\\?\\UNC\\") ? 4 : 2;
        std::size_t pos = 2;
        for (; pieces > 0 && pos <= host.size(); --pieces) {
            const std::size_t next = host.find('\\', pos);
            if (next == std::string::npos)
                return host.size();
            pos = next + 1;
        }
        return pos;
    }
    return host.starts_with('\\') ? 1 : 0;
}

// The spelling on disk of the entry name in a folder, matched without regard to case; ""
// when none matches. A search for the name with its last character as a wildcard is answered
// from the folder's entries, so with their spelling on disk (a search without a wildcard may
// answer with the spelling asked for); the system matches it blind to case, and we pick by our
// own folding. A folder that tells case apart is read whole.
std::string MatchInFolder(const std::string& folder, std::string_view name) {
    if (name.find_first_of("*?") != std::string_view::npos)
        return {}; // no Windows name holds them
    const std::string key = FoldedDiskName(name);
    std::string exact;
    std::string folded;
    const auto consider = [&](const std::string& entry) {
        if (entry == name)
            exact = entry;
        else if (folded.empty() && FoldedDiskName(entry) == key)
            folded = entry;
    };
    std::string pattern = folder + std::string(name);
    while (!pattern.empty() && (static_cast<unsigned char>(pattern.back()) & 0xC0) == 0x80)
        pattern.pop_back(); // the last character whole, not a byte of it
    pattern.back() = '?';
    WIN32_FIND_DATAW entry{};
    const HANDLE found = ::FindFirstFileExW(WidePath(pattern).c_str(), FindExInfoBasic, &entry,
                                            FindExSearchNameMatch, nullptr, 0);
    if (found != INVALID_HANDLE_VALUE) {
        do
            consider(windows::Narrow(entry.cFileName));
        while (exact.empty() && ::FindNextFileW(found, &entry));
        ::FindClose(found);
    }
    if (exact.empty() && folded.empty())
        windows::ListEntries(
            folder, [&](const std::string& entry, const WIN32_FIND_DATAW&) { consider(entry); });
    return exact.empty() ? folded : exact;
}

DWORD AttributesOf(std::string_view path) {
    return windows::TargetAttributes(WidePath(ResolvePath(path)));
}

} // namespace

std::optional<FileStamp> StampOfHost(const std::string& hostPath) {
    const windows::Handle file{::CreateFileW(WidePath(hostPath).c_str(), FILE_READ_ATTRIBUTES,
                                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                             nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                             nullptr)};
    BY_HANDLE_FILE_INFORMATION info{};
    if (!file.ok() || !::GetFileInformationByHandle(file.h, &info) ||
        (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::nullopt;
    // 100 ns steps since 1601, as nanoseconds since 1970.
    const std::int64_t ticks =
        (static_cast<std::int64_t>(info.ftLastWriteTime.dwHighDateTime) << 32) |
        info.ftLastWriteTime.dwLowDateTime;
    constexpr std::int64_t TicksTo1970 = 116444736000000000;
    return FileStamp{(static_cast<std::uint64_t>(info.nFileSizeHigh) << 32) | info.nFileSizeLow,
                     (ticks - TicksTo1970) * 100,
                     (static_cast<std::uint64_t>(info.nFileIndexHigh) << 32) | info.nFileIndexLow};
}

// Every piece is looked up: the file system is mostly blind to case here, so finding the
// path as given says nothing about its spelling on disk.
std::string ResolvePath(std::string_view path) {
    const std::string host = HostPath(path);
    const std::size_t root = RootLength(host);
    std::string resolved = host.substr(0, root);
    std::size_t pos = root;
    bool parentExists = true;
    while (pos <= host.size()) {
        std::size_t next = host.find('\\', pos);
        if (next == std::string::npos)
            next = host.size();
        const std::string_view piece(host.data() + pos, next - pos);
        pos = next + 1;
        if (piece.empty())
            continue;
        const std::string folder =
            resolved.empty() || resolved.back() == '\\' || resolved.back() == ':' ? resolved
                                                                                  : resolved + '\\';
        std::string spelled(piece);
        if (parentExists && piece != "." && piece != "..") {
            std::string match = MatchInFolder(folder, piece);
            if (match.empty())
                parentExists = false;
            else
                spelled = std::move(match);
        }
        resolved = folder + spelled;
    }
    return resolved;
}

namespace lookup {

bool Exists(const std::string& hostPath) {
    return ::GetFileAttributesW(WidePath(hostPath).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string Joined(const std::string& folder, std::string_view name) {
    std::string out = folder;
    if (!out.empty() && out.back() != '\\')
        out += '\\';
    out += name;
    return out;
}

std::optional<Split> SplitLast(const std::string& host) {
    const auto slash = host.find_last_of('\\');
    if (slash == std::string::npos || slash + 1 == host.size() || slash < RootLength(host))
        return std::nullopt;
    return Split{host.substr(0, slash), host.substr(slash + 1)};
}

bool ListNames(const std::string& folder, const std::function<void(std::string_view)>& take) {
    return windows::ListEntries(
        folder, [&](const std::string& name, const WIN32_FIND_DATAW&) { take(name); });
}

} // namespace lookup

std::optional<FileStamp> StampOf(std::string_view path) {
    return StampOfHost(ResolvePath(path));
}

ResolvedFile LookUpFile(std::string_view path) {
    ResolvedFile out{ResolvePath(path), std::nullopt};
    out.stamp = StampOfHost(out.path);
    return out;
}

bool IsFile(std::string_view path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsDirectory(std::string_view path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace platform
