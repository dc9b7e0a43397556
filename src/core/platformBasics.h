#pragma once
// What the three parts of the file-system layer share: the error type, the host spelling of
// a path and the descriptor guard.
#include <ctime>
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

// The folder of the running executable, as the system spells it.
std::string ExecutableFolder();

// The local time of a moment (each system has its own thread-safe call).
std::tm LocalTime(std::time_t moment);

} // namespace platform
