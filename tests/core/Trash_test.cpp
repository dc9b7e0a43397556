// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Trash.h"
#include "core/modFunctions.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// A deleted project goes to the home trash with an info file naming where it was; a second
// project of the same name gets a name of its own there. Without a usable trash it is deleted.
TEST(Trash, ADeletedProjectGoesToTheTrashOrIsDeleted) {
#ifdef _WIN32
    GTEST_SKIP() << "the recycle bin is the shell's, and not one a test may fill";
#endif
    TempFolder app;
    modFunctions::EnsureProjectsFolder(app.path());
    const std::string trash = app / "data home/Trash";
    {
        const ScopedEnvironment home("XDG_DATA_HOME", app / "data home");
        for (const char* entry : {"Al pha", "Al pha.2"}) {
            modFunctions::CreateProjectFolders(app.path(), "Al pha");
            TempFolder::Write(app / "projects/Al pha/misc/factions.ini", entry);
            EXPECT_TRUE(modFunctions::TrashProjectFolder(app.path(), "Al pha")) << entry;
            EXPECT_FALSE(fs::exists(app / "projects/Al pha"));
            EXPECT_EQ(TempFolder::Read(trash + "/files/" + entry + "/misc/factions.ini"), entry);
            const std::string info = TempFolder::Read(trash + "/info/" + entry + ".trashinfo");
            EXPECT_TRUE(info.starts_with("[Trash Info]\nPath=" + app.path() +
                                         "/projects/Al%20pha\nDeletionDate="))
                << info;
        }
    }
    TempFolder::Write(app / "not a folder", "");
    const ScopedEnvironment unusable("XDG_DATA_HOME", app / "not a folder");
    modFunctions::CreateProjectFolders(app.path(), "Beta");
    EXPECT_FALSE(modFunctions::TrashProjectFolder(app.path(), "Beta"));
    EXPECT_FALSE(fs::exists(app / "projects/Beta"));
}

} // namespace
