// SPDX-License-Identifier: GPL-3.0-or-later
// What only Windows does to a replacement: a file that another program holds open, paths
// with drive letters, and a file system that is blind to case.
#include "core/FileReplacement.h"
#include "core/PathLookup.h"
#include "support/TempFolder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#ifdef _WIN32
#include "core/NativePath.h"

#include <windows.h>
#undef ReplaceFile // a macro of <windows.h>, as our function's name
#endif

namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
// The file open as another program has it: reading and writing shared, deleting and so
// replacing not, until Close.
struct HeldOpen {
    explicit HeldOpen(const std::string& path)
        : handle(::CreateFileW(platform::NativePath(path).c_str(), GENERIC_READ,
                               FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    ~HeldOpen() { Close(); }
    void Close() {
        if (handle != INVALID_HANDLE_VALUE)
            ::CloseHandle(handle);
        handle = INVALID_HANDLE_VALUE;
    }
    HANDLE handle;
};

std::size_t EntriesIn(const std::string& folder) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(platform::NativePath(folder))) {
        (void)entry;
        ++count;
    }
    return count;
}
#endif

// Held open past the wait, the file is not replaced: the failure names it, its bytes stay, no
// temporary is left. Let go within the wait, the write goes through. Both for one file alone
// and for a staged batch, whose other file is restored.
TEST(WindowsFiles, AFileHeldOpenIsWaitedForBrieflyThenRefusedNamingIt) {
#ifndef _WIN32
    GTEST_SKIP() << "POSIX replaces a file that is open elsewhere; only Windows refuses";
#else
    struct Case {
        const char* what;
        int letGoAfterMs; // -1: held until the write has failed
        bool batch;
    };
    for (const Case& c : {Case{"held alone", -1, false}, Case{"held in a batch", -1, true},
                          Case{"let go alone", 300, false}, Case{"let go in a batch", 300, true}}) {
        TempFolder temp;
        const std::string held = temp.path() + "\\Held.ini";
        const std::string other = temp.path() + "\\other.ini";
        TempFolder::Write(held, "old");
        TempFolder::Write(other, "old other");
        HeldOpen holder(held);
        ASSERT_NE(holder.handle, INVALID_HANDLE_VALUE) << c.what;
        std::thread letGo;
        if (c.letGoAfterMs >= 0)
            letGo = std::thread([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(c.letGoAfterMs));
                holder.Close();
            });
        const auto start = std::chrono::steady_clock::now();
        std::string failure;
        try {
            platform::StagedReplacement replacement;
            if (c.batch)
                replacement.StageResolved(other, "new other");
            replacement.StageResolved(held, "new");
            replacement.Commit();
        } catch (const platform::FileError& error) {
            failure = error.what();
        }
        const auto waited = std::chrono::steady_clock::now() - start;
        if (letGo.joinable())
            letGo.join();
        holder.Close();
        if (c.letGoAfterMs >= 0) {
            EXPECT_EQ(failure, "") << c.what;
            EXPECT_EQ(TempFolder::Read(held), "new") << c.what;
            EXPECT_EQ(TempFolder::Read(other), c.batch ? "new other" : "old other") << c.what;
        } else {
            EXPECT_NE(failure.find("Held.ini: the file is in use by another program"),
                      std::string::npos)
                << c.what << ": " << failure;
            EXPECT_GE(waited, std::chrono::milliseconds(900)) << c.what;
            EXPECT_LT(waited, std::chrono::seconds(5)) << c.what;
            EXPECT_EQ(TempFolder::Read(held), "old") << c.what;
            EXPECT_EQ(TempFolder::Read(other), "old other") << c.what;
        }
        EXPECT_EQ(EntriesIn(temp.path()), 2u) << c.what; // no temporary, no backup
    }
#endif
}

// A path given with its drive letter in either case and either separator, and a name that
// differs from the file's only in case, write the one file there is, under its own spelling.
TEST(WindowsFiles, DriveLettersAndNamesDifferingInCaseReachTheFileOnDisk) {
#ifndef _WIN32
    GTEST_SKIP() << "drive letters and a case-blind file system are Windows's";
#else
    TempFolder temp;
    ASSERT_EQ(temp.path()[1], ':') << temp.path();
    const std::string rest = temp.path().substr(2);
    TempFolder::Write(temp.path() + "\\Faction.ini", "0");
    std::string slashed = rest;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const char drive = temp.path()[0];
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(drive)));
    int n = 0;
    for (const std::string& path :
         {std::string(1, lower) + ":" + rest + "\\faction.ini",
          std::string(1, drive) + ":" + slashed + "/FACTION.INI", temp.path() + "\\Faction.ini"}) {
        const std::string bytes = std::to_string(++n);
        platform::ReplaceFile(path, bytes);
        EXPECT_EQ(platform::ReadBytes(path), bytes) << path;
        platform::AppendBytes(path, "+");
        EXPECT_EQ(TempFolder::Read(temp.path() + "\\Faction.ini"), bytes + "+") << path;
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(platform::NativePath(temp.path())))
            names.push_back(platform::PathText(entry.path().filename()));
        EXPECT_EQ(names, std::vector<std::string>{"Faction.ini"}) << path;
    }
#endif
}

} // namespace
