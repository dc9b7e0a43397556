// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The stored halves of mirror pairs: per faction the factions it holds a value toward, with
// the text, kept in one pool. Memory follows the values stored, not the square of the
// registry (a million rates need not be a million strings).
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace check {

class PairTable {
public:
    explicit PairTable(std::size_t factions) : halves_(factions) {}
    void Set(std::size_t from, std::size_t to, std::string_view text) {
        halves_[from].push_back({static_cast<std::uint32_t>(to),
                                 static_cast<std::uint32_t>(pool_.size()),
                                 static_cast<std::uint32_t>(text.size())});
        pool_ += text;
    }
    // Once every value is in: sorted for Get.
    void Finish() {
        for (auto& halves : halves_)
            std::sort(halves.begin(), halves.end(),
                      [](const Half& a, const Half& b) { return a.to < b.to; });
    }
    std::optional<std::string_view> Get(std::size_t from, std::size_t to) const {
        const auto& halves = halves_[from];
        const auto found =
            std::lower_bound(halves.begin(), halves.end(), to,
                             [](const Half& half, std::size_t t) { return half.to < t; });
        if (found == halves.end() || found->to != to)
            return std::nullopt;
        return Text(*found);
    }
    // Calls f(to, text) for every value stored for a faction.
    template <typename F> void ForEach(std::size_t from, const F& f) const {
        for (const Half& half : halves_[from])
            f(half.to, Text(half));
    }

private:
    struct Half {
        std::uint32_t to;
        std::uint32_t begin; // in pool_
        std::uint32_t length;
    };
    std::string_view Text(const Half& half) const {
        return std::string_view(pool_).substr(half.begin, half.length);
    }
    std::vector<std::vector<Half>> halves_;
    std::string pool_;
};

} // namespace check
