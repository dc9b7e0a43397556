#pragma once
// File calls of a disk that is full: every write fails as the system's would.
#include "core/FileReplacement.h"

#include <cerrno>

class FullDisk : public platform::FileCalls {
public:
    ssize_t Write(int, const char*, std::size_t) override {
        errno = ENOSPC;
        return -1;
    }
};
