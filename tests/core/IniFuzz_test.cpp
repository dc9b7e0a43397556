// SPDX-License-Identifier: GPL-3.0-or-later
// Random bytes as INI input: reading and writing never crash, lines that a write does not
// touch keep their bytes, and the faster paths (a read of the bytes alone, a run of writes in
// one call) give what the plain ones give.
#include "core/IniDocument.h"

#include <gtest/gtest.h>
#include <random>

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t pos = 0, end = 0; end != std::string::npos; pos = end + 1) {
        end = text.find('\n', pos);
        lines.push_back(text.substr(pos, end == std::string::npos ? end : end - pos));
    }
    return lines;
}

TEST(IniFuzz, RandomInputReadsAndWritesAlikeOnEveryPath) {
    static const std::string pieces[] = {"[", "]", "=",   " ",   "\t",     "\r\n", "\n",   "\r",
                                         "a", "B", "key", "sec", "/20&\\", "\xC4", "\xE4", "\0"};
    const char* sections[] = {"sec", "a", "B", "key", "", "a]b", " b", "n\xE4u"}; // 5 plain
    // Repeated keys, keys with blanks or "=", more keys than a small section holds.
    const char* keys[] = {"key", "a", "A", " a", "k=v", "", "x1", "x2", "x3", "x4", "x5", "x6"};
    const char* values[] = {"1", "v\r\nw", "", " 2 ", "=", "/20&\\"};
    std::mt19937 rng(20261123);
    const auto pick = [&rng](std::size_t size) {
        return std::uniform_int_distribution<std::size_t>(0, size - 1)(rng);
    };
    for (int round = 0; round < 4000; ++round) {
        SCOPED_TRACE(round);
        std::string input;
        for (std::size_t i = pick(200); i > 0; --i)
            input += i % 7 == 0 ? std::string(1, static_cast<char>(pick(256)))
                                : pieces[pick(std::size(pieces))];
        IniDocument doc(input), together(input);
        ASSERT_EQ(doc.Bytes(), input);
        for (const char* s : sections)
            for (const char* k : keys)
                ASSERT_EQ(IniDocument::ReadOnce(input, s, k, "d"), doc.Read(s, k, "d"));
        const std::string section = sections[round % std::size(sections)];
        std::vector<IniDocument::KeyValue> run;
        for (std::size_t i = pick(30); i > 0; --i)
            run.emplace_back(keys[pick(std::size(keys))], values[pick(std::size(values))]);
        bool changed = false;
        for (const auto& [k, v] : run)
            changed = doc.Write(section, k, v) || changed;
        ASSERT_EQ(together.WriteEach(section, run), changed);
        ASSERT_EQ(together.Bytes(), doc.Bytes());
        // A later write goes where it would have gone.
        const std::string plainSection = sections[round % 5], key = sections[(round / 5) % 5];
        doc.Write(plainSection, key, "v\r\nw");
        together.Write(plainSection, key, "v\r\nw");
        ASSERT_EQ(together.Bytes(), doc.Bytes());
        // A write of a plain name to the input reads back, here and after a fresh parse.
        IniDocument single(input);
        single.Write(plainSection, key, "v\r\nw");
        EXPECT_EQ(single.Read(plainSection, key, ""), "v\r\nw");
        EXPECT_EQ(IniDocument(single.Bytes()).Read(plainSection, key, ""), "v\r\nw");
        // Every line of the input but the written key's is still there, in order: the lines
        // before the change and those after it.
        const auto in = Lines(input), out = Lines(single.Bytes());
        std::size_t head = 0, tail = 0;
        while (head < in.size() && head < out.size() && in[head] == out[head])
            ++head;
        while (head + tail < in.size() && head + tail < out.size() &&
               in[in.size() - 1 - tail] == out[out.size() - 1 - tail])
            ++tail;
        EXPECT_GE(head + tail + 1, in.size());
    }
}

} // namespace
