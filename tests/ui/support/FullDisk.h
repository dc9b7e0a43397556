// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// File calls of a disk that is full: every write fails as the system's would.
#include "core/FileReplacement.h"

#include <cerrno>

class FullDisk : public platform::FileCalls {
public:
    std::ptrdiff_t Write(platform::FileHandle, const char*, std::size_t) override {
        errno = ENOSPC;
        return -1;
    }
};
