#include "core/modFunctions.h"
#include "initialworld/InitialWorld.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

class InitialWorldFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "Mod");
        file = initialworld::DataFile(modFunctions::ProjectPath(app.path(), "Mod"));
    }
    std::string Bytes() const {
        return TempFolder::Read(app / "projects/Mod/initialworld/grp.ini");
    }

    TempFolder app;
    std::string file;
};

TEST_F(InitialWorldFileTest, MissingValuesReadAsEditorDefaults) {
    TempFolder::Write(app / "projects/Mod/initialworld/grp.ini", "[a]\r\nids_info=7\r\nb=0.2\r\n");
    const auto ids = initialworld::ReadIds(file, "a");
    EXPECT_EQ(ids.name, "error");
    EXPECT_EQ(ids.shortName, "error");
    EXPECT_EQ(ids.info, "7");
    EXPECT_EQ(initialworld::ReadReputations(file, "a", {"a", "b", "c"}),
              (std::vector<std::string>{"", "0.2", ""}));
    EXPECT_EQ(initialworld::ReadIds(file, "none").name, "error");
}

TEST_F(InitialWorldFileTest, MirrorStoresBothEntriesAndOwnRowOnce) {
    initialworld::WriteReputation(file, "a", "b", "0.5", true);
    initialworld::WriteReputation(file, "a", "a", "1", true);
    initialworld::WriteReputation(file, "b", "c", "-0.1", false);
    EXPECT_EQ(Bytes(), "[a]\r\nb=0.5\r\na=1\r\n"
                       "[b]\r\na=0.5\r\nc=-0.1\r\n");
}

TEST_F(InitialWorldFileTest, IdsWriteKeepsLineBreakAsEscape) {
    initialworld::WriteIds(file, "a", initialworld::IdsInfo, "1\r\n2");
    EXPECT_EQ(Bytes(), "[a]\r\nids_info=1/20&\\2\r\n");
    EXPECT_EQ(initialworld::ReadIds(file, "a").info, "1\r\n2");
}

} // namespace
