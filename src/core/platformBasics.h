#pragma once
// What the three parts of the file-system layer share: the error type, the host spelling of
// a path and the descriptor guard.
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

// A path in "\" form as the host spells it ("/" between pieces).
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
// disk: a history of edits keeps what the file held. Set by whoever records, for the time it
// records; the staged commit and the file deletion ask for it. Null when nobody records.
class WriteWitness {
public:
    virtual ~WriteWitness() = default;
    virtual void Changing(const std::string& hostPath) = 0;
};
void SetWriteWitness(WriteWitness* witness);
WriteWitness* CurrentWriteWitness();

// The folder of the running executable, as the system spells it.
std::string ExecutableFolder();

} // namespace platform
