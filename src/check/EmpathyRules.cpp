// SPDX-License-Identifier: GPL-3.0-or-later
// The reputation store below emphaty\new: the event file (four event values per faction) and
// each faction's empathy file (its rates toward the others).
#include "check/Inspection.h"
#include "core/names.h"
#include "reputation/ReputationFiles.h"

namespace check {

void CheckEvents(Inspection& inspection) {
    constexpr std::string_view file = layout::EventFile;
    const auto document = inspection.Load(Store::Reputation, file);
    std::vector<bool> held(inspection.Factions().size(), false);
    if (document)
        inspection.ForEachFactionValue(Store::Reputation, file, *document, held,
                                       [&](std::size_t, const IniDocument::Value& value) {
                                           for (const std::string_view key : reputation::EventKeys)
                                               if (names::EqualIgnoringCase(value.key, key))
                                                   inspection.CheckNumber(Store::Reputation,
                                                                          value.section, file,
                                                                          value, "The event value");
                                       });
    inspection.NoteMissing(Store::Reputation, file, held,
                           "The faction has no event values; all four compile as \"0.0\".");
}

void CheckEmpathy(Inspection& inspection) {
    const std::vector<std::string>& factions = inspection.Factions();
    std::vector<bool> held(factions.size(), false);
    PairTable rates(factions.size());
    for (const std::string& name : inspection.SortedFiles(layout::EmpathyFolder)) {
        const std::string nick = layout::NicknameIn(layout::EmpathyName, name);
        if (nick.empty())
            continue;
        const std::string file = layout::FileIn(layout::EmpathyFolder, name);
        const auto from = inspection.IndexOf(nick);
        if (!from) {
            inspection.Add(Severity::Warning, Store::Reputation, nick, file, {}, {},
                           "The empathy file belongs to " + Quoted(nick) +
                               ", which is not registered; it is not compiled.");
            continue;
        }
        if (held[*from])
            continue; // a second spelling of the same file name; the first one counts
        const auto document = inspection.Load(Store::Reputation, file);
        if (!document)
            continue;
        held[*from] = true;
        Inspection::Lookup last;
        document->ForEachValue([&](const IniDocument::Value& value) {
            inspection.CheckText(Store::Reputation, nick, file, value);
            if (!names::EqualIgnoringCase(value.key, reputation::RateKey))
                return;
            const auto to = inspection.Find(last, value.section);
            if (!to) {
                inspection.Add(Severity::Warning, Store::Reputation, nick, file,
                               Where(value.section, value.key), value.stored,
                               "The rate toward " + Quoted(value.section) +
                                   ", which is not registered (left behind by a deleted "
                                   "faction), is not compiled.");
                return;
            }
            inspection.CheckReputation(Store::Reputation, nick, file, value, "The empathy rate");
            rates.Set(*from, *to, value.stored);
        });
    }
    const auto fileOf = [](std::string_view faction) {
        return layout::FactionFile(layout::EmpathyName, faction);
    };
    for (std::size_t i = 0; i < factions.size(); ++i)
        if (!held[i])
            inspection.Add(Severity::Warning, Store::Reputation, factions[i], fileOf(factions[i]),
                           {}, {},
                           "The faction has no empathy file; every rate compiles as \"0.0\".");
    inspection.CheckHalfPairs(
        held, rates, [&](std::size_t lacking, std::size_t other, std::string_view value) {
            const std::string& faction = factions[lacking];
            inspection.Add(Severity::Note, Store::Reputation, faction, fileOf(faction),
                           Where(factions[other], reputation::RateKey), {},
                           "The faction has no rate toward " + Quoted(factions[other]) +
                               ", so it compiles as \"0.0\", while the rate back is " +
                               Quoted(value) + ".");
        });
}

} // namespace check
