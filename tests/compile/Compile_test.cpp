// SPDX-License-Identifier: GPL-3.0-or-later
// Order and partial failures of the game files compiled side by side are the compile command's
// test; here one compile and its protocol line.
#include "compile/Compile.h"
#include "core/platform.h"
#include "support/TestProject.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

TEST(Compile, AProtocolLineOnlyForAWrittenFileAndAFailedLineToldApart) {
    TestProject project;
    const compile::Job emphaty{compile::GameFile::Emphaty, project.Folder(), {"a"}, {"a"}};
    compile::Job world = emphaty;
    world.file = compile::GameFile::InitialWorld;
    std::vector<std::string> lines;
    const compile::Protocol protocol = [&](std::string_view line) { lines.emplace_back(line); };
    // The file is written; the protocol is not: the failure says so and keeps its cause.
    const compile::Protocol failing = [](std::string_view) {
        throw platform::FileError("/p/protocol/protocol.txt", "disk full");
    };
    try {
        compile::Run(emphaty, failing);
        ADD_FAILURE() << "no failure";
    } catch (const compile::ProtocolNotWritten& error) {
        EXPECT_STREQ(error.what(), "/p/protocol/protocol.txt: disk full");
        EXPECT_THROW(error.rethrow_nested(), platform::FileError);
    }
    EXPECT_FALSE(project.Read("compiled/emphaty.ini").empty());
    std::filesystem::create_directory(project.File("compiled/initialworld.ini"));
    EXPECT_THROW(compile::Run(world, protocol), platform::FileError);
    EXPECT_TRUE(lines.empty());
    std::filesystem::remove(project.File("compiled/initialworld.ini"));
    compile::Run(world, protocol);
    EXPECT_EQ(lines, std::vector<std::string>{"Initialworld.ini created..."});
}

} // namespace
