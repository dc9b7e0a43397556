// SPDX-License-Identifier: GPL-3.0-or-later
// The POSIX calls of replacing files: descriptors relative to a folder kept open, the
// permissions of the replaced file carried over, renameat2 for the rename kinds.
#include "core/platform/ReplacementSteps.h"

#include "core/PathLookup.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

int Fd(FileHandle handle) {
    return static_cast<int>(handle);
}

// The folder a name is looked up in: a name alone is taken as it is (absolute or relative
// to the working folder).
int DirFd(const FolderRef& folder) {
    return folder.handle == NoFile ? AT_FDCWD : Fd(folder.handle);
}

unsigned RenameFlags(RenameKind kind) {
    switch (kind) {
    case RenameKind::NoReplace:
        return RENAME_NOREPLACE;
    case RenameKind::Exchange:
        return RENAME_EXCHANGE;
    case RenameKind::Replace:
        break;
    }
    return 0;
}

// Whether a file may be replaced. A file without write permission is read-only for everyone,
// the superuser included; for its owner its owner's bit decides, so only others need to ask.
bool Writable(int dir, const std::string& name, const struct stat& existing) {
    static const uid_t user = ::geteuid();
    if ((existing.st_mode & 0222) == 0)
        return false;
    if (existing.st_uid == user)
        return user == 0 || (existing.st_mode & S_IWUSR) != 0;
    return ::faccessat(dir, name.c_str(), W_OK, 0) == 0;
}

} // namespace

FileHandle FileCalls::Open(const FolderRef& folder, const char* name, Opening how) {
    const int flags = how == Opening::NewFile ? O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC
                                              : O_WRONLY | O_APPEND | O_CLOEXEC;
    return ::openat(DirFd(folder), name, flags, 0666);
}

std::ptrdiff_t FileCalls::Write(FileHandle file, const char* data, std::size_t size) {
    return ::write(Fd(file), data, size);
}

int FileCalls::Rename(const FolderRef& folder, const char* from, const char* to, RenameKind kind) {
    const int dir = DirFd(folder);
    const int result = ::renameat2(dir, from, dir, to, RenameFlags(kind));
    // The kinds this file system cannot do, told as one reason.
    if (result != 0 && kind != RenameKind::Replace && (errno == EINVAL || errno == ENOSYS))
        errno = ENOTSUP;
    return result;
}

int FileCalls::Sync(FileHandle file) {
    return ::syncfs(Fd(file));
}

int FileCalls::Truncate(FileHandle file, std::int64_t length) {
    return ::ftruncate(Fd(file), static_cast<off_t>(length));
}

int FileCalls::MakeFolder(const char* path) {
    return ::mkdir(path, 0777);
}

std::optional<std::string> ReadBytes(std::string_view path) {
    std::string host = HostPath(path);
    Descriptor file{::open(host.c_str(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0 && (errno == ENOENT || errno == ENOTDIR)) {
        // Spelled differently on disk, or missing.
        std::string resolved = ResolvePath(path);
        if (resolved == host)
            return std::nullopt;
        host = std::move(resolved);
        file.fd = ::open(host.c_str(), O_RDONLY | O_CLOEXEC);
    }
    if (file.fd < 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return std::nullopt;
        throw FileError(host, SystemReason(errno));
    }
    struct stat st {};
    if (::fstat(file.fd, &st) != 0)
        throw FileError(host, SystemReason(errno));
    if (!S_ISREG(st.st_mode))
        return std::nullopt;
    const auto expected = static_cast<std::size_t>(st.st_size);
    std::string bytes(expected + 1, '\0');
    std::size_t total = 0;
    for (;;) {
        if (total == bytes.size())
            bytes.resize(bytes.size() * 2);
        const std::size_t wanted = bytes.size() - total;
        const ssize_t got = ::read(file.fd, bytes.data() + total, wanted);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            throw FileError(host, SystemReason(errno));
        }
        total += static_cast<std::size_t>(got);
        // A short read that reaches the size the file had when it was opened is its end;
        // it saves the extra read that would only return nothing.
        if (got == 0 || (static_cast<std::size_t>(got) < wanted && total >= expected))
            break;
    }
    bytes.resize(total);
    return bytes;
}

namespace steps {

std::string Reason(int error) {
    return error == EBUSY ? "the file is in use by another program" : SystemReason(error);
}

char Separator() {
    return '/';
}

std::string ProcessId() {
    return std::to_string(::getpid());
}

bool ProcessEnded(const std::string& id) {
    return ::kill(static_cast<pid_t>(std::stol(id)), 0) != 0 && errno == ESRCH;
}

void EachName(const std::string& hostFolder, const std::function<void(const char* name)>& each) {
    DIR* dir = ::opendir(hostFolder.c_str());
    if (!dir)
        return;
    while (const dirent* entry = ::readdir(dir))
        each(entry->d_name);
    ::closedir(dir);
}

FileHandle OpenFolder(const std::string& hostFolder, int& error) {
    const int fd = ::open(hostFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    error = fd < 0 ? errno : 0;
    return fd < 0 ? NoFile : fd;
}

void CloseFolder(FileHandle folder) noexcept {
    ::close(Fd(folder));
}

void CloseFile(FileHandle file) noexcept {
    ::close(Fd(file));
}

bool RemoveName(const FolderRef& folder, const std::string& name) noexcept {
    return ::unlinkat(DirFd(folder), name.c_str(), 0) == 0;
}

Target Examine(const FolderRef& folder, const std::string& name, const std::string& hostPath,
               Presence presence) {
    struct stat existing {};
    const int dir = DirFd(folder);
    const bool exists =
        presence != Presence::Missing && ::fstatat(dir, name.c_str(), &existing, 0) == 0;
    if (exists && !S_ISREG(existing.st_mode))
        throw FileError(hostPath, "not an ordinary file");
    if (exists && !Writable(dir, name, existing))
        throw FileError(hostPath, "the file is read-only");
    return Target{exists, exists ? existing.st_mode & 07777 : 0};
}

void CarryPermissions(FileHandle temporary, const Target& target,
                      std::optional<std::uint32_t>& newFileMode) noexcept {
    if (!target.exists)
        return;
    if (!newFileMode) {
        struct stat created {};
        if (::fstat(Fd(temporary), &created) == 0)
            newFileMode = created.st_mode & 07777;
    }
    if (newFileMode != target.permissions)
        ::fchmod(Fd(temporary), static_cast<mode_t>(target.permissions));
}

bool LinkAside(const FolderRef& folder, const std::string& name, const std::string& second) {
    const int dir = DirFd(folder);
    return ::linkat(dir, name.c_str(), dir, second.c_str(), 0) == 0;
}

bool SyncsEachFile() {
    return false;
}

std::int64_t FileSize(FileHandle file) {
    struct stat st {};
    if (::fstat(Fd(file), &st) != 0)
        return -1;
    return st.st_size;
}

} // namespace steps
} // namespace platform
