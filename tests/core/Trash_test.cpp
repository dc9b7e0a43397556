#include "core/Trash.h"
#include "core/modFunctions.h"
#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// Sets XDG_DATA_HOME for the test and puts the old value back.
class DataHome {
public:
    explicit DataHome(const std::string& path) {
        if (const char* old = std::getenv("XDG_DATA_HOME"))
            old_ = old;
        ::setenv("XDG_DATA_HOME", path.c_str(), 1);
    }
    ~DataHome() {
        if (old_.empty())
            ::unsetenv("XDG_DATA_HOME");
        else
            ::setenv("XDG_DATA_HOME", old_.c_str(), 1);
    }
    DataHome(const DataHome&) = delete;
    DataHome& operator=(const DataHome&) = delete;

private:
    std::string old_;
};

// A deleted project goes to the home trash with an info file naming where it was; a second
// project of the same name gets a name of its own there. Without a usable trash it is deleted.
TEST(Trash, ADeletedProjectGoesToTheTrashOrIsDeleted) {
    TempFolder app;
    modFunctions::EnsureProjectsFolder(app.path());
    const std::string trash = app / "data home/Trash";
    {
        const DataHome home(app / "data home");
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
    const DataHome unusable(app / "not a folder");
    modFunctions::CreateProjectFolders(app.path(), "Beta");
    EXPECT_FALSE(modFunctions::TrashProjectFolder(app.path(), "Beta"));
    EXPECT_FALSE(fs::exists(app / "projects/Beta"));
}

} // namespace
