// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed choice catalogues offered by the faction-property combos and the body-part dialog.
// Items are in the order the combos show them; the sorted combos already hold them in the
// platform's case-insensitive order, so nothing here is re-sorted at run time.
#pragma once

#include <span>

namespace factionprops {

using Catalogue = std::span<const char* const>;

// 394 ship nicknames (cboFPShips), sorted.
Catalogue ShipCatalogue();
// 48 voices (cboFPVoice), sorted.
Catalogue VoiceCatalogue();
// 42 commodities to scan for (cboFPScan), sorted.
Catalogue ScanCatalogue();
// 78 formation classes (cboFPFormation), sorted.
Catalogue FormationClassCatalogue();
// 74 formations (cboFPformation2), sorted.
Catalogue FormationCatalogue();
// 7 costumes (cboFPmc), sorted.
Catalogue CostumeCatalogue();
// 2 scan announce values (cboFPScanFracht).
Catalogue ScanAnnounceCatalogue();
// 104 heads (Combo1 of frmFPBodyparts).
Catalogue HeadCatalogue();
// 88 bodies (Combo2 of frmFPBodyparts).
Catalogue BodyCatalogue();
// 28 communication accessories (Combo3 of frmFPBodyparts).
Catalogue CommAccessoryCatalogue();

} // namespace factionprops
