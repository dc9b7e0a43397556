// SPDX-License-Identifier: GPL-3.0-or-later
// The Windows calls of replacing files: each temporary file flushed and put in place with
// MoveFileExW (write through); a file that another program holds open is waited for briefly.
// Names are joined to their folder's path: Windows opens nothing relative to a folder handle.
#include "core/platform/ReplacementSteps.h"

#include "core/PathLookup.h"
#include "core/platform/windows/Win32.h"

#include <cerrno>
#include <chrono>
#include <thread>

namespace platform {
namespace {

using windows::WidePath;

HANDLE Native(FileHandle handle) {
    return reinterpret_cast<HANDLE>(handle);
}

std::wstring PathOf(const FolderRef& folder, const char* name) {
    if (folder.path.empty())
        return WidePath(name);
    std::string path(folder.path);
    if (path.back() != '\\' && path.back() != '/')
        path += '\\';
    return WidePath(path + name);
}

// The last error of this thread's file calls that errno calls an I/O error, for its own words;
// cleared by every call, so that a failure a test makes up is never told with an old reason.
thread_local DWORD unmappedError = 0;

// The system's error as the errno value the seam speaks; the reason then comes from the C
// library's words, as on POSIX.
int ErrnoOf(DWORD error) {
    unmappedError = 0;
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
        return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EBUSY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_DIRECTORY:
        return ENOTDIR;
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
        return ENOTSUP;
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_PARAMETER:
        return EINVAL;
    default:
        unmappedError = error;
        return EIO;
    }
}

template <typename Result> Result Failed(Result result) {
    errno = ErrnoOf(::GetLastError());
    return result;
}

// A file that another program has open without letting others delete or replace it (the
// game, an editor, a virus scanner looking at the new file) refuses the rename for as long as
// it is open. Such a program usually lets go within moments: the rename is tried again for
// up to about a second before it fails.
constexpr auto HeldOpenWait = std::chrono::milliseconds(1000);
constexpr auto HeldOpenStep = std::chrono::milliseconds(50);

bool HeldOpen(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_ACCESS_DENIED;
}

} // namespace

