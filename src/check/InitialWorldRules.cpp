// SPDX-License-Identifier: GPL-3.0-or-later
// The initial-world file (initialworld\grp.ini): the three IDS numbers of each faction and
// its starting reputations, with their mirror halves.
#include "check/Inspection.h"
#include "core/names.h"
#include "initialworld/InitialWorld.h"

namespace check {
namespace {

constexpr std::string_view File = layout::WorldFile;
constexpr std::string_view IdsKeys[] = {initialworld::IdsName, initialworld::IdsShortName,
                                        initialworld::IdsInfo};

bool IsWholeNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsIdsKey(std::string_view key) {
    for (const std::string_view ids : IdsKeys)
        if (names::EqualIgnoringCase(key, ids))
            return true;
    return false;
}

void CheckIds(Inspection& inspection, std::string_view faction, const IniDocument::Value& value) {
    if (value.stored == initialworld::MissingIds)
        inspection.Add(Severity::Error, Store::InitialWorld, faction, File,
                       Where(faction, value.key), value.stored,
                       "The IDS number was never set: \"error\" is what the editor shows for a "
                       "missing one.");
    else if (!IsWholeNumber(value.stored))
        inspection.Add(Severity::Error, Store::InitialWorld, faction, File,
                       Where(faction, value.key), value.stored,
                       value.stored.empty()
                           ? std::string("The IDS number is empty.")
                           : "The IDS number " + Quoted(value.stored) + " is not a whole number.");
}

} // namespace

void CheckInitialWorld(Inspection& inspection) {
    const std::vector<std::string>& factions = inspection.Factions();
    const auto document = inspection.Load(Store::InitialWorld, File);
    std::vector<bool> held(factions.size(), false);
    PairTable reputations(factions.size());
    Inspection::Lookup keys;
    if (document) {
        inspection.ForEachFactionValue(
            Store::InitialWorld, File, *document, held,
            [&](std::size_t index, const IniDocument::Value& value) {
                const std::string_view faction = value.section;
                if (IsIdsKey(value.key)) {
                    CheckIds(inspection, faction, value);
                } else if (const auto other = inspection.Find(keys, value.key)) {
                    inspection.CheckReputation(Store::InitialWorld, faction, File, value,
                                               "The starting reputation");
                    reputations.Set(index, *other, value.stored);
                } else {
                    inspection.Add(Severity::Warning, Store::InitialWorld, faction, File,
                                   Where(faction, value.key), value.stored,
                                   "The starting reputation toward " + Quoted(value.key) +
                                       ", which is not registered (left behind by a deleted "
                                       "faction), is not compiled.");
                }
            });
        for (std::size_t i = 0; i < factions.size(); ++i) {
            const std::string& faction = factions[i];
            if (!held[i])
                continue;
            for (const std::string_view key : IdsKeys)
                if (!document->Stored(faction, key))
                    inspection.Add(Severity::Error, Store::InitialWorld, faction, File,
                                   Where(faction, key), {},
                                   "The IDS number is missing; it compiles as an empty value.");
        }
        inspection.CheckHalfPairs(
            held, reputations, [&](std::size_t lacking, std::size_t other, std::string_view value) {
                inspection.Add(Severity::Note, Store::InitialWorld, factions[lacking], File,
                               Where(factions[lacking], factions[other]), {},
                               "The faction has no starting reputation toward " +
                                   Quoted(factions[other]) +
                                   ", so it compiles as \"0.0\", while the one back is " +
                                   Quoted(value) + ".");
            });
    }
    inspection.NoteMissing(Store::InitialWorld, File, held,
                           "The faction has no initial-world entry; its IDS numbers compile "
                           "empty and every reputation as \"0.0\".");
}

} // namespace check
