// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/NativePath.h"
#include "core/PathLookup.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

TEST(DiskNames, AreUtf8OnDiskAndWindows1252InFiles) {
    EXPECT_EQ(platform::DiskName("\xDC"
                                 "ber \x80 Mod"),
              "\xC3\x9C"
              "ber \xE2\x82\xAC Mod");
    EXPECT_EQ(platform::NameFromDisk("Gr\xC3\xB6\xC3\x9F"
                                     "e \xC5\x92"),
              "Gr\xF6\xDF"
              "e \x8C");
    EXPECT_EQ(platform::NameFromDisk("Gr\xF6\xDF"
                                     "e"),
              std::nullopt); // Windows-1252 bytes are no UTF-8
    EXPECT_EQ(platform::NameFromDisk("\xC5\x81\xC3\xB3\x64\xC5\xBA"), std::nullopt); // Łódź
}

// Files made on disk in UTF-8 are found under any capitals of every Windows-1252 case pair,
// and the lookup answers with the spelling on disk, on a file system blind to case too.
TEST(PathLookup, FoldsEveryWindows1252CasePairOnDecodedNames) {
    TempFolder temp;
    std::filesystem::create_directories(platform::NativePath(temp / "\xC3\x84rger/\xC5\x92uvre"));
    TempFolder::Write(temp / "\xC3\x84rger/\xC5\x92uvre/\xC5\xA0ip \xC3\x9E.ini", "x");

    const std::string asked = temp.path() + "\\\xC3\xA4RGER\\\xC5\x93UVRE\\\xC5\xA1IP \xC3\xBE.INI";
    const std::string onDisk =
        platform::HostPath(temp / "\xC3\x84rger/\xC5\x92uvre/\xC5\xA0ip \xC3\x9E.ini");
    EXPECT_EQ(platform::ResolvePath(asked), onDisk);
    EXPECT_EQ(platform::LookUpFile(asked).path, onDisk);
    platform::PathResolver resolver;
    const auto found = resolver.Find(asked);
    EXPECT_EQ(found.path, onDisk);
    EXPECT_TRUE(found.listed);
    EXPECT_FALSE(resolver.Find(temp.path() + "\\\xC3\x84rger\\missing.ini").listed);
    const std::string missing = temp.path() + "\\\xC3\xA4x";
    EXPECT_EQ(platform::ResolvePath(missing), platform::HostPath(missing)); // no match
    EXPECT_FALSE(platform::IsFile(missing));
}

TEST(PathLookup, ANameThatIsNoUtf8IsFoundOnlyAsItIs) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows names are UTF-16: a name that is not UTF-8 cannot be made";
#endif
    TempFolder temp;
    TempFolder::Write(temp / "\xC4x", "raw");
    EXPECT_EQ(platform::ResolvePath(temp.path() + "\\\xC4x"), temp / "\xC4x");
    platform::PathResolver resolver;
    EXPECT_TRUE(resolver.Find(temp.path() + "\\\xC4x").listed);
    EXPECT_FALSE(resolver.Find(temp.path() + "\\\xE4X").listed);
}

} // namespace