FileHandle FileCalls::Open(const FolderRef& folder, const char* name, Opening how) {
    unmappedError = 0;
    const bool fresh = how == Opening::NewFile;
    const HANDLE file =
        ::CreateFileW(PathOf(folder, name).c_str(), GENERIC_WRITE,
                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      fresh ? CREATE_NEW : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return Failed(NoFile);
    if (!fresh) {
        LARGE_INTEGER end{};
        if (!::SetFilePointerEx(file, end, nullptr, FILE_END)) {
            const DWORD error = ::GetLastError();
            ::CloseHandle(file);
            errno = ErrnoOf(error);
            return NoFile;
        }
    }
    return reinterpret_cast<FileHandle>(file);
}

std::ptrdiff_t FileCalls::Write(FileHandle file, const char* data, std::size_t size) {
    unmappedError = 0;
    DWORD written = 0;
    const auto chunk = static_cast<DWORD>(std::min<std::size_t>(size, 1U << 30));
    if (!::WriteFile(Native(file), data, chunk, &written, nullptr))
        return Failed(std::ptrdiff_t{-1});
    return static_cast<std::ptrdiff_t>(written);
}

int FileCalls::Rename(const FolderRef& folder, const char* from, const char* to, RenameKind kind) {
    unmappedError = 0;
    if (kind == RenameKind::Exchange) {
        errno = ENOTSUP; // the caller moves the old file aside instead
        return -1;
    }
    const std::wstring source = PathOf(folder, from);
    const std::wstring target = PathOf(folder, to);
    const DWORD flags =
        MOVEFILE_WRITE_THROUGH | (kind == RenameKind::Replace ? MOVEFILE_REPLACE_EXISTING : 0);
    const auto deadline = std::chrono::steady_clock::now() + HeldOpenWait;
    for (;;) {
        if (::MoveFileExW(source.c_str(), target.c_str(), flags))
            return 0;
        const DWORD error = ::GetLastError();
        if (!HeldOpen(error) || std::chrono::steady_clock::now() >= deadline) {
            errno = HeldOpen(error) ? EBUSY : ErrnoOf(error);
            return -1;
        }
        std::this_thread::sleep_for(HeldOpenStep);
    }
}

int FileCalls::Sync(FileHandle file) {
    unmappedError = 0;
    return ::FlushFileBuffers(Native(file)) ? 0 : Failed(-1);
}

int FileCalls::Truncate(FileHandle file, std::int64_t length) {
    unmappedError = 0;
    LARGE_INTEGER position{};
    position.QuadPart = length;
    if (!::SetFilePointerEx(Native(file), position, nullptr, FILE_BEGIN) ||
        !::SetEndOfFile(Native(file)))
        return Failed(-1);
    return 0;
}

int FileCalls::MakeFolder(const char* path) {
    unmappedError = 0;
    return ::CreateDirectoryW(WidePath(path).c_str(), nullptr) ? 0 : Failed(-1);
}

std::optional<std::string> ReadBytes(std::string_view path) {
    std::string host = HostPath(path);
    const auto open = [](const std::string& hostPath) {
        return ::CreateFileW(WidePath(hostPath).c_str(), GENERIC_READ,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    const auto missing = [](DWORD error) {
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    };
    windows::Handle file{open(host)};
    if (!file.ok() && missing(::GetLastError())) {
        // Spelled differently on disk, or missing.
        std::string resolved = ResolvePath(path);
        if (resolved == host)
            return std::nullopt;
        host = std::move(resolved);
        file.h = open(host);
    }
    if (!file.ok()) {
        const DWORD error = ::GetLastError();
        // A folder opens as "access denied": it holds no bytes, as a missing file does not.
        const DWORD attributes = ::GetFileAttributesW(WidePath(host).c_str());
        const bool folder =
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (missing(error) || (error == ERROR_ACCESS_DENIED && folder))
            return std::nullopt;
        throw FileError(host, windows::Reason(error));
    }
    if (::GetFileType(file.h) != FILE_TYPE_DISK)
        return std::nullopt;
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.h, &size))
        throw FileError(host, windows::Reason(::GetLastError()));
    std::string bytes(static_cast<std::size_t>(size.QuadPart) + 1, '\0');
    std::size_t total = 0;
    for (;;) {
        if (total == bytes.size())
            bytes.resize(bytes.size() * 2);
        const auto wanted =
            static_cast<DWORD>(std::min<std::size_t>(bytes.size() - total, 1U << 30));
        DWORD got = 0;
        if (!::ReadFile(file.h, bytes.data() + total, wanted, &got, nullptr))
            throw FileError(host, windows::Reason(::GetLastError()));
        total += got;
        if (got == 0)
            break;
    }
    bytes.resize(total);
    return bytes;
}

namespace steps {

std::string Reason(int error) {
    if (error == EIO && unmappedError != 0)
        return windows::Reason(unmappedError);
    return error == EBUSY ? "the file is in use by another program" : SystemReason(error);
}

char Separator() {
    return '\\';
}

std::string ProcessId() {
    return std::to_string(::GetCurrentProcessId());
}

bool ProcessEnded(const std::string& id) {
    const windows::Handle process{
        ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, std::stoul(id))};
    if (!process.ok())
        return ::GetLastError() == ERROR_INVALID_PARAMETER; // no process of that id
    DWORD code = 0;
    return ::GetExitCodeProcess(process.h, &code) && code != STILL_ACTIVE;
}

void EachName(const std::string& hostFolder, const std::function<void(const char* name)>& each) {
    windows::ListEntries(
        hostFolder, [&](const std::string& name, const WIN32_FIND_DATAW&) { each(name.c_str()); });
}

FileHandle OpenFolder(const std::string& hostFolder, int& error) {
    const DWORD attributes = ::GetFileAttributesW(WidePath(hostFolder).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        error = ErrnoOf(::GetLastError());
    else
        error = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? 0 : ENOTDIR;
    return NoFile; // names are joined to the folder's path
}

void CloseFolder(FileHandle folder) noexcept {
    ::CloseHandle(Native(folder));
}

void CloseFile(FileHandle file) noexcept {
    ::CloseHandle(Native(file));
}

bool RemoveName(const FolderRef& folder, const std::string& name) noexcept {
    try {
        return ::DeleteFileW(PathOf(folder, name.c_str()).c_str()) != 0;
    } catch (...) {
        return false;
    }
}

Target Examine(const FolderRef& folder, const std::string& name, const std::string& hostPath,
               Presence presence) {
    if (presence == Presence::Missing)
        return {};
    const DWORD attributes = ::GetFileAttributesW(PathOf(folder, name.c_str()).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return {};
    if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0)
        throw FileError(hostPath, "not an ordinary file");
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        throw FileError(hostPath, "the file is read-only");
    return Target{true, attributes};
}

void CarryPermissions(FileHandle, const Target&, std::optional<std::uint32_t>&) noexcept {
    // A new file inherits the folder's access rules, as the old one did.
}

bool LinkAside(const FolderRef&, const std::string&, const std::string&) {
    return false; // the old file is moved aside by a rename, so that nothing holds it twice
}

bool SyncsEachFile() {
    return true;
}

std::int64_t FileSize(FileHandle file) {
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(Native(file), &size))
        return Failed(std::int64_t{-1});
    return size.QuadPart;
}

} // namespace steps
} // namespace platform
