// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ApplicationFolder.h"

#include "core/BuildInfo.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace applicationFolder {
namespace {

namespace fs = std::filesystem;

// $XDG_DATA_HOME/orrindel, by default ~/.local/share/orrindel.
fs::path UserDataFolder() {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    if (xdg && fs::path(xdg).is_absolute())
        return fs::path(xdg) / "orrindel";
    const char* home = std::getenv("HOME");
    return fs::path(home ? home : "/tmp") / ".local/share/orrindel";
}

// Copies the shipped library into a folder that does not have one yet.
bool SeedLibrary(const fs::path& shipped, const fs::path& target) {
    std::error_code ec;
    if (fs::exists(target, ec) || !fs::is_directory(shipped, ec))
        return true;
    fs::create_directories(target.parent_path(), ec);
    fs::copy(shipped, target, fs::copy_options::recursive, ec);
    return !ec;
}

} // namespace

Choice Choose(const std::string& exeFolder) {
    std::error_code ec;
    const fs::path exe(exeFolder);
    const fs::path installed = (exe / buildInfo::InstalledLibraryFromPrograms).lexically_normal();
    // Installed: the shared library folder exists and nothing sits beside the program. Being
    // writable alone says little (the superuser, or a prefix in the user's home).
    const bool isInstalled = fs::is_directory(installed, ec) && !fs::exists(exe / "data", ec);
    if (!isInstalled && ::access(exeFolder.c_str(), W_OK) == 0)
        return {exeFolder, {}};
    const fs::path user = UserDataFolder();
    const fs::path shipped = isInstalled ? installed : exe / "data";
    Choice choice{user.string(), {}};
    if (!SeedLibrary(shipped, user / "data"))
        choice.problem = "The original faction library could not be copied from " +
                         shipped.string() + " to " + (user / "data").string() + ".";
    return choice;
}

} // namespace applicationFolder
