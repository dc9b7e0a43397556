#include "core/platform.h"

#include "core/names.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

std::string HostPath(std::string_view path) {
    std::string out(path);
    for (char& c : out)
        if (c == '\\')
            c = '/';
    return out;
}

bool Exists(const std::string& hostPath) {
    struct stat st {};
    return ::lstat(hostPath.c_str(), &st) == 0;
}

// The entry of a folder that matches a name without regard to case; "" when none does.
std::string MatchInFolder(const std::string& folder, std::string_view name) {
    DIR* dir = ::opendir(folder.empty() ? "." : folder.c_str());
    if (!dir)
        return {};
    std::string found;
    while (const dirent* entry = ::readdir(dir)) {
        if (names::EqualIgnoringCase(entry->d_name, name)) {
            found = entry->d_name;
            break;
        }
    }
    ::closedir(dir);
    return found;
}

std::string SystemReason(int error) {
    return std::strerror(error);
}

// Closes a descriptor on scope exit.
struct Descriptor {
    int fd = -1;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
};

void WriteAll(int fd, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            throw FileError(path, SystemReason(errno));
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string FolderOf(const std::string& hostPath) {
    const auto slash = hostPath.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : hostPath.substr(0, slash);
}

// Writes the bytes into a new temporary file beside the target; returns its path.
std::string WriteTemporary(const std::string& target, std::string_view bytes) {
    struct stat existing {};
    const bool exists = ::stat(target.c_str(), &existing) == 0;
    if (exists && !S_ISREG(existing.st_mode))
        throw FileError(target, "not an ordinary file");
    // A file without write permission is read-only for everyone, the superuser included.
    if (exists && ((existing.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0))
        throw FileError(target, "the file is read-only");
    // A fresh name beside the target, created with the usual permissions (the umask applies);
    // an existing file's own permissions are carried over.
    static std::atomic<unsigned> counter{0};
    const std::string prefix = FolderOf(target) + "/.orrindel-" + std::to_string(::getpid()) + "-";
    std::string temporary;
    Descriptor file;
    for (int attempt = 0; file.fd < 0; ++attempt) {
        temporary = prefix + std::to_string(counter++);
        file.fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file.fd < 0 && (errno != EEXIST || attempt > 100))
            throw FileError(target,
                            errno == ENOENT ? "the folder does not exist" : SystemReason(errno));
    }
    try {
        if (exists)
            ::fchmod(file.fd, existing.st_mode & 07777);
        // No fsync: the rename alone guarantees that a crashed program leaves the old or the
        // new file, and syncing every keystroke's write would make editing sluggish.
        WriteAll(file.fd, bytes, target);
    } catch (...) {
        ::unlink(temporary.c_str());
        throw;
    }
    return temporary;
}

} // namespace

FileError::FileError(std::string path, const std::string& reason)
    : std::runtime_error(path + ": " + reason), path_(std::move(path)) {}

