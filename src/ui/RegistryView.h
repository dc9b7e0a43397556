// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A page whose pickers and list views show the registered factions; the registry
// loader of the main window clears and fills every such page.
#include "core/modFunctions.h"

#include <vector>

class RegistryView {
public:
    virtual ~RegistryView() = default;
    virtual void ClearFactions() = 0;
    // Adds every entry, in registry order, to the page's picker and list view.
    virtual void AddFactions(const std::vector<modFunctions::RegistryEntry>& entries) = 0;
    // Chooses the faction in the page's picker as the user would, loading its values; false
    // when the picker does not list it.
    virtual bool ChooseFaction(const std::string& nickname) = 0;
};
