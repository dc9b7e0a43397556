// SPDX-License-Identifier: GPL-3.0-or-later
// What a failure of the file-system layer tells: the same words on every system.
#include "core/platformBasics.h"
#include "core/win1252.h"

#include <cstring>

namespace platform {

FileError::FileError(std::string path, const std::string& reason)
    : std::runtime_error(ForMessage(path) + ": " + reason), path_(std::move(path)) {}

std::string ForMessage(std::string_view diskText) {
    return win1252::FromUtf8Lossy(diskText);
}

std::string SystemReason(int error) {
    return std::strerror(error);
}

} // namespace platform