std::string ResolvePath(std::string_view path) {
    std::string host = HostPath(path);
    if (host.empty() || Exists(host))
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
        if (parentExists && piece != "." && piece != ".." && !Exists(resolved + spelled)) {
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

namespace {
FileStamp StampFrom(const struct stat& st) {
    return FileStamp{static_cast<std::uint64_t>(st.st_size),
                     static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec,
                     static_cast<std::uint64_t>(st.st_ino)};
}
} // namespace

std::string PathResolver::Resolve(std::string_view path) {
    const std::string given(path);
    if (const auto it = resolved_.find(given); it != resolved_.end())
        return it->second;
    std::string host = HostPath(path);
    std::string result;
    const auto slash = host.find_last_of('/');
    if (host.empty() || Exists(host) || slash == std::string::npos) {
        result = slash == std::string::npos ? ResolvePath(path) : host;
    } else {
        const std::string parent = slash == 0 ? "/" : Resolve(host.substr(0, slash));
        const std::string name = host.substr(slash + 1);
        const auto& listing = Listing(parent);
        const auto match = listing.find(names::Folded(name));
        result =
            (parent == "/" ? "" : parent) + "/" + (match == listing.end() ? name : match->second);
    }
    resolved_.emplace(given, result);
    return result;
}

const std::unordered_map<std::string, std::string>&
PathResolver::Listing(const std::string& folder) {
    auto [it, inserted] = listings_.try_emplace(folder);
    if (inserted) {
        if (DIR* dir = ::opendir(folder.c_str())) {
            while (const dirent* entry = ::readdir(dir))
                it->second.try_emplace(names::Folded(entry->d_name), entry->d_name);
            ::closedir(dir);
        }
    }
    return it->second;
}

std::optional<FileStamp> StampOf(std::string_view path) {
    struct stat st {};
    if (::stat(ResolvePath(path).c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return std::nullopt;
    return StampFrom(st);
}

ResolvedFile LookUpFile(std::string_view path) {
    // One stat when the path is spelled as on disk, the common case.
    ResolvedFile out{HostPath(path), std::nullopt};
    struct stat st {};
    if (::stat(out.path.c_str(), &st) != 0) {
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

void CreateFolder(std::string_view path) {
    const std::string host = ResolvePath(path);
    if (Exists(host))
        throw FileError(host, "a file or folder of that name exists already");
    if (::mkdir(host.c_str(), 0777) != 0)
        throw FileError(host, SystemReason(errno));
}

bool DeleteFile(std::string_view path) noexcept {
    try {
        const std::string host = ResolvePath(path);
        struct stat st {};
        if (::lstat(host.c_str(), &st) != 0 || S_ISDIR(st.st_mode))
            return false;
        return ::unlink(host.c_str()) == 0;
    } catch (...) {
        return false;
    }
}

void DeleteFolderTree(std::string_view path) noexcept {
    try {
        namespace fs = std::filesystem;
        const fs::path root = ResolvePath(path);
        std::error_code ec;
        if (!fs::is_directory(root, ec))
            return;
        // Folders must be writable for their read-only files to be removed.
        fs::permissions(root, fs::perms::owner_all, fs::perm_options::add, ec);
        for (auto it = fs::recursive_directory_iterator(root, ec);
             !ec && it != fs::recursive_directory_iterator(); it.increment(ec)) {
            std::error_code ignored;
            if (it->is_directory(ignored) && !it->is_symlink(ignored))
                fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
        fs::remove_all(root, ec);
    } catch (...) {
    }
}

std::vector<std::string> ListFolder(std::string_view path, EntryKind kind) {
    std::vector<std::string> out;
    const std::string host = ResolvePath(path);
    DIR* dir = ::opendir(host.c_str());
    if (!dir)
        return out;
    while (const dirent* entry = ::readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        struct stat st {};
        if (::stat((host + "/" + entry->d_name).c_str(), &st) != 0)
            continue;
        if ((kind == EntryKind::Files && S_ISREG(st.st_mode)) ||
            (kind == EntryKind::Folders && S_ISDIR(st.st_mode)))
            out.emplace_back(name);
    }
    ::closedir(dir);
    return out;
}

std::optional<std::string> ReadBytes(std::string_view path) {
    const std::string host = ResolvePath(path);
    Descriptor file{::open(host.c_str(), O_RDONLY | O_CLOEXEC)};
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
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(st.st_size));
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(file.fd, buffer, sizeof buffer);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            throw FileError(host, SystemReason(errno));
        }
        if (got == 0)
            break;
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    return bytes;
}

void ReplaceFile(std::string_view path, std::string_view bytes) {
    StagedReplacement replacement;
    replacement.Stage(path, bytes);
    replacement.Commit();
}

void AppendBytes(std::string_view path, std::string_view bytes) {
    const std::string host = ResolvePath(path);
    Descriptor file{::open(host.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666)};
    if (file.fd < 0)
        throw FileError(host, SystemReason(errno));
    WriteAll(file.fd, bytes, host);
}

StagedReplacement::~StagedReplacement() {
    for (const auto& item : staged_)
        ::unlink(item.temporary.c_str());
}

void StagedReplacement::Stage(std::string_view path, std::string_view bytes) {
    StageResolved(ResolvePath(path), bytes);
}

void StagedReplacement::StageResolved(const std::string& hostPath, std::string_view bytes) {
    staged_.push_back({hostPath, WriteTemporary(hostPath, bytes)});
}

void StagedReplacement::Commit() {
    for (std::size_t i = 0; i < staged_.size(); ++i) {
        if (::rename(staged_[i].temporary.c_str(), staged_[i].target.c_str()) != 0) {
            const int error = errno;
            staged_.erase(staged_.begin(), staged_.begin() + static_cast<std::ptrdiff_t>(i));
            throw FileError(staged_.front().target, SystemReason(error));
        }
    }
    staged_.clear();
}

std::string ExecutableFolder() {
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return std::filesystem::current_path().string();
    return exe.parent_path().string();
}

} // namespace platform
