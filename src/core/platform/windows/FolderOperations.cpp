// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderOperations.h"

#include "core/FileReplacement.h"
#include "core/PathLookup.h"
#include "core/platform/windows/Win32.h"

#include <cerrno>

namespace platform {
namespace {

using windows::IsLink;
using windows::WidePath;

// Deletes a file, a read-only one too: its attribute goes first, as POSIX deletes it anyway.
bool DeleteWritable(const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        ::SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    return ::DeleteFileW(path.c_str()) != 0;
}

// Removes a link as a link: a link to a folder (a junction too) is removed like a folder,
// which removes the link and nothing it points at.
bool RemoveLink(const std::wstring& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return ::RemoveDirectoryW(path.c_str()) != 0;
    return DeleteWritable(path, attributes);
}

// Removes a folder with all it holds. Links are never entered: the listing reports them
// with their own attributes.
void RemoveTree(const std::string& hostPath, DWORD attributes) {
    windows::ListEntries(hostPath, [&](const std::string& name, const WIN32_FIND_DATAW& entry) {
        const std::string child = hostPath + "\\" + name;
        const DWORD childAttributes = entry.dwFileAttributes;
        if (IsLink(childAttributes))
            RemoveLink(WidePath(child), childAttributes);
        else if ((childAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveTree(child, childAttributes);
        else
            DeleteWritable(WidePath(child), childAttributes);
    });
    const std::wstring path = WidePath(hostPath);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        ::SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    ::RemoveDirectoryW(path.c_str());
}

bool IsKind(const std::string& hostPath, const WIN32_FIND_DATAW& entry, EntryKind kind) {
    DWORD attributes = entry.dwFileAttributes;
    if (IsLink(attributes)) {
        // A link counts as what it points at, as a directory search sees it.
        attributes = windows::TargetAttributes(WidePath(hostPath));
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return false;
    }
    const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return kind == EntryKind::Folders ? folder
                                      : !folder && (attributes & FILE_ATTRIBUTE_DEVICE) == 0;
}

} // namespace

bool DeleteFile(std::string_view path) noexcept {
    try {
        const std::string host = ResolvePath(path);
        const std::wstring wide = WidePath(host);
        const DWORD attributes = ::GetFileAttributesW(wide.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return false;
        if (IsLink(attributes))
            return RemoveLink(wide, attributes);
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            return false;
        return RemoveWitnessed(host, [&] { return DeleteWritable(wide, attributes); });
    } catch (...) {
        return false;
    }
}

bool RemoveEmptyFolder(std::string_view path) noexcept {
    try {
        return ::RemoveDirectoryW(WidePath(ResolvePath(path)).c_str()) != 0;
    } catch (...) {
        return false;
    }
}

void DeleteFolderTree(std::string_view path) noexcept {
    try {
        std::string host = ResolvePath(path);
        while (host.size() > 1 && host.back() == '\\' && host[host.size() - 2] != ':')
            host.pop_back();
        const auto slash = host.find_last_of('\\');
        const std::string name = slash == std::string::npos ? host : host.substr(slash + 1);
        if (name.empty() || name == "." || name == ".." || name.back() == ':')
            return;
        const DWORD attributes = ::GetFileAttributesW(WidePath(host).c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return;
        if (IsLink(attributes)) {
            RemoveLink(WidePath(host), attributes); // the link goes, its target stays
            return;
        }
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            RemoveTree(host, attributes);
    } catch (...) {
    }
}

std::vector<std::string> ListFolder(std::string_view path, EntryKind kind,
                                    std::vector<std::string>* leftOut) {
    std::vector<std::string> out;
    const std::string host = ResolvePath(path);
    windows::ListEntries(host, [&](const std::string& name, const WIN32_FIND_DATAW& entry) {
        if (!IsKind(host + "\\" + name, entry, kind))
            return;
        if (auto decoded = NameFromDisk(name))
            out.push_back(std::move(*decoded));
        else if (leftOut)
            leftOut->push_back(name);
    });
    return out;
}

} // namespace platform
