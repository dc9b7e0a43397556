// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderOperations.h"
#include "core/PathLookup.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// A project that is a link to a folder elsewhere, or holds one, goes without that folder
// changing: not its files, not its mode.
TEST(FolderOperations, DeletingATreeNeverFollowsALink) {
#ifdef _WIN32
    GTEST_SKIP() << "symbolic links need a privilege on Windows (and Wine makes none)";
#endif
    TempFolder temp;
    fs::create_directories(temp / "outside");
    TempFolder::Write(temp / "outside/keep.txt", "keep");
    fs::permissions(temp / "outside", fs::perms(0750));
    fs::create_directories(temp / "projects/Real/sub");
    TempFolder::Write(temp / "projects/Real/sub/file", "x");
    fs::create_directory_symlink(temp / "outside", temp / "projects/Real/inner");
    fs::permissions(temp / "projects/Real/sub", fs::perms(0555));
    fs::create_directory_symlink(temp / "outside", temp / "projects/Linked");

    platform::DeleteFolderTree(temp.path() + "\\projects\\linked");
    EXPECT_FALSE(fs::exists(fs::symlink_status(temp / "projects/Linked")));
    platform::DeleteFolderTree(temp.path() + "\\projects\\Real");
    EXPECT_FALSE(fs::exists(fs::symlink_status(temp / "projects/Real")));

    EXPECT_EQ(TempFolder::Read(temp / "outside/keep.txt"), "keep");
    EXPECT_EQ(fs::status(temp / "outside").permissions(), fs::perms(0750));
    EXPECT_TRUE(fs::is_directory(temp / "projects"));

    // A faction's file that is a link goes as the link.
    fs::create_symlink(temp / "outside/keep.txt", temp / "projects/list.lst");
    EXPECT_TRUE(platform::DeleteFile(temp.path() + "\\projects\\list.lst"));
    EXPECT_EQ(TempFolder::Read(temp / "outside/keep.txt"), "keep");
}

TEST(FolderOperations, ListingDecodesNamesAndLeavesOutThoseThatAreNoWindows1252Text) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows names are UTF-16: a name that is not UTF-8 cannot be made, and "
                    "symbolic links need a privilege";
#endif
    TempFolder temp;
    fs::create_directories(temp / "Gr\xC3\xB6\xC3\x9F"
                                  "e");
    fs::create_directories(temp / "Gr\xF6\xDF"
                                  "e raw");
    fs::create_directories(temp / "\xE2\x9C\x93");
    TempFolder::Write(temp / "file", "x");
    fs::create_symlink(temp / "file", temp / "link");

    std::vector<std::string> leftOut;
    auto folders = platform::ListFolder(temp.path(), platform::EntryKind::Folders, &leftOut);
    EXPECT_EQ(folders, std::vector<std::string>{"Gr\xF6\xDF"
                                                "e"});
    std::sort(leftOut.begin(), leftOut.end());
    EXPECT_EQ(leftOut, (std::vector<std::string>{"Gr\xF6\xDF"
                                                 "e raw",
                                                 "\xE2\x9C\x93"}));
    auto files = platform::ListFolder(temp.path(), platform::EntryKind::Files);
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"file", "link"}));
}

// Read-only files and folders go with the tree, and a read-only file alone; a folder that is
// not empty stays where only empty ones may go.
TEST(FolderOperations, ReadOnlyEntriesAreDeletedAndOnlyEmptyFoldersRemoved) {
    TempFolder temp;
    fs::create_directories(temp / "tree/locked");
    TempFolder::Write(temp / "tree/locked/a.ini", "x");
    TempFolder::Write(temp / "tree/b.ini", "x");
    TempFolder::Write(temp / "alone.ini", "x");
    for (const char* entry : {"tree/locked/a.ini", "tree/b.ini", "alone.ini", "tree/locked"})
        fs::permissions(temp / entry,
                        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);

    EXPECT_FALSE(platform::RemoveEmptyFolder(temp.path() + "\\tree"));
    EXPECT_TRUE(fs::exists(temp / "tree/b.ini"));
    EXPECT_TRUE(platform::DeleteFile(temp.path() + "\\ALONE.ini"));
    EXPECT_FALSE(fs::exists(temp / "alone.ini"));
    EXPECT_FALSE(platform::DeleteFile(temp.path() + "\\tree")); // a folder is no file
    platform::DeleteFolderTree(temp.path() + "\\Tree");
    EXPECT_FALSE(fs::exists(temp / "tree"));
    fs::create_directory(temp / "empty");
    EXPECT_TRUE(platform::RemoveEmptyFolder(temp.path() + "\\empty"));
    EXPECT_FALSE(fs::exists(temp / "empty"));
}

// Folders deeper than the old 260-character limit of Windows are made, listed and deleted.
TEST(FolderOperations, PathsLongerThan260CharactersWork) {
    TempFolder temp;
    std::string deep = temp.path();
    for (int level = 0; level < 6; ++level) {
        deep += "\\" + std::string(60, static_cast<char>('a' + level));
        platform::CreateFolder(deep);
    }
    ASSERT_GT(deep.size(), 360u);
    TempFolder::Write(platform::HostPath(deep + "\\file.ini"), "x");
    EXPECT_TRUE(platform::IsDirectory(deep));
    EXPECT_TRUE(platform::IsFile(deep + "\\FILE.ini"));
    EXPECT_EQ(platform::ListFolder(deep, platform::EntryKind::Files),
              std::vector<std::string>{"file.ini"});
    platform::DeleteFolderTree(temp.path() + "\\" + std::string(60, 'a'));
    EXPECT_TRUE(platform::ListFolder(temp.path(), platform::EntryKind::Folders).empty());
}

} // namespace
