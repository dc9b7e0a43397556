// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ApplicationFolder.h"
#include "core/BuildInfo.h"
#include "core/NativePath.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(ApplicationFolder, BuiltCopyUsesItsOwnFolderAndInstalledCopyTheSeededUserFolder) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows has no installed layout beside the programs; see the next test";
#endif
    TempFolder root;
    fs::create_directories(root / "build/bin/data/emphaty");
    EXPECT_EQ(applicationFolder::Choose(root / "build/bin").folder, root / "build/bin");

    fs::create_directories(root / "prefix/bin");
    const fs::path installed =
        (fs::path(root / "prefix/bin") / buildInfo::InstalledLibraryFromPrograms)
            .lexically_normal();
    fs::create_directories(installed / "emphaty/original_factions");
    TempFolder::Write(platform::PathText(installed / "emphaty/original_factions/li_n_grp"), "x");
    const auto choice = [&] {
        const ScopedEnvironment xdg("XDG_DATA_HOME", root / "user");
        return applicationFolder::Choose(root / "prefix/bin");
    }();
    EXPECT_EQ(choice.folder, root / "user/orrindel");
    EXPECT_EQ(choice.problem, "");
    EXPECT_TRUE(
        fs::is_regular_file(root / "user/orrindel/data/emphaty/original_factions/li_n_grp"));
}

TEST(ApplicationFolder, PortableCopyUsesItsOwnFolderElseTheLocalApplicationData) {
#ifndef _WIN32
    GTEST_SKIP() << "the local application-data folder is the Windows choice";
#else
    TempFolder root;
    fs::create_directories(root / "portable/data/emphaty");
    EXPECT_EQ(applicationFolder::Choose(root / "portable").folder, root / "portable");
    // A folder the program cannot write to (here: one that is not there).
    const ScopedEnvironment local("LOCALAPPDATA", root.path());
    const auto choice = applicationFolder::Choose(root.path() + "\\missing");
    EXPECT_EQ(choice.folder, root.path() + "\\Orrindel");
    EXPECT_EQ(choice.problem, "");
#endif
}
