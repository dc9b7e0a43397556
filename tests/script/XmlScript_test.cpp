#include "script/XmlScript.h"

#include <gtest/gtest.h>

namespace {

TEST(XmlScript, WithoutHeaderIsTheBareElementWithNothingAfterIt) {
    EXPECT_EQ(script::BuildScript(nullptr), "<script>\r\n</script>");
}

TEST(XmlScript, HeaderHoldsEveryFieldOnItsOwnLineAndTwoEmptyLinesBeforeTheEnd) {
    const script::ScriptHeader header; // the page's initial texts
    EXPECT_EQ(script::BuildScript(&header), "<script>\r\n"
                                            "<header name=\"MyFaction Mod\">\r\n"
                                            "\r\n"
                                            "<scriptversion>\r\n1.0\r\n</scriptversion>\r\n"
                                            "\r\n"
                                            "<modurl>\r\nhttps://www.example.com/\r\n</modurl>\r\n"
                                            "\r\n"
                                            "<author>\r\nMyName\r\n</author>\r\n"
                                            "\r\n"
                                            "<description>\r\nMod description\r\n</description>\r\n"
                                            "</header>\r\n"
                                            "\r\n"
                                            "\r\n"
                                            "</script>");
}

TEST(XmlScript, EmptyAndMarkupValuesAreInsertedUnchanged) {
    const script::ScriptHeader empty{"", "", "", "", ""};
    EXPECT_EQ(script::BuildScript(&empty),
              "<script>\r\n<header name=\"\">\r\n\r\n<scriptversion>\r\n\r\n</scriptversion>\r\n"
              "\r\n<modurl>\r\n\r\n</modurl>\r\n\r\n<author>\r\n\r\n</author>\r\n\r\n"
              "<description>\r\n\r\n</description>\r\n</header>\r\n\r\n\r\n</script>");

    const script::ScriptHeader odd{" a<b & \"c\" ", "2", "u", "\xe4 ", "x</description>&amp;"};
    const std::string text = script::BuildHeader(odd);
    EXPECT_EQ(text.substr(0, 31), "\r\n<header name=\" a<b & \"c\" \">\r\n");
    EXPECT_NE(text.find("\r\n\xe4 \r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\nx</description>&amp;\r\n</description>\r\n"), std::string::npos);
}

} // namespace
