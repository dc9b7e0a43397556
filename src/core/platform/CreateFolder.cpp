// SPDX-License-Identifier: GPL-3.0-or-later
// Making a folder goes through the file calls a test can fail, the same on every system.
#include "core/FileReplacement.h"
#include "core/FolderOperations.h"
#include "core/PathLookup.h"

#include <cerrno>

namespace platform {

void CreateFolder(std::string_view path) {
    const std::string host = ResolvePath(path);
    if (CurrentFileCalls().MakeFolder(host.c_str()) != 0) {
        if (errno == EEXIST)
            throw FileError(host, "a file or folder of that name exists already");
        throw FileError(host, SystemReason(errno));
    }
}

} // namespace platform
