// SPDX-License-Identifier: GPL-3.0-or-later
#include "factionprops/PropertySheet.h"

#include "core/ProjectLayout.h"

namespace factionprops {

std::string PropertyFile(std::string_view appDir, std::string_view project) {
    return ProjectLayout::Of(appDir, project).PropertyFile();
}

Legality LegalityOf(std::string_view stored) {
    return stored == value::Lawful ? Legality::Lawful : Legality::Unlawful;
}

Plurality PluralityOf(std::string_view stored) {
    return stored == value::Singular ? Plurality::Singular : Plurality::Plural;
}

Jump JumpOf(std::string_view stored) {
    if (stored == value::Jumpgate)
        return Jump::Jumpgate;
    return stored == value::Jumphole ? Jump::Jumphole : Jump::Both;
}

std::vector<std::string> PrefixItems(std::string_view nickname) {
    constexpr std::string_view suffix = "_grp";
    std::vector<std::string> items;
    if (nickname.ends_with(suffix))
        items.push_back("gcs_refer_faction_" +
                        std::string(nickname.substr(0, nickname.size() - suffix.size())));
    items.emplace_back("ignore");
    return items;
}

} // namespace factionprops
