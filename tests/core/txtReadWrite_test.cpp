// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FolderOperations.h"
#include "core/txtReadWrite.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace txtReadWrite;

namespace {
ino_t InodeOf(const std::string& path) {
    struct stat st {};
    ::stat(path.c_str(), &st);
    return st.st_ino;
}
} // namespace

// Writes through the file, whatever capitals the path uses, seeing changes made behind the
// cache; an equal value leaves the file alone, a read-only one is refused even for the superuser.
TEST(WriteIni, WritesThroughTheFileAndOnlyWhenTheValueChanges) {
    TempFolder dir;
    const std::string file = dir / "Grp.INI";
    WriteIni("Sec", "Key", "value", file);
    WriteIni("sec", "KEY", "two\r\nlines", dir.path() + "\\grp.ini");
    EXPECT_EQ(TempFolder::Read(file), "[Sec]\r\nKey=two/20&\\lines\r\n");
    EXPECT_EQ(ReadIni("SEC", "key", "", file), "two\r\nlines");
    EXPECT_EQ(ReadIni("Sec", "Key", "dflt", dir / "missing.ini"), "dflt");
    TempFolder::Write(file, "[a]\r\nk=22\r\n"); // another size: the cache must notice
    EXPECT_EQ(ReadIni("a", "k", "", dir.path() + "\\GRP.ini"), "22");
    const auto before = InodeOf(file);
    WriteIni("A", "K", "22", file);
    EXPECT_EQ(InodeOf(file), before);
    WriteIni("a", "n", "x", dir.path() + "\\GRP.ini");
    EXPECT_EQ(TempFolder::Read(file), "[a]\r\nk=22\r\nn=x\r\n");
    EXPECT_EQ(platform::ListFolder(dir.path(), platform::EntryKind::Files),
              std::vector<std::string>{"Grp.INI"}); // one file, spelled as it was made
    ::chmod(file.c_str(), 0444);
    EXPECT_THROW(WriteIni("a", "k", "2", file), IniWriteError);
    EXPECT_EQ(TempFolder::Read(file), "[a]\r\nk=22\r\nn=x\r\n");
    EXPECT_THROW(WriteIni("a", "k", "2", dir / "missing/x.ini"), IniWriteError);
}

TEST(TextFiles, WritersAddOneCrLfAndReadersTakeLinesAsStored) {
    TempFolder dir;
    const std::string file = dir / "t.txt";
    EXPECT_EQ(ReadFileText(file), "");
    WriteFileText(file, "");
    EXPECT_EQ(TempFolder::Read(file), "\r\n");
    WriteFileText(file, "a\r\n");
    EXPECT_EQ(TempFolder::Read(file), "a\r\n\r\n");

    const std::string log = dir / "log.txt";
    AppendFileText(log, "word");
    AppendFileText(log, "word");
    EXPECT_EQ(ReadFileText(log), "word\r\nword\r\n");

    TempFolder::Write(file, "one\r\ntwo\nthr\ree");
    const char* lines[] = {"", "one", "two", "thr\ree", ""}; // a lone CR stays in its line
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(ReadFileLine(file, i), lines[i]) << i;
    EXPECT_EQ(ReadFileLine(dir / "none", 1), "");
    EXPECT_THROW(WriteFileText(dir / "no/folder.txt", "x"), platform::FileError);
    EXPECT_THROW(AppendFileText(dir / "no/folder.txt", "x"), platform::FileError);
}

TEST(Transaction, WritesEveryFileOnceAndMatchesCallByCallWrites) {
    TempFolder dir;
    const std::string a = dir / "a.ini";
    const std::string b = dir / "b.ini";
    TempFolder::Write(a, "[x]\r\nk=1\r\n\r\n[y]\r\nk=2");
    TempFolder::Write(b, "[x]\r\nk=1\r\n\r\n[y]\r\nk=2");
    const auto writes = [](auto&& write) {
        write("y", "new", "v");
        write("x", "k", "3");
        write("z", "k", "line\r\nbreak");
        write("X", "k2", "4");
    };
    writes([&](auto s, auto k, auto v) { WriteIni(s, k, v, a); });
    Transaction tx;
    writes([&](auto s, auto k, auto v) { tx.WriteIni(s, k, v, b); });
    tx.WriteFileText(dir / "list.lst", "e1\r\ne2\r\n");
    EXPECT_EQ(tx.ReadIni("x", "k2", "", b), "4");
    EXPECT_EQ(ReadIni("x", "k2", "none", b), "none"); // nothing on disk before Commit
    tx.Commit();
    EXPECT_EQ(TempFolder::Read(b), TempFolder::Read(a));
    EXPECT_EQ(TempFolder::Read(dir / "list.lst"), "e1\r\ne2\r\n\r\n");
}
