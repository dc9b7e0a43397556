#pragma once
// Thin layer over the file system. Paths use "\" between pieces, as the project
// routines build them; every lookup ignores letter case per path component.
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

// A file-system failure, carrying the path at fault and the system's reason.
class FileError : public std::runtime_error {
public:
    FileError(std::string path, const std::string& reason);
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// Maps a "\"-separated path onto the disk: each existing component is found without
// regard to case (keeping its spelling on disk); missing components keep the given spelling.
std::string ResolvePath(std::string_view path);

// Resolves many paths in a row, reading each folder's listing at most once: a batch that
// creates thousands of new files in a few folders would otherwise rescan them every time.
class PathResolver {
public:
    std::string Resolve(std::string_view path);

private:
    const std::unordered_map<std::string, std::string>& Listing(const std::string& folder);
    std::unordered_map<std::string, std::string> resolved_; // given path -> on disk
    // folder -> folded entry name -> entry name as spelled on disk
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> listings_;
};

// Size, modification time and identity of a file, to tell whether it changed.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t mtimeNs = 0;
    std::uint64_t inode = 0;
    bool operator==(const FileStamp&) const = default;
};
std::optional<FileStamp> StampOf(std::string_view path);
// The resolved path of a file and its stamp (nullopt when it is no ordinary file).
struct ResolvedFile {
    std::string path;
    std::optional<FileStamp> stamp;
};
ResolvedFile LookUpFile(std::string_view path);

bool IsFile(std::string_view path);
bool IsDirectory(std::string_view path);

// Creates one folder; throws FileError when it exists already or cannot be made.
void CreateFolder(std::string_view path);
// Deletes a file; false when it could not be deleted (missing, in use, ...).
bool DeleteFile(std::string_view path) noexcept;
// Deletes a folder with everything in it, read-only files included; errors are skipped.
void DeleteFolderTree(std::string_view path) noexcept;

enum class EntryKind { Files, Folders };
// Names of the direct entries of a folder (unsorted); empty when it cannot be read.
std::vector<std::string> ListFolder(std::string_view path, EntryKind kind);

// Whole-file access in bytes. ReadBytes: nullopt when the file is missing.
std::optional<std::string> ReadBytes(std::string_view path);
// Crash-safe replacement: a temporary file in the same folder renamed over the target.
// A read-only target is refused. Throws FileError.
void ReplaceFile(std::string_view path, std::string_view bytes);
// Appends in one write call, creating the file when missing. Throws FileError.
void AppendBytes(std::string_view path, std::string_view bytes);

// Two-phase replacement of several files: Stage writes every temporary file, and only
// when all were written does Commit rename them into place. Destruction without Commit
// removes the temporary files, so a failure leaves every target as it was.
class StagedReplacement {
public:
    StagedReplacement() = default;
    StagedReplacement(const StagedReplacement&) = delete;
    StagedReplacement& operator=(const StagedReplacement&) = delete;
    ~StagedReplacement();
    void Stage(std::string_view path, std::string_view bytes); // throws FileError
    // The same for a path that was resolved already (a host path).
    void StageResolved(const std::string& hostPath, std::string_view bytes);
    void Commit(); // throws FileError

private:
    struct Staged {
        std::string target;
        std::string temporary;
    };
    std::vector<Staged> staged_;
};

// The folder of the running executable.
std::string ExecutableFolder();

} // namespace platform
