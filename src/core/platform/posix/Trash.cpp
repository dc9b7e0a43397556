// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Trash.h"

#include "core/PathLookup.h"
#include "core/platformBasics.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {
namespace {

bool MakeFolder(const std::string& path) {
    return ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST;
}

// The folder and its missing parents (the home trash may be the first thing in its place).
bool MakeFolders(const std::string& path) {
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1))
        if (!MakeFolder(path.substr(0, slash)))
            return false;
    return MakeFolder(path);
}

std::string ParentOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

// The top folder of the volume that holds the path: the last parent on the same device.
std::string TopOfVolume(const std::string& path, dev_t device) {
    std::string top = path;
    while (top != "/") {
        const std::string parent = ParentOf(top);
        struct stat st {};
        if (::stat(parent.c_str(), &st) != 0 || st.st_dev != device)
            break;
        top = parent;
    }
    return top;
}

// A trash folder at the top of a volume: the shared ".Trash/<uid>" where the administrator
// made one (a real folder with the sticky bit), else the user's own ".Trash-<uid>".
std::string VolumeTrash(const std::string& top) {
    const std::string uid = std::to_string(::getuid());
    const std::string base = top == "/" ? "" : top;
    struct stat shared {};
    if (::lstat((base + "/.Trash").c_str(), &shared) == 0 && S_ISDIR(shared.st_mode) &&
        (shared.st_mode & S_ISVTX) != 0) {
        const std::string own = base + "/.Trash/" + uid;
        if (MakeFolder(own))
            return own;
    }
    const std::string own = base + "/.Trash-" + uid;
    struct stat st {};
    if (!MakeFolder(own) || ::lstat(own.c_str(), &st) != 0 || !S_ISDIR(st.st_mode) ||
        st.st_uid != ::getuid())
        return {};
    return own;
}

// A path as the info file spells it: bytes outside the plain characters as %XX.
std::string Escaped(std::string_view path) {
    static const char* const digits = "0123456789ABCDEF";
    std::string out;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
            (byte >= '0' && byte <= '9') ||
            std::string_view("/-_.~").find(c) != std::string_view::npos)
            out += c;
        else {
            out += '%';
            out += digits[byte >> 4];
            out += digits[byte & 15];
        }
    }
    return out;
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return text;
}

// Writes the info file under a name not taken yet and moves the item in under that name.
bool MoveInto(const std::string& trash, const std::string& item, const std::string& recorded) {
    const std::string files = trash + "/files";
    const std::string info = trash + "/info";
    if (!MakeFolders(trash) || !MakeFolder(files) || !MakeFolder(info))
        return false;
    const std::string name = item.substr(item.rfind('/') + 1);
    const std::string text =
        "[Trash Info]\nPath=" + Escaped(recorded) + "\nDeletionDate=" + Now() + "\n";
    for (int n = 1; n < 1000; ++n) {
        const std::string entry = n == 1 ? name : name + "." + std::to_string(n);
        const std::string infoFile = info + "/" + entry + ".trashinfo";
        const Descriptor file{
            ::open(infoFile.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)};
        if (file.fd < 0) {
            if (errno == EEXIST)
                continue;
            return false;
        }
        const bool written =
            ::write(file.fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
        const std::string target = files + "/" + entry;
        struct stat taken {};
        const bool free = ::lstat(target.c_str(), &taken) != 0;
        if (written && free && ::rename(item.c_str(), target.c_str()) == 0)
            return true;
        ::unlink(infoFile.c_str());
        if (!written || free)
            return false;
        // An item of that name whose info file is gone: the next name.
    }
    return false;
}

// The home trash folder: $XDG_DATA_HOME/Trash, else ~/.local/share/Trash; empty without either.
std::string HomeTrash() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/')
        return std::string(data) + "/Trash";
    if (const char* home = std::getenv("HOME"); home && *home == '/')
        return std::string(home) + "/.local/share/Trash";
    return {};
}

} // namespace


bool MoveToTrash(std::string_view path) noexcept {
    try {
        std::string item = ResolvePath(path);
        while (item.size() > 1 && item.back() == '/')
            item.pop_back();
        struct stat st {};
        if (item.empty() || item.front() != '/' || ::lstat(item.c_str(), &st) != 0)
            return false;
        // The home trash when the item is on its volume: a rename cannot cross volumes.
        const std::string home = HomeTrash();
        std::string existing = home;
        struct stat homeStat {};
        while (!existing.empty() && ::stat(existing.c_str(), &homeStat) != 0)
            existing = existing == "/" ? std::string() : ParentOf(existing);
        if (!home.empty() && !existing.empty() && homeStat.st_dev == st.st_dev)
            return MoveInto(home, item, item);
        const std::string top = TopOfVolume(item, st.st_dev);
        const std::string trash = VolumeTrash(top);
        if (trash.empty())
            return false;
        return MoveInto(trash, item, item.substr(top == "/" ? 1 : top.size() + 1));
    } catch (...) {
        return false;
    }
}

} // namespace platform
