// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReadAhead.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

// Items arrive in order whichever thread is ahead, each failure at its own item; the maker
// runs ahead only so far, and stops when the reader is dropped part-way.
TEST(ReadAhead, HandsOverEveryItemInOrderAndStopsWhenDropped) {
    std::atomic<std::size_t> madeMost{0};
    {
        ReadAhead<std::string> items(1000, [&](std::size_t i) {
            madeMost = i;
            if (i % 97 == 0)
                throw std::runtime_error("item " + std::to_string(i));
            return std::to_string(i * i);
        });
        for (std::size_t i = 0; i < 1000; ++i) {
            if (i % 97 == 0) {
                EXPECT_THROW(items.Take(i), std::runtime_error) << i;
                continue;
            }
            // A slow reader now and then, so that the maker reaches the end of its window.
            if (i % 200 == 0)
                while (madeMost < std::min<std::size_t>(999, i + 32))
                    std::this_thread::yield();
            EXPECT_EQ(items.Take(i), std::to_string(i * i));
            EXPECT_LT(madeMost, i + 100);
        }
    }
    // Dropped after three items: the maker, waiting for room, ends without making the rest.
    std::atomic<std::size_t> made{0};
    {
        ReadAhead<int> items(100000, [&](std::size_t i) {
            ++made;
            return static_cast<int>(i);
        });
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(items.Take(i), static_cast<int>(i));
    }
    EXPECT_LT(made, 1000u);
}

// Taking an item out of order, twice or past the end is the caller's mistake; a Take waiting
// for an item that a stopped maker will never make ends instead of waiting for ever.
TEST(ReadAhead, RefusesTakingOutOfOrderAndEndsAWaitOnStop) {
    {
        ReadAhead<int> items(3, [](std::size_t i) { return static_cast<int>(i); });
        EXPECT_THROW(items.Take(1), std::logic_error);
        EXPECT_EQ(items.Take(0), 0);
        EXPECT_THROW(items.Take(0), std::logic_error);
        EXPECT_EQ(items.Take(1), 1);
        EXPECT_EQ(items.Take(2), 2);
        EXPECT_THROW(items.Take(3), std::logic_error);
    }
    std::atomic<bool> release{false};
    ReadAhead<int> items(10, [&](std::size_t i) {
        while (!release)
            std::this_thread::yield();
        return static_cast<int>(i);
    });
    std::jthread stopper([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        items.Stop();
    });
    EXPECT_THROW(items.Take(0), std::runtime_error);
    release = true;
}

} // namespace
