// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileReplacement.h"
#include "core/txtReadWrite.h"
#include "support/TempFolder.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>
#ifdef _WIN32
#include <windows.h>
#undef ReplaceFile // a macro of <windows.h>, as our function's name
#endif

namespace {

namespace fs = std::filesystem;

// A disk whose Nth write, rename or sync fails, as a full disk or a failing device would;
// optionally one whose file system cannot exchange two names in one rename.
class FailingCalls : public platform::FileCalls {
public:
    enum class Call { Write, Rename, Sync };
    FailingCalls(Call call, int failAt, bool canExchange = true)
        : call_(call), failAt_(failAt), canExchange_(canExchange) {}
    std::ptrdiff_t Write(platform::FileHandle file, const char* data, std::size_t size) override {
        return Fails(Call::Write) ? -1 : FileCalls::Write(file, data, size);
    }
    int Rename(const platform::FolderRef& dir, const char* from, const char* to,
               platform::RenameKind kind) override {
        if (kind != platform::RenameKind::Replace && !canExchange_) {
            errno = EINVAL;
            return -1;
        }
        return Fails(Call::Rename) ? -1 : FileCalls::Rename(dir, from, to, kind);
    }
    int Sync(platform::FileHandle file) override {
        return Fails(Call::Sync) ? -1 : FileCalls::Sync(file);
    }

private:
    bool Fails(Call call) {
        if (call != call_ || ++count_ != failAt_)
            return false;
        errno = EIO;
        return true;
    }
    Call call_;
    int failAt_;
    bool canExchange_;
    std::atomic<int> count_ = 0; // large batches call from two threads
};

// Another process that runs while the test does: the init process on POSIX; on Windows, where
// no process id is known beforehand, a copy of this program started suspended.
struct RunningProcess {
#ifdef _WIN32
    RunningProcess() {
        wchar_t self[MAX_PATH] = {};
        ::GetModuleFileNameW(nullptr, self, MAX_PATH);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        std::wstring line = L"core_tests --gtest_list_tests";
        if (::CreateProcessW(self, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                             nullptr, &startup, &process))
            id = std::to_string(process.dwProcessId);
    }
    ~RunningProcess() {
        if (process.hProcess) {
            ::TerminateProcess(process.hProcess, 0);
            ::CloseHandle(process.hThread);
            ::CloseHandle(process.hProcess);
        }
    }
    PROCESS_INFORMATION process{};
    std::string id = "0";
#else
    std::string id = "1";
#endif
};

std::map<std::string, std::string> Snapshot(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder))
        files[entry.path().filename().string()] = TempFolder::Read(entry.path().string());
    return files;
}

// Five files, three of them there before: whichever write, rename or sync fails, every file
// holds its old bytes afterwards, the new ones are absent and no temporary file is left.
TEST(FileReplacement, ACommitFailingAtAnyCallLeavesEveryFileAsItWas) {
    TempFolder temp;
    for (const char* name : {"a.ini", "c.lst", "e.lst"})
        TempFolder::Write(temp / name, std::string("old ") + name);
    fs::permissions(temp / "c.lst", fs::perms(0640));
    const auto aMode = fs::status(temp / "a.ini").permissions();
    const auto before = Snapshot(temp.path());
    const auto commit = [&](platform::FileCalls& calls) {
        txtReadWrite::Transaction transaction;
        transaction.WriteIni("s", "k", "new", temp.path() + "\\A.INI");
        for (const char* name : {"b.lst", "c.lst", "d.lst", "e.lst"})
            transaction.WriteFileText(temp.path() + "\\" + name, name);
        transaction.Commit(calls);
    };
    using Call = FailingCalls::Call;
    for (const bool canExchange : {true, false})
        for (const auto& [call, count] :
             {std::pair{Call::Rename, 5}, {Call::Write, 5}, {Call::Sync, 1}})
            for (int n = 1; n <= count; ++n) {
                FailingCalls calls(call, n, canExchange);
                EXPECT_ANY_THROW(commit(calls)) << static_cast<int>(call) << " " << n;
                EXPECT_EQ(Snapshot(temp.path()), before)
                    << static_cast<int>(call) << " " << n << " " << canExchange;
            }

    FailingCalls never(Call::Rename, 0, false);
    commit(never);
    EXPECT_EQ(Snapshot(temp.path()),
              (std::map<std::string, std::string>{{"a.ini", "old a.ini\r\n[s]\r\nk=new\r\n"},
                                                  {"b.lst", "b.lst\r\n"},
                                                  {"c.lst", "c.lst\r\n"},
                                                  {"d.lst", "d.lst\r\n"},
                                                  {"e.lst", "e.lst\r\n"}}));
    // A replaced file keeps its permissions (POSIX: Windows has no mode bits, a new file gets
    // its folder's access rules as the old one had).
#ifndef _WIN32
    EXPECT_EQ(fs::status(temp / "c.lst").permissions(), fs::perms(0640));
    EXPECT_EQ(fs::status(temp / "a.ini").permissions(), aMode);
#else
    (void)aMode;
#endif
}

