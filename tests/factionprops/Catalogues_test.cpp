// SPDX-License-Identifier: GPL-3.0-or-later
#include "factionprops/Catalogues.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

using namespace factionprops;

namespace {

// FNV-1a over the entries, each followed by a line end: any change of spelling, order or
// count changes it.
std::uint64_t Fingerprint(Catalogue items) {
    std::uint64_t hash = 14695981039346656037ull;
    for (const char* item : items)
        for (const char c : std::string(item) + "\n")
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    return hash;
}

} // namespace

// Every catalogue pinned entry by entry: the combos offer exactly these, in this order.
TEST(Catalogues, HoldExactlyTheirEntriesInTheirOrder) {
    const struct {
        const char* name;
        Catalogue items;
        std::size_t count;
        const char* first;
        std::uint64_t fingerprint;
    } catalogues[] = {
        {"ships", ShipCatalogue(), 394, "br_m_ge_fighter2_d1-4", 15869813296929073525u},
        {"voices", VoiceCatalogue(), 48, "atc_leg_f01", 154772526439155901u},
        {"scan", ScanCatalogue(), 42, "commodity_alien_artifacts", 4014938769334939106u},
        {"formation classes", FormationClassCatalogue(), 78, "ANY", 16609340999107522933u},
        {"formations", FormationCatalogue(), 74, "armored_basic", 8613016467594896165u},
        {"costumes", CostumeCatalogue(), 7, "mc_br", 8623478316261404153u},
        {"scan announce", ScanAnnounceCatalogue(), 2, "False", 10533223607052298848u},
        {"heads", HeadCatalogue(), 104, "benchmark_male_head", 4492467025058021901u},
        {"bodies", BodyCatalogue(), 88, "benchmark_male_body", 17114688439536565145u},
        {"comm accessories", CommAccessoryCatalogue(), 28, "comm_br_brighton",
         2581775763393121983u},
    };
    for (const auto& c : catalogues) {
        ASSERT_EQ(c.items.size(), c.count) << c.name;
        EXPECT_STREQ(c.items.front(), c.first) << c.name;
        EXPECT_EQ(Fingerprint(c.items), c.fingerprint) << c.name;
    }
}
