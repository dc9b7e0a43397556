#include "core/ApplicationFolder.h"
#include "core/BuildInfo.h"
#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(ApplicationFolder, BuiltCopyUsesItsOwnFolderAndInstalledCopyTheSeededUserFolder) {
    TempFolder root;
    fs::create_directories(root / "build/bin/data/emphaty");
    EXPECT_EQ(applicationFolder::Choose(root / "build/bin").folder, root / "build/bin");

    fs::create_directories(root / "prefix/bin");
    const fs::path installed =
        (fs::path(root / "prefix/bin") / buildInfo::InstalledLibraryFromPrograms)
            .lexically_normal();
    fs::create_directories(installed / "emphaty/original_factions");
    TempFolder::Write(installed / "emphaty/original_factions/li_n_grp", "x");
    const char* previous = std::getenv("XDG_DATA_HOME");
    const std::string saved = previous ? previous : "";
    ::setenv("XDG_DATA_HOME", (root / "user").c_str(), 1);
    const auto choice = applicationFolder::Choose(root / "prefix/bin");
    previous ? ::setenv("XDG_DATA_HOME", saved.c_str(), 1) : ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(choice.folder, root / "user/orrindel");
    EXPECT_EQ(choice.problem, "");
    EXPECT_TRUE(
        fs::is_regular_file(root / "user/orrindel/data/emphaty/original_factions/li_n_grp"));
}
