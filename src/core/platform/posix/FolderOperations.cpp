// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderOperations.h"

#include "core/FileReplacement.h"
#include "core/PathLookup.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

// Removes the entry name of the folder parentFd, a folder with all it holds. The folders are
// opened without following links, so a link anywhere is unlinked, never entered or changed.
void RemoveEntry(int parentFd, const char* name) {
    struct stat st {};
    if (::fstatat(parentFd, name, &st, AT_SYMLINK_NOFOLLOW) != 0)
        return;
    if (!S_ISDIR(st.st_mode)) {
        ::unlinkat(parentFd, name, 0);
        return;
    }
    constexpr int Flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    Descriptor folder{::openat(parentFd, name, Flags)};
    if (folder.fd < 0 && errno == EACCES &&
        ::fchmodat(parentFd, name, (st.st_mode & 07777) | S_IRWXU, AT_SYMLINK_NOFOLLOW) == 0)
        folder.fd = ::openat(parentFd, name, Flags);
    if (folder.fd < 0)
        return;
    // A folder must be writable for its read-only files to be removed; the mode is changed
    // through the open descriptor, which is this very folder and no link's target.
    if ((st.st_mode & S_IRWXU) != S_IRWXU)
        ::fchmod(folder.fd, (st.st_mode & 07777) | S_IRWXU);
    const int listFd = ::dup(folder.fd);
    if (DIR* dir = listFd >= 0 ? ::fdopendir(listFd) : nullptr) {
        while (const dirent* entry = ::readdir(dir)) {
            const std::string_view child = entry->d_name;
            if (child != "." && child != "..")
                RemoveEntry(folder.fd, entry->d_name);
        }
        ::closedir(dir);
    } else if (listFd >= 0) {
        ::close(listFd);
    }
    ::unlinkat(parentFd, name, AT_REMOVEDIR);
}

bool IsKind(int folderFd, const dirent& entry, EntryKind kind) {
    unsigned char type = entry.d_type;
    if (type == DT_UNKNOWN || type == DT_LNK) {
        // A link counts as what it points at, as a directory search sees it.
        struct stat st {};
        if (::fstatat(folderFd, entry.d_name, &st, 0) != 0)
            return false;
        type = S_ISREG(st.st_mode) ? DT_REG : S_ISDIR(st.st_mode) ? DT_DIR : DT_UNKNOWN;
    }
    return kind == EntryKind::Files ? type == DT_REG : type == DT_DIR;
}

} // namespace

bool DeleteFile(std::string_view path) noexcept {
    try {
        const std::string host = ResolvePath(path);
        struct stat st {};
        if (::lstat(host.c_str(), &st) != 0 || S_ISDIR(st.st_mode))
            return false;
        return RemoveWitnessed(host, [&] { return ::unlink(host.c_str()) == 0; });
    } catch (...) {
        return false;
    }
}

bool RemoveEmptyFolder(std::string_view path) noexcept {
    try {
        return ::rmdir(ResolvePath(path).c_str()) == 0;
    } catch (...) {
        return false;
    }
}

void DeleteFolderTree(std::string_view path) noexcept {
    try {
        std::string host = ResolvePath(path);
        while (host.size() > 1 && host.back() == '/')
            host.pop_back();
        const auto slash = host.rfind('/');
        const std::string parent =
            slash == std::string::npos ? "." : (slash == 0 ? "/" : host.substr(0, slash));
        const std::string name = slash == std::string::npos ? host : host.substr(slash + 1);
        if (name.empty() || name == "." || name == "..")
            return;
        const Descriptor parentFd{::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
        if (parentFd.fd < 0)
            return;
        struct stat st {};
        if (::fstatat(parentFd.fd, name.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        if (S_ISLNK(st.st_mode)) {
            ::unlinkat(parentFd.fd, name.c_str(), 0); // the link goes, its target stays
            return;
        }
        if (S_ISDIR(st.st_mode))
            RemoveEntry(parentFd.fd, name.c_str());
    } catch (...) {
    }
}

std::vector<std::string> ListFolder(std::string_view path, EntryKind kind,
                                    std::vector<std::string>* leftOut) {
    std::vector<std::string> out;
    const std::string host = ResolvePath(path);
    DIR* dir = ::opendir(host.c_str());
    if (!dir)
        return out;
    const int folderFd = ::dirfd(dir);
    while (const dirent* entry = ::readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == ".." || !IsKind(folderFd, *entry, kind))
            continue;
        if (auto decoded = NameFromDisk(name)) {
            out.push_back(std::move(*decoded));
        } else if (leftOut) {
            leftOut->emplace_back(name);
        }
    }
    ::closedir(dir);
    return out;
}

} // namespace platform
