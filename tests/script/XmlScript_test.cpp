// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/XmlScript.h"

#include <gtest/gtest.h>

namespace {

// Every field on its own line, values inserted unchanged, two empty lines before the end;
// without a header the bare element with nothing after it.
TEST(XmlScript, HeaderHoldsEveryFieldAsGivenOnItsOwnLine) {
    EXPECT_EQ(script::BuildScript(nullptr), "<script>\r\n</script>");
    const script::ScriptHeader header; // the page's initial texts
    EXPECT_EQ(script::BuildScript(&header),
              "<script>\r\n<header name=\"MyFaction Mod\">\r\n\r\n"
              "<scriptversion>\r\n1.0\r\n</scriptversion>\r\n\r\n"
              "<modurl>\r\nhttps://www.example.com/\r\n</modurl>\r\n\r\n"
              "<author>\r\nMyName\r\n</author>\r\n\r\n"
              "<description>\r\nMod description\r\n</description>\r\n</header>\r\n\r\n\r\n"
              "</script>");
    const script::ScriptHeader odd{" a<b & \"c\" ", "", "u", "\xe4 ", "x</description>&amp;"};
    EXPECT_EQ(script::BuildHeader(odd),
              "\r\n<header name=\" a<b & \"c\" \">\r\n\r\n<scriptversion>\r\n\r\n"
              "</scriptversion>\r\n\r\n<modurl>\r\nu\r\n</modurl>\r\n\r\n<author>\r\n\xe4 \r\n"
              "</author>\r\n\r\n<description>\r\nx</description>&amp;\r\n</description>\r\n"
              "</header>\r\n\r\n");
}

} // namespace
