#include "core/FileReplacement.h"

#include "core/PathLookup.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <dirent.h>
#include <exception>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <unordered_map>

namespace platform {
namespace {

constexpr std::string_view TemporaryPrefix = ".orrindel-";

// "<pid>-<start>": the process id and the moment the process first wrote. The moment tells
// our own temporary files from those that an ended program with the same id left behind.
const std::string& ProcessTag() {
    static const std::string tag = [] {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return std::to_string(::getpid()) + "-" +
               std::to_string(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
    }();
    return tag;
}

std::string FolderOf(const std::string& hostPath) {
    const auto slash = hostPath.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : hostPath.substr(0, slash);
}

void WriteAll(FileCalls& calls, int fd, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written = calls.Write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            throw FileError(path, SystemReason(errno));
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

// A fresh name for a temporary file of ours.
std::string NextTemporaryName() {
    static std::atomic<unsigned> counter{0};
    return std::string(TemporaryPrefix) + ProcessTag() + "-" + std::to_string(counter++);
}

struct Temporary {
    std::string name; // in the target's folder
    bool targetExisted = false;
};

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

// Writes the bytes into a new temporary file beside the target, named in the folder open as
// dir. newFileMode: the mode that a new file gets here, learnt from the first temporary file
// that needs it.
Temporary WriteTemporary(FileCalls& calls, int dir, const std::string& target,
                         const std::string& name, const StagedReplacement::Pieces& pieces,
                         Presence presence, std::optional<mode_t>& newFileMode) {
    struct stat existing {};
    const bool exists =
        presence != Presence::Missing && ::fstatat(dir, name.c_str(), &existing, 0) == 0;
    if (exists && !S_ISREG(existing.st_mode))
        throw FileError(target, "not an ordinary file");
    if (exists && !Writable(dir, name, existing))
        throw FileError(target, "the file is read-only");
    // A fresh name beside the target, created with the usual permissions (the umask applies);
    // an existing file's own permissions are carried over.
    Temporary temporary{{}, exists};
    Descriptor file;
    for (int attempt = 0; file.fd < 0; ++attempt) {
        temporary.name = NextTemporaryName();
        file.fd =
            calls.Open(dir, temporary.name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file.fd < 0 && (errno != EEXIST || attempt > 100))
            throw FileError(target,
                            errno == ENOENT ? "the folder does not exist" : SystemReason(errno));
    }
    try {
        if (exists && !newFileMode) {
            struct stat created {};
            if (::fstat(file.fd, &created) == 0)
                newFileMode = created.st_mode & 07777;
        }
        if (exists && newFileMode != (existing.st_mode & 07777))
            ::fchmod(file.fd, existing.st_mode & 07777);
        // No sync per file: the rename alone guarantees that a crashed program leaves the old
        // or the new file, and syncing every keystroke's write would make editing sluggish.
        pieces([&](std::string_view piece) { WriteAll(calls, file.fd, piece, target); });
    } catch (...) {
        ::unlinkat(dir, temporary.name.c_str(), 0);
        throw;
    }
    return temporary;
}

// Bytes given whole, as one piece.
StagedReplacement::Pieces Whole(std::string_view bytes) {
    return [bytes](const std::function<void(std::string_view)>& put) { put(bytes); };
}

// Below this many files a second thread costs more to start than it saves.
constexpr std::size_t BatchForTwoThreads = 64;

bool Unsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

std::string BackupOf(const std::string& temporary) {
    return temporary + "-old";
}

// Throws what failed, when anything did: one failure as it is, several (of work done side by
// side) as one error that names each, the first in order leading.
void ThrowFailures(const std::vector<std::exception_ptr>& failures) {
    std::exception_ptr first;
    std::string others;
    for (const std::exception_ptr& failure : failures) {
        if (!failure)
            continue;
        if (!first) {
            first = failure;
            continue;
        }
        try {
            std::rethrow_exception(failure);
        } catch (const std::exception& error) {
            others.append("; ").append(error.what());
        }
    }
    if (!first)
        return;
    if (others.empty())
        std::rethrow_exception(first);
    try {
        std::rethrow_exception(first);
    } catch (const FileError& error) {
        const std::string_view reason =
            std::string_view(error.what()).substr(ForMessage(error.path()).size() + 2);
        throw FileError(error.path(), std::string(reason) + others);
    }
}

// The history's witness of writes, when one is set.
std::atomic<WriteWitness*>& Witness() {
    static std::atomic<WriteWitness*> witness{nullptr};
    return witness;
}
} // namespace

void SetWriteWitness(WriteWitness* witness) {
    Witness() = witness;
}

WriteWitness* CurrentWriteWitness() {
    return Witness().load(std::memory_order_relaxed);
}

int FileCalls::Open(int dir, const char* name, int flags, mode_t mode) {
    return ::openat(dir, name, flags, mode);
}

ssize_t FileCalls::Write(int fd, const char* data, std::size_t size) {
    return ::write(fd, data, size);
}

int FileCalls::Rename(int dir, const char* from, const char* to, unsigned flags) {
    return ::renameat2(dir, from, dir, to, flags);
}

int FileCalls::Sync(int fd) {
    return ::syncfs(fd);
}

int FileCalls::Truncate(int fd, off_t length) {
    return ::ftruncate(fd, length);
}

int FileCalls::MakeFolder(const char* path, mode_t mode) {
    return ::mkdir(path, mode);
}

FileCalls& SystemFileCalls() {
    static FileCalls calls; // holds no state
    return calls;
}

namespace {
// The calls a test has put in place; null for the system's own. Atomic: the compiles of a
// project write from several threads while a test's calls are in place.
std::atomic<FileCalls*> installedCalls{nullptr};
} // namespace

FileCalls& CurrentFileCalls() {
    FileCalls* installed = installedCalls.load();
    return installed ? *installed : SystemFileCalls();
}

FileCallsInstalled::FileCallsInstalled(FileCalls& calls)
    : previous_(installedCalls.exchange(&calls)) {}

FileCallsInstalled::~FileCallsInstalled() {
    installedCalls.store(previous_);
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

void ReplaceFile(std::string_view path, std::string_view bytes, FileCalls& calls) {
    StagedReplacement replacement(calls);
    replacement.Stage(path, bytes);
    replacement.Commit();
}

void AppendBytes(std::string_view path, std::string_view bytes) {
    const std::string host = ResolvePath(path);
    FileCalls& calls = CurrentFileCalls();
    Descriptor file{calls.Open(AT_FDCWD, host.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC, 0)};
    if (file.fd < 0 && errno == ENOENT) {
        // A new file is written whole, like any replacement: never a part of it on disk.
        ReplaceFile(host, bytes);
        return;
    }
    if (file.fd < 0)
        throw FileError(host, SystemReason(errno));
    struct stat before {};
    if (::fstat(file.fd, &before) != 0)
        throw FileError(host, SystemReason(errno));
    try {
        WriteAll(calls, file.fd, bytes, host);
    } catch (const FileError&) {
        // All or nothing: the part written before the failure goes again. Should even that
        // fail, the error already names the file.
        calls.Truncate(file.fd, before.st_size);
        throw;
    }
}

void RemoveLeftoverTemporaries(const std::string& hostFolder) {
    DIR* dir = ::opendir(hostFolder.c_str());
    if (!dir)
        return;
    const std::string& own = ProcessTag();
    const std::string_view ownPid = std::string_view(own).substr(0, own.find('-'));
    std::unordered_map<std::string, bool> ended; // process id -> gone
    while (const dirent* entry = ::readdir(dir)) {
        std::string_view name = entry->d_name;
        if (!name.starts_with(TemporaryPrefix))
            continue;
        name.remove_prefix(TemporaryPrefix.size());
        const auto dash = name.find('-');
        if (dash == 0 || dash == std::string_view::npos)
            continue;
        const std::string pid(name.substr(0, dash));
        if (pid.size() > 9 || pid.find_first_not_of("0123456789") != std::string::npos)
            continue; // no process id of ours
        bool leftover;
        if (pid == ownPid) {
            // Ours only when it carries our tag; else an ended program had our id before.
            leftover = !name.starts_with(own + "-");
        } else {
            auto [it, inserted] = ended.try_emplace(pid, false);
            if (inserted)
                it->second = ::kill(static_cast<pid_t>(std::stol(pid)), 0) != 0 && errno == ESRCH;
            leftover = it->second;
        }
        if (leftover)
            ::unlinkat(::dirfd(dir), entry->d_name, 0);
    }
    ::closedir(dir);
}

StagedReplacement::~StagedReplacement() {
    for (const auto& item : staged_) {
        if (item.placed == Placed::No && !item.removal)
            ::unlinkat(item.dir, item.temporary.c_str(), 0);
    }
}

void StagedReplacement::Stage(std::string_view path, std::string_view bytes) {
    StageResolved(ResolvePath(path), bytes);
}

void StagedReplacement::StageResolved(const std::string& hostPath, std::string_view bytes,
                                      Presence presence) {
    std::optional<Staged> staged;
    StageIn(FolderFor(hostPath), hostPath, Whole(bytes), presence, newFileMode_, staged);
    staged_.push_back(std::move(*staged));
}

void StagedReplacement::StageAll(const std::vector<Staging>& files) {
    std::vector<const Folder*> folders; // opened here: the threads only look them up
    folders.reserve(files.size());
    for (const Staging& file : files)
        folders.push_back(&FolderFor(file.hostPath));
    std::vector<std::optional<Staged>> written(files.size());
    std::vector<std::exception_ptr> failures(files.size());
    std::atomic<bool> failed{false};
    // Each thread learns the mode of a new file for itself: one look more at most. After a
    // failure neither starts another file: the batch is lost anyway.
    const auto writeEvery = [&](std::size_t first, std::size_t step, std::optional<mode_t>& mode) {
        for (std::size_t i = first; i < files.size() && !failed; i += step) {
            try {
                const Staging& file = files[i];
                StageIn(*folders[i], file.hostPath, file.pieces ? file.pieces : Whole(file.bytes),
                        file.presence, mode, written[i]);
            } catch (...) {
                failures[i] = std::current_exception();
                failed = true;
            }
        }
    };
    if (files.size() < BatchForTwoThreads) {
        writeEvery(0, 1, newFileMode_);
    } else {
        std::optional<mode_t> otherMode = newFileMode_;
        {
            const std::jthread other(writeEvery, 1, 2, std::ref(otherMode));
            writeEvery(0, 2, newFileMode_);
        }
        if (!newFileMode_)
            newFileMode_ = otherMode;
    }
    for (std::optional<Staged>& staged : written)
        if (staged)
            staged_.push_back(std::move(*staged));
    ThrowFailures(failures);
}

void StagedReplacement::StageIn(const Folder& folder, const std::string& hostPath,
                                const Pieces& pieces, Presence presence,
                                std::optional<mode_t>& newFileMode, std::optional<Staged>& staged) {
    if (folder.dir.fd < 0)
        throw FileError(hostPath, folder.error == ENOENT || folder.error == ENOTDIR
                                      ? "the folder does not exist"
                                      : SystemReason(folder.error));
    std::string name = hostPath.substr(hostPath.rfind('/') + 1);
    // A history that keeps the file gets a copy of its bytes as they are written.
    std::optional<std::string> copy;
    const WriteWitness* witness = CurrentWriteWitness();
    if (witness && witness->Wants(hostPath))
        copy.emplace();
    const Pieces copied = [&](const std::function<void(std::string_view)>& put) {
        pieces([&](std::string_view piece) {
            copy->append(piece);
            put(piece);
        });
    };
    Temporary temporary = WriteTemporary(calls_, folder.dir.fd, hostPath, name,
                                         copy ? copied : pieces, presence, newFileMode);
    staged.emplace(Staged{hostPath, folder.dir.fd, std::move(name), std::move(temporary.name),
                          temporary.targetExisted, Placed::No, false, std::move(copy)});
}

const StagedReplacement::Folder& StagedReplacement::FolderFor(const std::string& hostPath) {
    const std::string path = FolderOf(hostPath);
    for (const Folder& folder : folders_)
        if (folder.path == path)
            return folder;
    RemoveLeftoverTemporaries(path);
    Folder& folder = folders_.emplace_back();
    folder.path = path;
    folder.dir.fd = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    folder.error = folder.dir.fd < 0 ? errno : 0;
    return folder;
}

void StagedReplacement::StageRemoval(const std::string& hostPath) {
    const Folder& folder = FolderFor(hostPath);
    if (folder.dir.fd < 0)
        return; // no folder, no file to remove
    staged_.push_back(Staged{hostPath, folder.dir.fd, hostPath.substr(hostPath.rfind('/') + 1),
                             NextTemporaryName(), true, Placed::No, true, std::nullopt});
}

void StagedReplacement::Tidy(const std::string& hostPath) {
    FolderFor(hostPath);
}

void StagedReplacement::Place(Staged& item) {
    const int dir = item.dir;
    const char* from = item.temporary.c_str();
    const char* to = item.name.c_str();
    if (item.removal) {
        // Aside under a name of ours, so that a failure later on can bring it back.
        if (calls_.Rename(dir, to, from, RENAME_NOREPLACE) == 0 ||
            (Unsupported(errno) && calls_.Rename(dir, to, from, 0) == 0)) {
            item.placed = Placed::MovedAside;
            return;
        }
        if (errno == ENOENT)
            return; // gone already
        throw FileError(item.target, SystemReason(errno));
    }
    if (staged_.size() == 1) {
        // A file replaced alone needs no way back: a plain rename puts it in place.
        if (calls_.Rename(dir, from, to, 0) != 0)
            throw FileError(item.target, SystemReason(errno));
        item.placed = Placed::AsNew;
        return;
    }
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (item.existed) {
            // The exchange keeps the old content under the temporary name until the end.
            if (calls_.Rename(dir, from, to, RENAME_EXCHANGE) == 0) {
                item.placed = Placed::Exchanged;
                return;
            }
            if (errno == ENOENT) { // the target went away meanwhile
                item.existed = false;
                continue;
            }
            if (!Unsupported(errno))
                break;
            // A file system without the exchange: keep the old content under a second name,
            // a link where there are links, else the old file itself moved aside.
            const std::string backup = BackupOf(item.temporary);
            const bool linked = ::linkat(dir, to, dir, backup.c_str(), 0) == 0;
            if (!linked && calls_.Rename(dir, to, backup.c_str(), 0) != 0)
                break;
            if (calls_.Rename(dir, from, to, 0) != 0) {
                const int error = errno;
                if (linked)
                    ::unlinkat(dir, backup.c_str(), 0);
                else
                    calls_.Rename(dir, backup.c_str(), to, 0);
                errno = error;
                break;
            }
            item.placed = Placed::BackedUp;
            return;
        }
        if (calls_.Rename(dir, from, to, RENAME_NOREPLACE) == 0) {
            item.placed = Placed::AsNew;
            return;
        }
        if (errno == EEXIST) { // the target appeared meanwhile
            item.existed = true;
            continue;
        }
        if (!Unsupported(errno) || calls_.Rename(dir, from, to, 0) != 0)
            break;
        item.placed = Placed::AsNew;
        return;
    }
    throw FileError(item.target, SystemReason(errno));
}

void StagedReplacement::Restore(Staged& item) noexcept {
    bool restored = true;
    switch (item.placed) {
    case Placed::No:
        return;
    case Placed::AsNew:
        restored = ::unlinkat(item.dir, item.name.c_str(), 0) == 0;
        break;
    case Placed::Exchanged:
        restored = calls_.Rename(item.dir, item.temporary.c_str(), item.name.c_str(),
                                 RENAME_EXCHANGE) == 0;
        break;
    case Placed::BackedUp:
        restored =
            calls_.Rename(item.dir, BackupOf(item.temporary).c_str(), item.name.c_str(), 0) == 0;
        break;
    case Placed::MovedAside:
        restored = calls_.Rename(item.dir, item.temporary.c_str(), item.name.c_str(), 0) == 0;
        break;
    }
    // When the way back fails too, the old content stays under its temporary name rather
    // than being removed with the temporaries.
    if (restored)
        item.placed = Placed::No;
}

void StagedReplacement::Commit() {
    if (WriteWitness* witness = CurrentWriteWitness())
        for (const Staged& item : staged_)
            witness->Changing(item.target);
    if (staged_.size() > 1) {
        // The contents reach the disk before any name changes, so that a crash in the middle
        // of the renames leaves whole files, old or new.
        if (calls_.Sync(staged_.front().dir) != 0)
            throw FileError(staged_.front().target, SystemReason(errno));
    }
    // A large batch is put in place from two threads as well; after a failure neither
    // starts another file, and every file already placed is restored.
    std::vector<std::exception_ptr> failures(staged_.size());
    std::atomic<bool> failed{false};
    const auto placeEvery = [&](std::size_t first, std::size_t step) {
        for (std::size_t i = first; i < staged_.size() && !failed; i += step) {
            try {
                Place(staged_[i]);
            } catch (...) {
                failures[i] = std::current_exception();
                failed = true;
            }
        }
    };
    if (staged_.size() < BatchForTwoThreads) {
        placeEvery(0, 1);
    } else {
        const std::jthread other(placeEvery, 1, 2);
        placeEvery(0, 2);
    }
    if (failed) {
        for (auto item = staged_.rbegin(); item != staged_.rend(); ++item)
            Restore(*item);
        ThrowFailures(failures);
    }
    if (WriteWitness* witness = CurrentWriteWitness())
        for (Staged& item : staged_)
            if (item.removal || item.copy)
                witness->Written(item.target, std::move(item.copy));
    for (const Staged& item : staged_) {
        if (item.placed == Placed::Exchanged || item.placed == Placed::MovedAside)
            ::unlinkat(item.dir, item.temporary.c_str(), 0); // the old content
        else if (item.placed == Placed::BackedUp)
            ::unlinkat(item.dir, BackupOf(item.temporary).c_str(), 0);
    }
    staged_.clear();
}

} // namespace platform
