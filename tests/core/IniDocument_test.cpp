// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/IniDocument.h"

#include <gtest/gtest.h>

TEST(IniDocument, ReadsTheFirstTrimmedValueIgnoringCase) {
    const struct {
        std::string text;
        const char *section, *key;
        std::string expected;
    } cases[] = {
        {"top=1\r\n[Alpha]\r\n Key = some value \r\nk=x\n", "ALPHA", "key", "some value"},
        {"top=1\r\n[Alpha]\r\n", "", "top", " d "}, // before the first section; no trim
        {"[a]\r\nx=1\n  [ beta ]  \r\nk=v", "Beta", "K", "v"},
        {"[a]\r\nk=1\r\nk=2\r\n[A]\r\nk=3\r\n", "A", "k", "1"},
        {"[\xC4rger]\r\n\xD6l=1\r\n", "\xE4rger", "\xF6L", "1"}, // Windows letters' case
        {"[a]\r\n\"q\"=\"x\"\r\n", "a", "\"q\"", "\"x\""},       // no quote stripping
        {"[s]\r\nb=a/20&\\b\r\n", "s", "b", "a\r\nb"},
        // The stored form is cut first; an escape cut in half stays as the bytes that remain.
        {"[s]\r\nk=" + std::string(300, 'x') + "\r\n", "s", "k", std::string(254, 'x')},
        {"[s]\r\nk=" + std::string(251, 'y') + "/20&\\\r\n", "s", "k",
         std::string(251, 'y') + "/20"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(IniDocument(c.text).Read(c.section, c.key, " d "), c.expected) << c.text;
    }
}

// Writes change only the line they target, in the first section and key of the name, and
// insert without blank lines; every other byte stays as it was.
TEST(IniDocument, WritesChangeOnlyTheirLine) {
    struct Write {
        const char *section, *key, *value;
        bool changes;
    };
    const struct {
        const char* input;
        std::vector<Write> writes;
        const char* expected;
    } cases[] = {
        {"[a]\r\nk=1\r\nk=2\r\n[A]\r\nk=3\r\n",
         {{"a", "K", "9", true}},
         "[a]\r\nk=9\r\nk=2\r\n[A]\r\nk=3\r\n"},
        // The key keeps its spelling and its line end; an equal value changes nothing.
        {"[a]\r\n  MyKey  =  old  \nnext=1",
         {{"A", "mykey", "new", true}, {"a", "next", "1", false}, {"a", "mykey", "new", false}},
         "[a]\r\nMyKey=new\nnext=1"},
        // After the last non-blank line of the section; later indexes move along.
        {"[a]\r\nx=1\r\n\r\n \t\r\n[b]\r\ny=2\r\n",
         {{"A", "z", "3", true},
          {"b", "w", "4", true},
          {"a", "v", "5", true},
          {"b", "y", "6", true}},
         "[a]\r\nx=1\r\nz=3\r\nv=5\r\n\r\n \t\r\n[b]\r\ny=6\r\nw=4\r\n"},
        {"[a]\r\nx=1", {{"a", "y", "2", true}}, "[a]\r\nx=1\r\ny=2\r\n"},
        {"", {{"s", "k", "v", true}}, "[s]\r\nk=v\r\n"},
        {"; note", {{"s", "k", "v", true}}, "; note\r\n[s]\r\nk=v\r\n"},
        {"[a]\nx=1\n", {{"b", "k", "v", true}}, "[a]\nx=1\n[b]\r\nk=v\r\n"},
        // Only the CR LF pair is escaped.
        {"",
         {{"s", "k", "one\r\ntwo\nthree\rfour", true}},
         "[s]\r\nk=one/20&\\two\nthree\rfour\r\n"},
        {"junk\r\n[a]\r\n; c\r\nno equals\n\"q\"=\"x\"\r\n",
         {{"a", "\"q\"", "\"x\"", false}},
         "junk\r\n[a]\r\n; c\r\nno equals\n\"q\"=\"x\"\r\n"},
        // "a]b" adds a section whose header reads as "a": writes to "a" still find the first.
        {"[a]\r\nx=1\r\n",
         {{"a]b", "y", "2", true}, {"A", "z", "3", true}, {"a", "x", "4", true}},
         "[a]\r\nx=4\r\nz=3\r\n[a]b]\r\ny=2\r\n"},
    };
    for (const auto& c : cases) {
        IniDocument doc(c.input);
        for (const Write& w : c.writes)
            EXPECT_EQ(doc.Write(w.section, w.key, w.value), w.changes) << c.input << " " << w.key;
        EXPECT_EQ(doc.Bytes(), c.expected) << c.input;
        // A fresh parse of the result writes alike.
        IniDocument fresh(doc.Bytes());
        fresh.Write("a", "w", "5");
        doc.Write("a", "w", "5");
        EXPECT_EQ(doc.Bytes(), fresh.Bytes()) << c.input;
    }
}

TEST(IniDocument, SectionsFindTheirKeysAlikeBelowAndAboveTheIndexedSize) {
    // A section grows key by key past the size at which it gets an index, through parsing and
    // through writes; at every size the first of equal keys counts, without regard to case,
    // and a run of reads or a read of the bytes alone find what a read finds.
    std::vector<std::string> keys = {"x", "k12", "K0", "k0"};
    for (int i = 0; i < 12; ++i)
        keys.push_back("K" + std::to_string(i));
    keys.push_back("K0"); // right after the last parsed key: the repeat is next, not the first
    for (int parsed = 0; parsed <= 12; ++parsed) {
        std::string text = "x=top\r\n[s]\r\n";
        for (int i = 0; i < parsed; ++i)
            text += "k" + std::to_string(i) + " = p" + std::to_string(i) + "/20&\\\r\n";
        text += "K0=late\r\n[t]\r\nk0=other\r\n[S]\r\nk12=unreachable\r\n";
        IniDocument doc(text);
        for (int i = parsed; i < 12; ++i)
            EXPECT_TRUE(doc.Write("S", "k" + std::to_string(i), "w" + std::to_string(i)));
        for (int i = 0; i < 12; ++i)
            EXPECT_EQ(doc.Read("s", "K" + std::to_string(i), "-"),
                      i < parsed ? "p" + std::to_string(i) + "\r\n" : "w" + std::to_string(i));
        EXPECT_EQ(doc.ReadStored("s", "k12"), std::nullopt);
        EXPECT_EQ(doc.ReadStored("t", "k0"), "other");
        EXPECT_EQ(doc.Write("s", "k11", "w11"), parsed > 11);
        for (const char* section : {"s", "T", "missing"}) {
            const auto values = doc.ReadEach(section, keys, "d");
            ASSERT_EQ(values.size(), keys.size());
            for (std::size_t i = 0; i < keys.size(); ++i) {
                EXPECT_EQ(values[i], doc.Read(section, keys[i], "d")) << section << keys[i];
                EXPECT_EQ(IniDocument::ReadOnce(doc.Bytes(), section, keys[i], "d"), values[i])
                    << section << " " << keys[i];
            }
        }
    }
}

TEST(IniDocument, CopiesKeepWrittenLinesApartAndWritable) {
    IniDocument doc;
    for (int i = 0; i < 3000; ++i) // more written bytes than one block holds
        doc.Write("s" + std::to_string(i % 7), "key" + std::to_string(i), std::string(30, 'v'));
    IniDocument copy(doc);
    doc.Write("s0", "key0", "changed");
    copy.Write("s1", "new", "only in the copy");
    EXPECT_EQ(doc.Read("s0", "key0", ""), "changed");
    EXPECT_EQ(copy.Read("s0", "key0", ""), std::string(30, 'v'));
    EXPECT_EQ(copy.Read("s1", "new", ""), "only in the copy");
    EXPECT_EQ(doc.Read("s1", "new", "-"), "-");
    EXPECT_EQ(IniDocument(copy.Bytes()).Read("s2", "key2998", ""), std::string(30, 'v'));
    EXPECT_EQ(IniDocument(doc.Bytes()).Bytes(), doc.Bytes());
}

TEST(IniDocument, ALargeFileIsWrittenInPiecesThatMakeItWhole) {
    std::string input = "[s]\r\n";
    for (int i = 0; i < 20000; ++i)
        input += "k" + std::to_string(i) + "=" + std::string(20, 'v') + "\r\n";
    input += "long=" + std::string(300000, 'x') + "\nlast";
    IniDocument doc(input);
    doc.Write("s", "k5", "changed");
    std::string expected = input;
    expected.replace(expected.find("k5=vvvvvvvvvvvvvvvvvvvv"), 23, "k5=changed");
    std::string whole;
    int pieces = 0;
    doc.WriteTo([&](std::string_view piece) {
        whole += piece;
        ++pieces;
    });
    EXPECT_EQ(whole, expected);
    EXPECT_EQ(doc.Bytes(), expected);
    EXPECT_GT(pieces, 2);
}

TEST(IniDocument, EditingOneValueOverAndOverKeepsItsMemory) {
    std::string text;
    for (int faction = 0; faction < 40; ++faction)
        text += "[f" + std::to_string(faction) + "]\r\nrep=0.0\r\nids_name=1001\r\n";
    for (const bool copied : {false, true}) {
        IniDocument document(text);
        document.Write("f7", "rep", "0.1");
        if (copied) // a copy's written lines have no room to spare
            document = IniDocument(document);
        const std::size_t first = document.BytesHeld();
        for (int edit = 0; edit < 100000; ++edit)
            document.Write("f7", "rep", "-0." + std::to_string(edit));
        document.Write("f9", "new", "x");
        EXPECT_LE(document.BytesHeld(), 2 * first) << (copied ? "copied" : "parsed");
        // The compacted lines read and write as before.
        EXPECT_EQ(document.Read("f7", "rep", ""), "-0.99999");
        EXPECT_EQ(document.Read("f9", "new", ""), "x");
        EXPECT_EQ(document.Read("f39", "ids_name", ""), "1001");
        EXPECT_NE(document.Bytes().find("[f7]\r\nrep=-0.99999\r\nids_name=1001\r\n[f8]"),
                  std::string::npos);
    }
}
