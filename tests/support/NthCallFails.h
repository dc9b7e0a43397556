// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A disk whose Nth file call fails, for tests that try every failure in turn.
#include "core/FileReplacement.h"

#include <atomic>
#include <cerrno>

// Counts every call; the Nth fails with the given error. A failing write puts the first half
// of its bytes on disk first, as a disk filling up in the middle of a write does.
class NthCallFails : public platform::FileCalls {
public:
    NthCallFails(int failAt, int error) : failAt_(failAt), error_(error) {}
    platform::FileHandle Open(const platform::FolderRef& dir, const char* name,
                              platform::Opening how) override {
        return Fails() ? -1 : FileCalls::Open(dir, name, how);
    }
    std::ptrdiff_t Write(platform::FileHandle file, const char* data, std::size_t size) override {
        if (!Fails())
            return FileCalls::Write(file, data, size);
        if (size > 1 && FileCalls::Write(file, data, size / 2) < 0)
            return -1;
        errno = error_;
        return -1;
    }
    int Rename(const platform::FolderRef& dir, const char* from, const char* to,
               platform::RenameKind kind) override {
        return Fails() ? -1 : FileCalls::Rename(dir, from, to, kind);
    }
    // Counted, but kept from the disk: the sweep is about failures, not about a crash, and a
    // thousand syncs of a busy machine's disk would take minutes.
    int Sync(platform::FileHandle) override { return Fails() ? -1 : 0; }
    int Truncate(platform::FileHandle file, std::int64_t length) override {
        return Fails() ? -1 : FileCalls::Truncate(file, length);
    }
    int MakeFolder(const char* path) override { return Fails() ? -1 : FileCalls::MakeFolder(path); }
    int Count() const { return count_; }

private:
    bool Fails() {
        if (++count_ != failAt_)
            return false;
        errno = error_;
        return true;
    }
    int failAt_;
    int error_;
    std::atomic<int> count_ = 0; // the compiles call from several threads
};
