// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Whole-file reading and crash-safe replacement. A file is replaced by writing a temporary
// file beside it and renaming that over it; several files are replaced all-or-nothing.
#include "core/platformBasics.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// A file or folder open: a descriptor on POSIX, the system's handle on Windows, where the
// invalid handle is -1 as well.
using FileHandle = std::intptr_t;
inline constexpr FileHandle NoFile = -1;
// Where a name is looked up: a folder open (POSIX, where NoFile with an absolute name means
// the name alone), or the folder's path (Windows: the name is joined to it, unless empty).
struct FolderRef {
    FileHandle handle = NoFile;
    std::string_view path;
};
// What a file is opened for: a new file of its own (fails when the name exists), or appending
// to an existing one.
enum class Opening { NewFile, Append };
// A rename's kind: over whatever has the new name, never over an existing file (fails with
// EEXIST), or exchanging the two files (fails with ENOTSUP where the system cannot; the
// caller then moves the old file aside first).
enum class RenameKind { Replace, NoReplace, Exchange };

// The calls that put bytes on disk. Everything that writes a project file goes through one of
// these, so that a test can make the Nth call fail and look at the outcome. A large batch
// writes and renames its files from two threads at once: the calls must allow that. Removing
// a temporary file again is no write of the project's and stays outside. A call that fails
// returns -1 (NoFile) with the reason in errno, on Windows translated from the system's code.
class FileCalls {
public:
    virtual ~FileCalls() = default;
    virtual FileHandle Open(const FolderRef& folder, const char* name, Opening how);
    virtual std::ptrdiff_t Write(FileHandle file, const char* data, std::size_t size);
    // Within one folder. On Windows a file that another program holds open is waited for
    // briefly before the rename fails with EBUSY.
    virtual int Rename(const FolderRef& folder, const char* from, const char* to, RenameKind kind);
    // Makes written bytes durable: on POSIX those of the whole file system the file or folder
    // lies on (one call for a batch), on Windows those of the file.
    virtual int Sync(FileHandle file);
    virtual int Truncate(FileHandle file, std::int64_t length);
    virtual int MakeFolder(const char* path);
};
// The system's own calls.
FileCalls& SystemFileCalls();
// The calls every write uses: the system's own, unless a test has put others in their place.
FileCalls& CurrentFileCalls();
// Puts other calls in place of the current ones for its lifetime, for the test that made it;
// the calls must outlive it.
class FileCallsInstalled {
public:
    explicit FileCallsInstalled(FileCalls& calls);
    FileCallsInstalled(const FileCallsInstalled&) = delete;
    FileCallsInstalled& operator=(const FileCallsInstalled&) = delete;
    ~FileCallsInstalled();

private:
    FileCalls* previous_;
};

// Whole-file access in bytes. ReadBytes: nullopt when the file is missing.
std::optional<std::string> ReadBytes(std::string_view path);
// Crash-safe replacement: a temporary file in the same folder renamed over the target.
// A read-only target is refused. Throws FileError.
void ReplaceFile(std::string_view path, std::string_view bytes,
                 FileCalls& calls = CurrentFileCalls());
// Appends all or nothing: a failed append leaves the file at its previous length. A missing
// file is written anew. Throws FileError.
void AppendBytes(std::string_view path, std::string_view bytes);

// Removes the temporary files of our naming in a folder (a host path) whose program has
// ended without removing them (a crash, a kill). Those of running programs stay.
void RemoveLeftoverTemporaries(const std::string& hostFolder);

// What the caller knows about a target from a listing: it saves a look at each new file.
enum class Presence { Unknown, Missing, Present };

// All-or-nothing replacement of several files: Stage writes every temporary file, and only
// when all were written does Commit put them into place. When putting one in place fails,
// Commit restores every file it already replaced before it throws, so on any failure short
// of a crash no target changes. Destruction without Commit removes the temporary files.
class StagedReplacement {
public:
    explicit StagedReplacement(FileCalls& calls = CurrentFileCalls()) : calls_(calls) {}
    StagedReplacement(const StagedReplacement&) = delete;
    StagedReplacement& operator=(const StagedReplacement&) = delete;
    ~StagedReplacement();
    void Stage(std::string_view path, std::string_view bytes); // throws FileError
    // The same for a path that was resolved already (a host path).
    void StageResolved(const std::string& hostPath, std::string_view bytes,
                       Presence presence = Presence::Unknown);
    // The bytes of a file handed over piece by piece, each piece valid for its call: a file
    // of megabytes need never be assembled whole.
    using Pieces = std::function<void(const std::function<void(std::string_view)>& put)>;
    struct Staging {
        const std::string& hostPath;
        std::string_view bytes;
        Presence presence = Presence::Unknown;
        Pieces pieces = {}; // when set, the file's bytes instead of bytes
    };
    // StageResolved for each file. A large batch is written by two threads: creating many
    // small files is most of its time, and a second core cuts that by a third. When one fails,
    // no further file is started, those written are removed again, and every failure is
    // thrown as one error, the first in the given order leading.
    void StageAll(const std::vector<Staging>& files);
    // Removes a file as part of the commit: it is moved aside when the staged files are put in
    // place, brought back when anything fails, and deleted only once all succeeded. A file
    // missing by then counts as removed. Takes a path spelled exactly as on disk.
    void StageRemoval(const std::string& path);
    // Throws FileError, naming every file that failed; a large batch is renamed from two threads.
    void Commit();
    // Rids the folder of a file of leftover temporaries (once per folder), as staging a file
    // there does; for a batch that looked at a file and found nothing to change.
    void Tidy(const std::string& hostPath);

private:
    enum class Placed { No, AsNew, Exchanged, BackedUp, MovedAside };
    struct Staged {
        std::string target;    // the host path, for messages
        FolderRef dir;         // the target's folder, open
        std::string name;      // the target's name in it
        std::string temporary; // the temporary file's name in it
        bool existed = false;
        Placed placed = Placed::No;
        bool removal = false; // temporary: the name the file is moved aside to
        std::optional<std::string> copy; // the bytes, for a witness that keeps the file
    };
    // A folder that files are staged in, open once for all of them: names relative to it
    // save the system a walk along the whole path for every file created and renamed.
    struct Folder {
        std::string path;
        FileHandle handle = NoFile;
        int error = 0; // why it could not be opened (an errno value)
        Folder() = default;
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;
        ~Folder();
        FolderRef Ref() const { return {handle, path}; }
    };
    // The folder of a file, opened (and rid of leftover temporaries) when first asked for.
    const Folder& FolderFor(const std::string& hostPath);
    // Writes one temporary file; safe on two threads at once.
    void StageIn(const Folder& folder, const std::string& hostPath, const Pieces& pieces,
                 Presence presence, std::optional<std::uint32_t>& newFileMode,
                 std::optional<Staged>& staged);
    void Place(Staged& item);
    void Restore(Staged& item) noexcept;
    FileCalls& calls_;
    std::deque<Folder> folders_; // each rid of leftovers when first used; a deque: stays put
    std::vector<Staged> staged_; // after folders_: removed first, while the folders are open
    std::optional<std::uint32_t> newFileMode_; // permissions a new file gets, once known
};

} // namespace platform
