// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the three parts of the file-system layer share: the error type, the host spelling of
// a path and the descriptor guard.
#include <ctime>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

// A file-system failure, carrying the path at fault and the system's reason. The message
// is Windows-1252 text, like every message of the core; the path keeps its disk spelling.
class FileError : public std::runtime_error {
public:
    FileError(std::string path, const std::string& reason);
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// A path in "\" form as the host spells it ("/" between pieces on POSIX, "\" on Windows).
std::string HostPath(std::string_view path);
// A disk path or name as Windows-1252 text for a message: a character that cannot be shown
// becomes "?".
std::string ForMessage(std::string_view diskText);
// The system's words for an errno value.
std::string SystemReason(int error);

// Closes a descriptor on scope exit.
struct Descriptor {
    int fd = -1;
    Descriptor() = default;
    explicit Descriptor(int f) : fd(f) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();
};

// Told of each file that is about to be replaced or deleted while its old content is still on
// disk, and of what it holds afterwards: a history of edits keeps both. Set by whoever records,
// for the time it records; the staged commit and the file deletion ask for it. Null when
// nobody records.
class WriteWitness {
public:
    virtual ~WriteWitness() = default;
    // Whether the witness keeps this file: only then are its new bytes copied for it.
    // Called from the threads that write a large batch.
    virtual bool Wants(const std::string& hostPath) const = 0;
    virtual void Changing(const std::string& hostPath) = 0;
    // The file is in place with these bytes; nullopt: it was deleted.
    virtual void Written(const std::string& hostPath, std::optional<std::string> bytes) = 0;
};
void SetWriteWitness(WriteWitness* witness);
WriteWitness* CurrentWriteWitness();
// Deletes a file (a host path) by remove(), telling the witness, when one is set, before and
// after: the history learns of a deletion as of a write.
bool RemoveWitnessed(const std::string& hostPath, const std::function<bool()>& remove);

// The folder of the running executable, as the system spells it.
std::string ExecutableFolder();

// The local time of a moment (each system has its own thread-safe call).
std::tm LocalTime(std::time_t moment);

} // namespace platform
