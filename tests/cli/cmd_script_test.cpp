// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

// The script's form is the core's; here the options, their defaults and UTF-8 arguments.
TEST(ScriptCommand, OptionsFillTheHeaderAndBadOnesAreRefused) {
    const auto run = [](const std::vector<std::string>& args, int code) {
        std::ostringstream out, err;
        EXPECT_EQ(cli::Run(args, out, err), code) << args.back() << err.str();
        return out.str();
    };
    // Fields without --header change nothing, as on the page with the box unchecked.
    EXPECT_EQ(run({"script", "--name", "X"}, 0), "<script>\r\n</script>");
    EXPECT_EQ(
        run({"script", "--author", "J\xc3\xbcrgen", "--header", "--name", "", "--url", "u"}, 0),
        "<script>\r\n<header name=\"\">\r\n\r\n"
        "<scriptversion>\r\n1.0\r\n</scriptversion>\r\n\r\n"
        "<modurl>\r\nu\r\n</modurl>\r\n\r\n"
        "<author>\r\nJ\xc3\xbcrgen\r\n</author>\r\n\r\n"
        "<description>\r\nMod description\r\n</description>\r\n"
        "</header>\r\n\r\n\r\n</script>");
    EXPECT_EQ(run({"script", "--bogus"}, cli::Usage), "");
    EXPECT_EQ(run({"script", "--header", "--description"}, cli::Usage), "");
    EXPECT_EQ(run({"script", "--name", "\xe2\x82\xac\xe2\x98\x83"}, cli::Failed), "");
}

} // namespace
