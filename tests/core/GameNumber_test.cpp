// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/GameNumber.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>

namespace {

TEST(GameNumber, ReadsTheFormsTheGameTakesAndNoOthers) {
    const struct {
        const char* text;
        std::optional<double> number;
    } cases[] = {
        {"1e-1", 0.1},           {"+.5", 0.5},           {"1,5", std::nullopt},
        {" 0.5 ", 0.5},          {"-.5e1", -5.0},        {"5.", 5.0},
        {"\t-1\t", -1.0},        {"1E+2", 100.0},        {"-0", 0.0},
        {"1e999", INFINITY},     {"-1e999", -INFINITY},  {"1e-999", 0.0},
        {"", std::nullopt},      {" ", std::nullopt},    {".", std::nullopt},
        {"-", std::nullopt},     {"+", std::nullopt},    {"e1", std::nullopt},
        {".e1", std::nullopt},   {"1e", std::nullopt},   {"1e+", std::nullopt},
        {"0.1.2", std::nullopt}, {"0.5x", std::nullopt}, {"- 1", std::nullopt},
        {"1 0", std::nullopt},   {"++1", std::nullopt},  {"0x10", std::nullopt},
        {"inf", std::nullopt},   {"nan", std::nullopt},  {"1e1.5", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(gameNumber::Read(c.text), c.number) << '"' << c.text << '"';
}

TEST(GameNumber, SameValueComparesNumbersByValueAndTheRestAsText) {
    const struct {
        const char* a;
        const char* b;
        bool same;
    } cases[] = {
        {"0.5", "0.50", true},  {"0.5", "+.5", true},   {"1e-1", "0.1", true},
        {"-0", "0.0", true},    {"x", "x", true},       {"", "", true},
        {"x", "X", false},      {"0,5", "0.5", false},  {"", "0.0", false},
        {"0.5", "-0.5", false}, {"0,5", "0,50", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(gameNumber::SameValue(c.a, c.b), c.same) << c.a << " / " << c.b;
        EXPECT_EQ(gameNumber::SameValue(c.b, c.a), c.same) << c.b << " / " << c.a;
    }
}

} // namespace
