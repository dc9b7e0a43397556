// SPDX-License-Identifier: GPL-3.0-or-later
// The property sheets (faction_prop\grp.ini): numbers, the options each choice offers, and
// costumes no catalogue holds.
#include "check/Inspection.h"
#include "core/names.h"
#include "factionprops/PropertySheet.h"

namespace check {
namespace {

constexpr std::string_view File = layout::PropertyFile;

void CheckOption(Inspection& inspection, std::string_view faction, const IniDocument::Value& value,
                 std::initializer_list<std::string_view> allowed) {
    for (const std::string_view option : allowed)
        if (value.stored == option)
            return;
    std::string list;
    for (const std::string_view option : allowed)
        list += (list.empty() ? "" : ", ") + Quoted(option);
    inspection.Add(Severity::Warning, Store::FactionProps, faction, File,
                   Where(value.section, value.key), value.stored,
                   "The value " + Quoted(value.stored) + " is none of " + list +
                       "; it compiles as stored, and loading the page replaces it.");
}

} // namespace

void CheckProperties(Inspection& inspection) {
    namespace key = factionprops::key;
    namespace option = factionprops::value;
    const auto document = inspection.Load(Store::FactionProps, File);
    std::vector<bool> held(inspection.Factions().size(), false);
    const auto costumes = SetOf(factionprops::CostumeCatalogue());
    const auto check = [&](std::size_t, const IniDocument::Value& value) {
        const std::string_view faction = value.section;
        const auto is = [&value](std::string_view name) {
            return names::EqualIgnoringCase(value.key, name);
        };
        if (is(key::ScanChance))
            inspection.CheckNumber(Store::FactionProps, faction, File, value, "The scan chance");
        else if (is(key::Legality))
            CheckOption(inspection, faction, value, {option::Lawful, option::Unlawful});
        else if (is(key::Plurality))
            CheckOption(inspection, faction, value, {option::Singular, option::Plural});
        else if (is(key::Jump))
            CheckOption(inspection, faction, value,
                        {option::Jumpgate, option::Jumphole, option::Both});
        else if (is(key::ScanAnnounce))
            CheckOption(inspection, faction, value, {"False", "True"});
        else if (is(key::McCostume) && !value.stored.empty() && !costumes.contains(value.stored))
            inspection.Add(Severity::Warning, Store::FactionProps, faction, File,
                           Where(faction, value.key), value.stored,
                           "No catalogue holds the costume " + Quoted(value.stored) +
                               " (fine if the mod adds it).");
    };
    if (document)
        inspection.ForEachFactionValue(Store::FactionProps, File, *document, held, check);
    inspection.NoteMissing(
        Store::FactionProps, File, held,
        "The faction has no property sheet; it compiles with the page's defaults.");
}

} // namespace check
