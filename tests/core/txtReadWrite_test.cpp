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

TEST(WriteIni, CreatesUpdatesAndReadsBackThroughTheFile) {
    TempFolder dir;
    const std::string file = dir / "a.ini";
    WriteIni("Sec", "Key", "value", file);
    EXPECT_EQ(TempFolder::Read(file), "[Sec]\r\nKey=value\r\n");
    WriteIni("sec", "KEY", "two\r\nlines", file);
    EXPECT_EQ(TempFolder::Read(file), "[Sec]\r\nKey=two/20&\\lines\r\n");
    EXPECT_EQ(ReadIni("SEC", "key", "", file), "two\r\nlines");
    EXPECT_EQ(ReadIni("Sec", "other", "0.0", file), "0.0");
    EXPECT_EQ(ReadIni("Sec", "Key", "dflt", dir / "missing.ini"), "dflt");
}

TEST(WriteIni, EqualValueDoesNotRewriteTheFile) {
    TempFolder dir;
    const std::string file = dir / "a.ini";
    WriteIni("s", "k", "v", file);
    const auto before = InodeOf(file);
    WriteIni("S", "K", "v", file);
    EXPECT_EQ(InodeOf(file), before);
}

TEST(WriteIni, SeesChangesMadeBehindTheCacheAndKeepsDiskSpelling) {
    TempFolder dir;
    const std::string file = dir / "Grp.INI";
    TempFolder::Write(file, "[a]\r\nk=1\r\n");
    EXPECT_EQ(ReadIni("a", "k", "", file), "1");
    TempFolder::Write(file, "[a]\r\nk=22\r\n"); // another size: the cache must notice
    EXPECT_EQ(ReadIni("a", "k", "", dir.path() + "\\grp.ini"), "22");
    WriteIni("a", "n", "x", dir.path() + "\\GRP.ini");
    EXPECT_EQ(TempFolder::Read(file), "[a]\r\nk=22\r\nn=x\r\n");
    std::vector<std::string> names; // one file, spelled as it was made
    for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
        names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"Grp.INI"});
}

TEST(WriteIni, ReadOnlyFileIsRefusedEvenForTheSuperuser) {
    TempFolder dir;
    const std::string file = dir / "ro.ini";
    TempFolder::Write(file, "[a]\r\nk=1\r\n");
    ::chmod(file.c_str(), 0444);
    try {
        WriteIni("a", "k", "2", file);
        ADD_FAILURE() << "a read-only file was replaced";
    } catch (const IniWriteError& error) {
        EXPECT_NE(std::string(error.what()).find("ro.ini"), std::string::npos) << error.what();
    }
    EXPECT_EQ(TempFolder::Read(file), "[a]\r\nk=1\r\n");
    EXPECT_EQ(ReadIni("a", "k", "", file), "1");
    EXPECT_THROW(WriteIni("a", "k", "2", dir / "missing/x.ini"), IniWriteError);
}

TEST(DefaultIniPath, EmptyFileArgumentUsesTheSettingsFileOfTheApplicationFolder) {
    TempFolder dir;
    SetApplicationDirectory(dir.path());
    EXPECT_EQ(GetDefaultIniPath(), dir.path() + "\\Kelvaro.ini");
    WriteIni("s", "k", "v", "");
    EXPECT_EQ(TempFolder::Read(dir / "Kelvaro.ini"), "[s]\r\nk=v\r\n");
    EXPECT_EQ(ReadIni("s", "k", "", ""), "v");
    SetApplicationDirectory("C:\\");
    EXPECT_EQ(GetDefaultIniPath(), "C:\\Kelvaro.ini");
    SetApplicationDirectory(platform::ExecutableFolder());
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
    EXPECT_EQ(ReadFileLine(file, 0), "");
    EXPECT_EQ(ReadFileLine(file, 1), "one");
    EXPECT_EQ(ReadFileLine(file, 2), "two");
    EXPECT_EQ(ReadFileLine(file, 3), "thr\ree"); // a lone CR stays in its line
    EXPECT_EQ(ReadFileLine(file, 4), "");
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

TEST(Transaction, AFailingFileLeavesEveryFileUnchanged) {
    TempFolder dir;
    const std::string good = dir / "good.ini";
    TempFolder::Write(good, "[a]\r\nk=1\r\n");
    {
        Transaction tx;
        tx.WriteIni("a", "k", "2", good);
        tx.WriteIni("a", "k", "2", dir / "missing/bad.ini");
        EXPECT_THROW(tx.Commit(), IniWriteError);
    }
    EXPECT_EQ(TempFolder::Read(good), "[a]\r\nk=1\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}),
              1); // no temporaries left
}
