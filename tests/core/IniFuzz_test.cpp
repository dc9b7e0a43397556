// Random bytes as INI input: reading and writing never crash, and lines that a write
// does not touch keep their bytes.
#include "core/IniDocument.h"

#include <gtest/gtest.h>
#include <random>

namespace {
std::string RandomIni(std::mt19937& rng) {
    static const std::string pieces[] = {"[", "]", "=",   " ",   "\t",     "\r\n", "\n",   "\r",
                                         "a", "B", "key", "sec", "/20&\\", "\xC4", "\xE4", "\0"};
    std::uniform_int_distribution<int> count(0, 200);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(pieces) - 1);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string out;
    for (int i = count(rng); i > 0; --i)
        out += (i % 7 == 0) ? std::string(1, static_cast<char>(byte(rng))) : pieces[pick(rng)];
    return out;
}
} // namespace

TEST(IniFuzz, RandomInputReadsAndWritesWithoutHarmToOtherLines) {
    std::mt19937 rng(20261123);
    const char* keys[] = {"key", "a", "B", "sec", ""};
    for (int round = 0; round < 3000; ++round) {
        const std::string input = RandomIni(rng);
        IniDocument doc(input);
        ASSERT_EQ(doc.Bytes(), input);
        const std::string section = keys[round % 5];
        const std::string key = keys[(round / 5) % 5];
        // The walk over the bytes finds what the indexes find.
        for (const char* s : keys)
            for (const char* k : keys)
                ASSERT_EQ(IniDocument::ReadOnce(input, s, k, "d"), doc.Read(s, k, "d"))
                    << "round " << round;
        doc.Write(section, key, "v\r\nw");
        const std::string output = doc.Bytes();
        EXPECT_EQ(doc.Read(section, key, ""), "v\r\nw") << "round " << round;
        // Every original line that was not the written key's line is still there, in order.
        std::size_t from = 0, kept = 0, lines = 0;
        for (std::size_t pos = 0; pos < input.size();) {
            std::size_t lf = input.find('\n', pos);
            const std::size_t end = lf == std::string::npos ? input.size() : lf;
            const std::string line = input.substr(pos, end - pos);
            ++lines;
            const std::size_t hit = output.find(line, from);
            if (hit != std::string::npos) {
                from = hit + line.size();
                ++kept;
            }
            pos = end + 1;
        }
        EXPECT_GE(kept + 2, lines) << "round " << round;
        IniDocument reparsed(output);
        EXPECT_EQ(reparsed.Read(section, key, ""), "v\r\nw") << "round " << round;
    }
}

// Writing a run of values in one call leaves the same bytes as writing them one by one, in
// a new section (repeated keys, keys with blanks or "=", line breaks in values, more keys than
// a small section holds) and in an existing one, and reads find the same values afterwards.
TEST(IniFuzz, WritingARunOfValuesEqualsWritingThemOneByOne) {
    std::mt19937 rng(20261124);
    const char* sections[] = {"sec", "new", "a]b", " b", "n\xE4u"};
    const char* keys[] = {"key", "a", "A", " a", "k=v", "", "x1", "x2", "x3", "x4", "x5", "x6"};
    const char* values[] = {"1", "v\r\nw", "", " 2 ", "=", "/20&\\"};
    std::uniform_int_distribution<int> count(0, 30);
    std::uniform_int_distribution<std::size_t> key(0, std::size(keys) - 1);
    std::uniform_int_distribution<std::size_t> value(0, std::size(values) - 1);
    for (int round = 0; round < 2000; ++round) {
        const std::string input = RandomIni(rng);
        const std::string section = sections[round % std::size(sections)];
        std::vector<IniDocument::KeyValue> run;
        for (int i = count(rng); i > 0; --i)
            run.emplace_back(keys[key(rng)], values[value(rng)]);
        IniDocument oneByOne(input), together(input);
        bool changed = false;
        for (const auto& [k, v] : run)
            changed = oneByOne.Write(section, k, v) || changed;
        ASSERT_EQ(together.WriteEach(section, run), changed) << "round " << round;
        ASSERT_EQ(together.Bytes(), oneByOne.Bytes()) << "round " << round;
        for (const char* k : keys)
            ASSERT_EQ(together.Read(section, k, "-"), oneByOne.Read(section, k, "-"))
                << "round " << round;
        // Later single writes go where they would have gone.
        oneByOne.Write(section, "x3", "later");
        together.Write(section, "x3", "later");
        ASSERT_EQ(together.Bytes(), oneByOne.Bytes()) << "round " << round;
    }
}