// A batch large enough to be written and renamed from two threads keeps the same promise.
TEST(FileReplacement, ALargeCommitFailingPartWayLeavesEveryFileAsItWas) {
    TempFolder temp;
    for (int i = 0; i < 100; i += 2)
        TempFolder::Write(temp / ("f" + std::to_string(i)), "old");
    const auto before = Snapshot(temp.path());
    using Call = FailingCalls::Call;
    for (const auto& [call, n] : {std::pair{Call::Write, 1},
                                  {Call::Write, 77},
                                  {Call::Rename, 1},
                                  {Call::Rename, 60},
                                  {Call::Rename, 100}}) {
        FailingCalls calls(call, n);
        txtReadWrite::Transaction transaction;
        for (int i = 0; i < 100; ++i)
            transaction.WriteFileText(temp.path() + "\\f" + std::to_string(i), "new");
        EXPECT_ANY_THROW(transaction.Commit(calls)) << static_cast<int>(call) << " " << n;
        EXPECT_EQ(Snapshot(temp.path()), before) << static_cast<int>(call) << " " << n;
    }
}

// Once a file of a large batch fails, neither thread starts another temporary file: only the
// few already under way when the failure reaches the batch follow.
TEST(FileReplacement, ALargeBatchStartsNoFileAfterAFailure) {
    struct FirstWriteFails : platform::FileCalls {
        platform::FileHandle Open(const platform::FolderRef& dir, const char* name,
                                  platform::Opening how) override {
            opensAfterFailure += failed ? 1 : 0;
            return FileCalls::Open(dir, name, how);
        }
        std::ptrdiff_t Write(platform::FileHandle file, const char* data,
                             std::size_t size) override {
            if (!failed.exchange(true)) {
                errno = EIO;
                return -1;
            }
            return FileCalls::Write(file, data, size);
        }
        std::atomic<bool> failed{false};
        std::atomic<int> opensAfterFailure{0};
    } calls;
    TempFolder temp;
    txtReadWrite::Transaction transaction;
    for (int i = 0; i < 100; ++i)
        transaction.WriteFileText(temp.path() + "\\f" + std::to_string(i), "new");
    EXPECT_THROW(transaction.Commit(calls), platform::FileError);
    // The other thread may have a file under way, or start one while the failure travels from
    // the failed call to the batch's stop: a few at most, where going on would start ~98.
    EXPECT_LE(calls.opensAfterFailure, 4);
    EXPECT_TRUE(Snapshot(temp.path()).empty());
}

// Temporary files of ended programs go with the next write in their folder; a running
// program's stay.
TEST(FileReplacement, TheNextWriteRemovesTemporariesOfEndedPrograms) {
    TempFolder temp;
    const RunningProcess other;
    const std::string ended = ".orrindel-99999999-1-0";                          // no such process
    const std::string sameId = ".orrindel-" + std::to_string(::getpid()) + "-7"; // an earlier one
    const std::string running = ".orrindel-" + other.id + "-1-0";
    for (const std::string& name : {ended, sameId, running})
        TempFolder::Write(temp / name, "partial");
    platform::ReplaceFile(temp.path() + "\\x.ini", "x");
    EXPECT_EQ(Snapshot(temp.path()),
              (std::map<std::string, std::string>{{running, "partial"}, {"x.ini", "x"}}));
}

TEST(FileReplacement, ReadBytesReadsWholeFilesOfAnySize) {
    TempFolder temp;
    const std::string big(200000, 'b');
    TempFolder::Write(temp / "Big", big);
    TempFolder::Write(temp / "empty", "");
    EXPECT_EQ(platform::ReadBytes(temp.path() + "\\big"), big);
    EXPECT_EQ(platform::ReadBytes(temp / "empty"), "");
    EXPECT_EQ(platform::ReadBytes(temp / "missing"), std::nullopt);
    EXPECT_EQ(platform::ReadBytes(temp.path()), std::nullopt);
}

} // namespace

// A staged removal goes with the commit: whichever call fails, the file is back with every
// other one; only a commit that gets through removes it. A file already gone counts as removed.
TEST(FileReplacement, AStagedRemovalHappensOnlyWithTheWholeCommit) {
    TempFolder temp;
    TempFolder::Write(temp / "old.lst", "old");
    TempFolder::Write(temp / "kept.ini", "kept");
    const auto before = Snapshot(temp.path());
    const auto commit = [&](platform::FileCalls& calls) {
        platform::StagedReplacement replacement(calls);
        replacement.StageResolved(temp / "new.lst", "new");
        replacement.StageResolved(temp / "kept.ini", "changed");
        replacement.StageRemoval(temp / "old.lst");
        replacement.StageRemoval(temp / "missing.lst");
        replacement.Commit();
    };
    for (const bool canExchange : {true, false}) {
        int failures = 0;
        for (int n = 1;; ++n) {
            FailingCalls calls(FailingCalls::Call::Rename, n, canExchange);
            try {
                commit(calls);
                break;
            } catch (const platform::FileError&) {
                ++failures;
            }
            ASSERT_EQ(Snapshot(temp.path()), before) << n << " " << canExchange;
        }
        EXPECT_GE(failures, 3);
        EXPECT_EQ(Snapshot(temp.path()), (std::map<std::string, std::string>{
                                             {"kept.ini", "changed"}, {"new.lst", "new"}}));
        TempFolder::Write(temp / "old.lst", "old");
        TempFolder::Write(temp / "kept.ini", "kept");
        fs::remove(temp / "new.lst");
    }
}
