#include "factionprops/Catalogues.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

using namespace factionprops;

namespace {

void ExpectCatalogue(Catalogue items, std::size_t count, const char* first, const char* last) {
    ASSERT_EQ(items.size(), count);
    EXPECT_STREQ(items.front(), first);
    EXPECT_STREQ(items.back(), last);
    // The combos offer each identifier once; identifiers never hold blanks or commas.
    std::set<std::string> seen;
    for (const char* item : items) {
        const std::string text(item);
        EXPECT_TRUE(seen.insert(text).second) << text;
        EXPECT_EQ(text.find_first_of(" ,"), std::string::npos) << text;
    }
}

} // namespace

TEST(Catalogues, HoldTheirCountsInTheirFixedOrder) {
    ExpectCatalogue(ShipCatalogue(), 394, "br_m_ge_fighter2_d1-4", "rh_p_rh_fighter_d11-19");
    ExpectCatalogue(VoiceCatalogue(), 48, "atc_leg_f01", "walker");
    ExpectCatalogue(ScanCatalogue(), 42, "commodity_alien_artifacts", "ge_s_repair_01");
    ExpectCatalogue(FormationClassCatalogue(), 78, "ANY", "wanderers");
    ExpectCatalogue(FormationCatalogue(), 74, "armored_basic", "wide_dragon_formation");
    ExpectCatalogue(CostumeCatalogue(), 7, "mc_br", "mc_rh");
    ExpectCatalogue(ScanAnnounceCatalogue(), 2, "False", "True");
    ExpectCatalogue(HeadCatalogue(), 104, "benchmark_male_head", "pl_female4_head_helmet");
    ExpectCatalogue(BodyCatalogue(), 88, "benchmark_male_body", "pl_female2_peasant_body_bust");
    ExpectCatalogue(CommAccessoryCatalogue(), 28, "comm_br_brighton", "comm_rh_wilham_female");
}

TEST(Catalogues, SortedOnesKeepThePlatformOrderOfUnderscoreAndHyphen) {
    // An underscore sorts before digits, a hyphen is passed over.
    const Catalogue ships = ShipCatalogue();
    EXPECT_STREQ(ships[6], "br_n_br_elite_d10");
    EXPECT_STREQ(ships[8], "br_n_br_elite_d1-6");
    const Catalogue formations = FormationCatalogue();
    EXPECT_STREQ(formations[6], "cruiser_li_n");
    EXPECT_STREQ(formations[8], "cruiser2_li_n");
    // The body-part heads keep their unsorted order.
    EXPECT_STREQ(HeadCatalogue()[1], "syd_head");
}
