#include "compile/Compile.h"
#include "core/modFunctions.h"
#include "core/platform.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using compile::GameFile;

class Compile : public ::testing::Test {
protected:
    Compile() {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), "p");
    }
    std::string Folder() const { return modFunctions::ProjectPath(app.path(), "p"); }
    std::string Compiled(std::string_view name) const {
        return platform::ResolvePath(Folder() + "\\compiled\\" + std::string(name));
    }
    compile::Job Job(GameFile file) const { return {file, Folder(), {"a", "b"}, {"a", "b"}}; }

    TempFolder app;
    std::vector<std::string> lines; // the protocol, as the helper wrote it
    compile::Protocol protocol = [this](std::string_view line) { lines.emplace_back(line); };
};

TEST_F(Compile, SideBySideEachCompiledFileGetsItsLineInOrderBeforeTheFailureIsThrown) {
    struct Case {
        const char* blocked; // a folder where this game file belongs, or ""
        std::vector<std::string> lines;
    };
    const std::vector<Case> cases = {
        {"",
         {"Emphaty.ini compiled...", "Faction_Prop.ini created...", "Initialworld.ini created..."}},
        {"faction_prop.ini", {"Emphaty.ini compiled...", "Initialworld.ini created..."}},
        {"emphaty.ini", {"Faction_Prop.ini created...", "Initialworld.ini created..."}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.blocked);
        lines.clear();
        if (*c.blocked) {
            std::filesystem::remove(Compiled(c.blocked));
            std::filesystem::create_directory(Compiled(c.blocked));
        }
        const std::vector<compile::Job> jobs = {Job(GameFile::Emphaty), Job(GameFile::FactionProp),
                                                Job(GameFile::InitialWorld)};
        const auto failures = compile::RunTogether(jobs, protocol);
        if (*c.blocked) {
            ASSERT_EQ(failures.size(), 1u);
            try {
                std::rethrow_exception(failures[0]);
            } catch (const platform::FileError& error) {
                EXPECT_NE(error.path().find(c.blocked), std::string::npos) << error.what();
            }
            std::filesystem::remove(Compiled(c.blocked));
        } else {
            EXPECT_TRUE(failures.empty());
        }
        EXPECT_EQ(lines, c.lines);
    }
}

TEST_F(Compile, OneCompileReportsItsProgressAndTellsAFailedProtocolLineApart) {
    std::size_t lastDone = 0;
    compile::Run(Job(GameFile::InitialWorld), protocol,
                 [&](const progress::Step& step) { lastDone = step.outerDone; });
    EXPECT_EQ(lastDone, 2u);
    EXPECT_EQ(lines, std::vector<std::string>{"Initialworld.ini created..."});

    // The file is written; the protocol is not: the failure says so and keeps its cause.
    const compile::Protocol failing = [](std::string_view) {
        throw platform::FileError("/p/protocol/protocol.txt", "disk full");
    };
    try {
        compile::Run(Job(GameFile::Emphaty), failing);
        ADD_FAILURE() << "no failure";
    } catch (const compile::ProtocolNotWritten& error) {
        EXPECT_STREQ(error.what(), "/p/protocol/protocol.txt: disk full");
        EXPECT_THROW(error.rethrow_nested(), platform::FileError);
    }
    EXPECT_FALSE(TempFolder::Read(Compiled("emphaty.ini")).empty());

    // A compile that fails writes no protocol line.
    lines.clear();
    std::filesystem::remove(Compiled("initialworld.ini"));
    std::filesystem::create_directory(Compiled("initialworld.ini"));
    EXPECT_THROW(compile::Run(Job(GameFile::InitialWorld), protocol), platform::FileError);
    EXPECT_TRUE(lines.empty());
}

} // namespace
