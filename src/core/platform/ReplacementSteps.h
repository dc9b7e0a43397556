// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The system's part of replacing files, for FileReplacement.cpp: the staging, committing and
// restoring there are the same on every system; the calls here have one implementation per
// system (platform/posix/ReplacementSteps.cpp, platform/windows/ReplacementSteps.cpp).
#include "core/FileReplacement.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace platform::steps {

// The words for the errno value of a failed call: a file in use is said to be, and on Windows an
// error that errno could only call an I/O error keeps the system's own words.
std::string Reason(int error);
// The separator between a folder and a name in a host path.
char Separator();
// This process's id, in decimal.
std::string ProcessId();
// Whether the process of a decimal id no longer runs.
bool ProcessEnded(const std::string& id);
// Calls each for every name in a folder (a host path); nothing when it cannot be read.
void EachName(const std::string& hostFolder, const std::function<void(const char* name)>& each);

// Opens a folder that files are staged in: NoFile where the system needs none (Windows); on
// failure NoFile with the errno value in error.
FileHandle OpenFolder(const std::string& hostFolder, int& error);
void CloseFolder(FileHandle folder) noexcept;
void CloseFile(FileHandle file) noexcept;
// Removes a file by its name in a folder; false when that fails. A file still open is closed
// first by the caller.
bool RemoveName(const FolderRef& folder, const std::string& name) noexcept;

// What a target is before it is replaced: whether it exists, and its permissions, which
// its replacement gets too. Throws FileError for a folder, a device or a read-only file.
struct Target {
    bool exists = false;
    std::uint32_t permissions = 0;
};
Target Examine(const FolderRef& folder, const std::string& name, const std::string& hostPath,
               Presence presence);
// Gives a new temporary file an existing target's permissions. newFileMode: those a new file
// gets in this folder, learnt from the first temporary file that needs it.
void CarryPermissions(FileHandle temporary, const Target& target,
                      std::optional<std::uint32_t>& newFileMode) noexcept;
// Keeps an existing file's content under a second name without moving it (a hard link);
// false where that is not done, so that the caller moves the file aside instead.
bool LinkAside(const FolderRef& folder, const std::string& name, const std::string& second);
// Whether each temporary file is synced on its own before it is put in place (Windows,
// where a rename may reach the disk before the file's bytes), rather than one sync of the
// file system for a whole batch (POSIX).
bool SyncsEachFile();
// The size of an open file; -1 with errno on failure.
std::int64_t FileSize(FileHandle file);

} // namespace platform::steps
