#include "core/FileReplacement.h"
#include "core/txtReadWrite.h"
#include "support/TempFolder.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A disk whose Nth write, rename or sync fails, as a full disk or a failing device would;
// optionally one whose file system cannot exchange two names in one rename.
class FailingCalls : public platform::FileCalls {
public:
    enum class Call { Write, Rename, Sync };
    FailingCalls(Call call, int failAt, bool canExchange = true)
        : call_(call), failAt_(failAt), canExchange_(canExchange) {}
    ssize_t Write(int fd, const char* data, std::size_t size) override {
        return Fails(Call::Write) ? -1 : FileCalls::Write(fd, data, size);
    }
    int Rename(int dir, const char* from, const char* to, unsigned flags) override {
        if (flags != 0 && !canExchange_) {
            errno = EINVAL;
            return -1;
        }
        return Fails(Call::Rename) ? -1 : FileCalls::Rename(dir, from, to, flags);
    }
    int Sync(int fd) override { return Fails(Call::Sync) ? -1 : FileCalls::Sync(fd); }

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
    // A replaced file keeps its permissions.
    EXPECT_EQ(fs::status(temp / "c.lst").permissions(), fs::perms(0640));
    EXPECT_EQ(fs::status(temp / "a.ini").permissions(), aMode);
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

// Temporary files of ended programs go with the next write in their folder; a running
// program's stay.
TEST(FileReplacement, TheNextWriteRemovesTemporariesOfEndedPrograms) {
    TempFolder temp;
    const std::string ended = ".orrindel-99999999-1-0";                          // no such process
    const std::string sameId = ".orrindel-" + std::to_string(::getpid()) + "-7"; // an earlier one
    const std::string running = ".orrindel-1-1-0";                               // the init process
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

// Deleting files is part of the same all-or-nothing commit: when a later rename fails, a
// file moved aside is back; a file already missing counts as deleted.
TEST(FileReplacement, ARemovalFailingLaterIsPutBack) {
    TempFolder temp;
    for (const char* name : {"a.ini", "gone.lst"})
        TempFolder::Write(temp / name, std::string("old ") + name);
    const auto before = Snapshot(temp.path());
    const auto commit = [&](platform::FileCalls& calls) {
        platform::StagedReplacement replacement(calls);
        replacement.StageRemoval(temp / "gone.lst");
        replacement.StageRemoval(temp / "missing.lst");
        replacement.StageResolved(temp / "a.ini", "new a");
        replacement.StageResolved(temp / "b.lst", "new b");
        replacement.Commit();
    };
    for (const bool canExchange : {true, false})
        for (int n = 1; n <= 3; ++n) {
            FailingCalls calls(FailingCalls::Call::Rename, n, canExchange);
            EXPECT_ANY_THROW(commit(calls)) << n;
            EXPECT_EQ(Snapshot(temp.path()), before) << n << " " << canExchange;
        }
    FailingCalls never(FailingCalls::Call::Rename, 0);
    commit(never);
    EXPECT_EQ(Snapshot(temp.path()),
              (std::map<std::string, std::string>{{"a.ini", "new a"}, {"b.lst", "new b"}}));
}
