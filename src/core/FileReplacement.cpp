// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileReplacement.h"

// The staging, committing and restoring, the same on every system; the system's own calls
// are in platform/<system>/ReplacementSteps.cpp and the FileCalls there.
#include "core/PathLookup.h"
#include "core/platform/ReplacementSteps.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <exception>
#include <thread>
#include <unordered_map>

namespace platform {
namespace {

constexpr std::string_view TemporaryPrefix = ".orrindel-";

// "<pid>-<start>": the process id and the moment the process first wrote. The moment tells
// our own temporary files from those that an ended program with the same id left behind.
const std::string& ProcessTag() {
    static const std::string tag = [] {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return steps::ProcessId() + "-" +
               std::to_string(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
    }();
    return tag;
}

std::string FolderOf(const std::string& hostPath) {
    const auto slash = hostPath.rfind(steps::Separator());
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? hostPath.substr(0, 1) : hostPath.substr(0, slash);
}

std::string NameOf(const std::string& hostPath) {
    return hostPath.substr(hostPath.rfind(steps::Separator()) + 1);
}

// Closes an open file on scope exit, or earlier.
struct OpenFile {
    FileHandle handle = NoFile;
    OpenFile() = default;
    explicit OpenFile(FileHandle h) : handle(h) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { Close(); }
    void Close() noexcept {
        if (handle != NoFile)
            steps::CloseFile(handle);
        handle = NoFile;
    }
};

void WriteAll(FileCalls& calls, FileHandle file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const std::ptrdiff_t written = calls.Write(file, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            throw FileError(path, steps::Reason(errno));
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

// Writes the bytes into a new temporary file beside the target, named in its folder.
// newFileMode: the permissions that a new file gets here, once known.
Temporary WriteTemporary(FileCalls& calls, const FolderRef& folder, const std::string& target,
                         const std::string& name, const StagedReplacement::Pieces& pieces,
                         Presence presence, std::optional<std::uint32_t>& newFileMode) {
    const steps::Target existing = steps::Examine(folder, name, target, presence);
    // A fresh name beside the target, created with the usual permissions (the umask applies);
    // an existing file's own permissions are carried over.
    Temporary temporary{{}, existing.exists};
    OpenFile file;
    for (int attempt = 0; file.handle == NoFile; ++attempt) {
        temporary.name = NextTemporaryName();
        file.handle = calls.Open(folder, temporary.name.c_str(), Opening::NewFile);
        if (file.handle == NoFile && (errno != EEXIST || attempt > 100))
            throw FileError(target,
                            errno == ENOENT ? "the folder does not exist" : steps::Reason(errno));
    }
    try {
        steps::CarryPermissions(file.handle, existing, newFileMode);
        // No sync per file where the system keeps a rename behind the file's bytes: the rename
        // alone guarantees that a crashed program leaves the old or the new file, and syncing
        // every keystroke's write would make editing sluggish.
        pieces([&](std::string_view piece) { WriteAll(calls, file.handle, piece, target); });
        if (steps::SyncsEachFile() && calls.Sync(file.handle) != 0)
            throw FileError(target, steps::Reason(errno));
    } catch (...) {
        file.Close(); // an open file cannot be removed everywhere
        steps::RemoveName(folder, temporary.name);
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

bool RemoveWitnessed(const std::string& hostPath, const std::function<bool()>& remove) {
    WriteWitness* witness = CurrentWriteWitness();
    if (witness)
        witness->Changing(hostPath);
    if (!remove())
        return false;
    if (witness)
        witness->Written(hostPath, std::nullopt);
    return true;
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

void ReplaceFile(std::string_view path, std::string_view bytes, FileCalls& calls) {
    StagedReplacement replacement(calls);
    replacement.Stage(path, bytes);
    replacement.Commit();
}

void AppendBytes(std::string_view path, std::string_view bytes) {
    const std::string host = ResolvePath(path);
    FileCalls& calls = CurrentFileCalls();
    OpenFile file{calls.Open(FolderRef{}, host.c_str(), Opening::Append)};
    if (file.handle == NoFile && errno == ENOENT) {
        // A new file is written whole, like any replacement: never a part of it on disk.
        ReplaceFile(host, bytes);
        return;
    }
    if (file.handle == NoFile)
        throw FileError(host, steps::Reason(errno));
    const std::int64_t before = steps::FileSize(file.handle);
    if (before < 0)
        throw FileError(host, steps::Reason(errno));
    try {
        WriteAll(calls, file.handle, bytes, host);
    } catch (const FileError&) {
        // All or nothing: the part written before the failure goes again. Should even that
        // fail, the error already names the file.
        calls.Truncate(file.handle, before);
        throw;
    }
}

void RemoveLeftoverTemporaries(const std::string& hostFolder) {
    const std::string& own = ProcessTag();
    const std::string_view ownPid = std::string_view(own).substr(0, own.find('-'));
    std::unordered_map<std::string, bool> ended; // process id -> gone
    std::vector<std::string> leftovers;
    steps::EachName(hostFolder, [&](const char* entry) {
        std::string_view name = entry;
        if (!name.starts_with(TemporaryPrefix))
            return;
        name.remove_prefix(TemporaryPrefix.size());
        const auto dash = name.find('-');
        if (dash == 0 || dash == std::string_view::npos)
            return;
        const std::string pid(name.substr(0, dash));
        if (pid.size() > 10 || pid.find_first_not_of("0123456789") != std::string::npos)
            return; // no process id of ours
        bool leftover;
        if (pid == ownPid) {
            // Ours only when it carries our tag; else an ended program had our id before.
            leftover = !name.starts_with(own + "-");
        } else {
            auto [it, inserted] = ended.try_emplace(pid, false);
            if (inserted)
                it->second = steps::ProcessEnded(pid);
            leftover = it->second;
        }
        if (leftover)
            leftovers.emplace_back(entry);
    });
    for (const std::string& name : leftovers)
        steps::RemoveName(FolderRef{}, hostFolder + steps::Separator() + name);
}

StagedReplacement::Folder::~Folder() {
    if (handle != NoFile)
        steps::CloseFolder(handle);
}

StagedReplacement::~StagedReplacement() {
    for (const auto& item : staged_) {
        if (item.placed == Placed::No && !item.removal)
            steps::RemoveName(item.dir, item.temporary);
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
    const auto writeEvery = [&](std::size_t first, std::size_t step,
                                std::optional<std::uint32_t>& mode) {
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
        std::optional<std::uint32_t> otherMode = newFileMode_;
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
                                std::optional<std::uint32_t>& newFileMode,
                                std::optional<Staged>& staged) {
    if (folder.error != 0)
        throw FileError(hostPath, folder.error == ENOENT || folder.error == ENOTDIR
                                      ? "the folder does not exist"
                                      : SystemReason(folder.error));
    std::string name = NameOf(hostPath);
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
    Temporary temporary = WriteTemporary(calls_, folder.Ref(), hostPath, name,
                                         copy ? copied : pieces, presence, newFileMode);
    staged.emplace(Staged{hostPath, folder.Ref(), std::move(name), std::move(temporary.name),
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
    folder.handle = steps::OpenFolder(path, folder.error);
    return folder;
}

void StagedReplacement::StageRemoval(const std::string& path) {
    const std::string hostPath = HostPath(path);
    const Folder& folder = FolderFor(hostPath);
    if (folder.error != 0)
        return; // no folder, no file to remove
    staged_.push_back(Staged{hostPath, folder.Ref(), NameOf(hostPath), NextTemporaryName(), true,
                             Placed::No, true, std::nullopt});
}

void StagedReplacement::Tidy(const std::string& hostPath) {
    FolderFor(hostPath);
}

void StagedReplacement::Place(Staged& item) {
    const FolderRef& dir = item.dir;
    const char* from = item.temporary.c_str();
    const char* to = item.name.c_str();
    if (item.removal) {
        // Aside under a name of ours, so that a failure later on can bring it back.
        if (calls_.Rename(dir, to, from, RenameKind::NoReplace) == 0 ||
            (Unsupported(errno) && calls_.Rename(dir, to, from, RenameKind::Replace) == 0)) {
            item.placed = Placed::MovedAside;
            return;
        }
        if (errno == ENOENT)
            return; // gone already
        throw FileError(item.target, steps::Reason(errno));
    }
    if (staged_.size() == 1) {
        // A file replaced alone needs no way back: a plain rename puts it in place.
        if (calls_.Rename(dir, from, to, RenameKind::Replace) != 0)
            throw FileError(item.target, steps::Reason(errno));
        item.placed = Placed::AsNew;
        return;
    }
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (item.existed) {
            // The exchange keeps the old content under the temporary name until the end.
            if (calls_.Rename(dir, from, to, RenameKind::Exchange) == 0) {
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
            const bool linked = steps::LinkAside(dir, item.name, backup);
            if (!linked && calls_.Rename(dir, to, backup.c_str(), RenameKind::Replace) != 0)
                break;
            if (calls_.Rename(dir, from, to, RenameKind::Replace) != 0) {
                const int error = errno;
                if (linked)
                    steps::RemoveName(dir, backup);
                else
                    calls_.Rename(dir, backup.c_str(), to, RenameKind::Replace);
                errno = error;
                break;
            }
            item.placed = Placed::BackedUp;
            return;
        }
        if (calls_.Rename(dir, from, to, RenameKind::NoReplace) == 0) {
            item.placed = Placed::AsNew;
            return;
        }
        if (errno == EEXIST) { // the target appeared meanwhile
            item.existed = true;
            continue;
        }
        if (!Unsupported(errno) || calls_.Rename(dir, from, to, RenameKind::Replace) != 0)
            break;
        item.placed = Placed::AsNew;
        return;
    }
    throw FileError(item.target, steps::Reason(errno));
}

void StagedReplacement::Restore(Staged& item) noexcept {
    bool restored = true;
    switch (item.placed) {
    case Placed::No:
        return;
    case Placed::AsNew:
        restored = steps::RemoveName(item.dir, item.name);
        break;
    case Placed::Exchanged:
        restored = calls_.Rename(item.dir, item.temporary.c_str(), item.name.c_str(),
                                 RenameKind::Exchange) == 0;
        break;
    case Placed::BackedUp:
        restored = calls_.Rename(item.dir, BackupOf(item.temporary).c_str(), item.name.c_str(),
                                 RenameKind::Replace) == 0;
        break;
    case Placed::MovedAside:
        restored = calls_.Rename(item.dir, item.temporary.c_str(), item.name.c_str(),
                                 RenameKind::Replace) == 0;
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
    if (staged_.size() > 1 && !steps::SyncsEachFile()) {
        // The contents reach the disk before any name changes, so that a crash in the middle
        // of the renames leaves whole files, old or new.
        if (calls_.Sync(staged_.front().dir.handle) != 0)
            throw FileError(staged_.front().target, steps::Reason(errno));
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
            steps::RemoveName(item.dir, item.temporary); // the old content
        else if (item.placed == Placed::BackedUp)
            steps::RemoveName(item.dir, BackupOf(item.temporary));
    }
    staged_.clear();
}

} // namespace platform
