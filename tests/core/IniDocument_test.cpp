#include "core/IniDocument.h"

#include <gtest/gtest.h>

TEST(IniDocument, ReadsTrimmedValuesIgnoringCaseOfSectionAndKey) {
    const IniDocument doc("top=1\r\n[Alpha]\r\n Key = some value \r\nother=x\n[beta]\r\nk=v");
    EXPECT_EQ(doc.Read("ALPHA", "key", "d"), "some value");
    EXPECT_EQ(doc.Read("Beta", "K", "d"), "v");
    EXPECT_EQ(doc.Read("alpha", "missing", " def "), " def ");
    EXPECT_EQ(doc.Read("", "top", "d"), "d");  // lines before the first section never match
}

TEST(IniDocument, NewKeyLandsAfterLastNonBlankLineOfItsSection) {
    IniDocument doc("[a]\r\nx=1\r\n\r\n\r\n[b]\r\ny=2\r\n");
    EXPECT_TRUE(doc.Write("A", "z", "3"));
    EXPECT_EQ(doc.Bytes(), "[a]\r\nx=1\r\nz=3\r\n\r\n\r\n[b]\r\ny=2\r\n");
    EXPECT_TRUE(doc.Write("b", "w", "4"));
    EXPECT_EQ(doc.Bytes(), "[a]\r\nx=1\r\nz=3\r\n\r\n\r\n[b]\r\ny=2\r\nw=4\r\n");
    EXPECT_EQ(doc.Read("b", "y", ""), "2");
}
