#include "cli/Command.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

struct Result {
    int code;
    std::string out, err;
};

Result RunCli(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    const int code = cli::Run(args, out, err);
    return {code, out.str(), err.str()};
}

TEST(ScriptCommand, PrintsTheScriptExactlyWithoutATrailingNewline) {
    const Result bare = RunCli({"script"});
    EXPECT_EQ(bare.code, 0);
    EXPECT_EQ(bare.out, "<script>\r\n</script>");

    // Fields without --header change nothing, as on the page with the box unchecked.
    EXPECT_EQ(RunCli({"script", "--name", "X"}).out, "<script>\r\n</script>");
}

TEST(ScriptCommand, HeaderFieldsDefaultToThePageTextsAndTakeUtf8Arguments) {
    const Result result =
        RunCli({"script", "--author", "J\xc3\xbcrgen", "--header", "--name", "", "--url", "u"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "<script>\r\n<header name=\"\">\r\n\r\n"
                          "<scriptversion>\r\n1.0\r\n</scriptversion>\r\n\r\n"
                          "<modurl>\r\nu\r\n</modurl>\r\n\r\n"
                          "<author>\r\nJ\xc3\xbcrgen\r\n</author>\r\n\r\n"
                          "<description>\r\nMod description\r\n</description>\r\n"
                          "</header>\r\n\r\n\r\n</script>");
}

TEST(ScriptCommand, RefusesUnknownArgumentsAndMissingValues) {
    EXPECT_EQ(RunCli({"script", "--bogus"}).code, cli::Usage);
    const Result missing = RunCli({"script", "--header", "--description"});
    EXPECT_EQ(missing.code, cli::Usage);
    EXPECT_TRUE(missing.out.empty());
    EXPECT_NE(missing.err.find("--description needs a value"), std::string::npos);
    EXPECT_EQ(RunCli({"script", "--name", "\xe2\x82\xac\xe2\x98\x83"}).code, cli::Failed);
}

} // namespace
