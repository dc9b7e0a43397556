// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/Import.h"

#include "core/ProjectLayout.h"
#include "core/ReadAhead.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "factionprops/ListFiles.h"
#include "factionprops/PropertySheet.h"
#include "initialworld/InitialWorld.h"
#include "reputation/ReputationFiles.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace importer {
namespace {

std::string InFolder(const std::string& folder, std::string_view name) {
    return folder + "\\" + platform::DiskName(name);
}

// The event names that carry meaning, in the order of their keys in the event file.
constexpr std::array<std::string_view, 4> EventNames = {
    "object_destruction", "random_mission_success", "random_mission_failure",
    "random_mission_abortion"};

// The library keys' names in the project's property file, by FactionPropKeys.
namespace key = factionprops::key;
constexpr std::array<std::string_view, 14> ProjectPropKeys = {
    key::Legality,       key::Plurality,       key::MsgIdPrefix,    key::McCostume,
    key::FirstnameMale,  key::FirstnameFemale, key::Lastname,       key::RankDesig,
    key::FormationDesig, key::LargeShipDesig,  key::LargeShipNames, key::Jump,
    key::ScanChance,     key::ScanAnnounce};

void CheckName(std::string_view nickname, const std::string& path) {
    if (const auto reason = names::Refusal(nickname))
        throw LibraryError(path, 0, "the library name is refused: " + *reason);
}

OriginalFaction ReadFrom(std::string_view appDir, std::string_view reputationName,
                         std::string_view propName, std::string_view worldName) {
    OriginalFaction faction;
    faction.nickname = std::string(reputationName);
    const std::string reputationPath = InFolder(ReputationFolder(appDir), reputationName);
    CheckName(reputationName, reputationPath);
    faction.reputation = ReadOriginalReputation(reputationPath);
    faction.props = ReadOriginalFactionProps(InFolder(FactionPropFolder(appDir), propName));
    faction.world = ReadOriginalInitialWorld(InFolder(InitialWorldFolder(appDir), worldName));
    return faction;
}

// A faction's values in the project's INI files.
void WriteFactionValues(txtReadWrite::Transaction& transaction, const OriginalFaction& faction,
                        const std::string& projectFolder) {
    const std::string& n = faction.nickname;
    const ProjectLayout project(projectFolder);
    transaction.WriteIni(n, "grp", faction.reputation.group, project.Registry());

    const std::string eventFile = project.EventFile();
    for (const EventEntry& event : faction.reputation.events)
        for (std::size_t e = 0; e < EventNames.size(); ++e)
            if (event.name == EventNames[e])
                transaction.WriteIni(n, reputation::EventKeys[e], event.value, eventFile);

    std::vector<IniDocument::KeyValue> values;
    for (std::size_t i = 0; i < ProjectPropKeys.size(); ++i)
        values.emplace_back(ProjectPropKeys[i], faction.props.values[i]);
    transaction.WriteEach(n, values, project.PropertyFile());

    const OriginalInitialWorld& world = faction.world;
    values = {{"ids_name", world.idsName},
              {"ids_info", world.idsInfo},
              {"ids_short_name", world.idsShortName}};
    values.reserve(3 + world.reputations.size());
    for (const StartingReputation& entry : world.reputations)
        values.emplace_back(entry.nickname, entry.value);
    transaction.WriteEach(n, values, project.WorldFile());
}

// A faction's own whole files, path and text: its empathy file and its five list files.
std::vector<std::pair<std::string, std::string>> FactionFiles(const OriginalFaction& faction,
                                                              const std::string& projectFolder) {
    const std::string& n = faction.nickname;
    std::vector<std::pair<std::string, std::string>> files;
    files.reserve(6);
    std::string empathy;
    for (const EmpathyEntry& entry : faction.reputation.empathy)
        empathy.append("[")
            .append(entry.nickname)
            .append("]\r\nrep=")
            .append(entry.value)
            .append("\r\n");
    const ProjectLayout project(projectFolder);
    files.emplace_back(project.EmpathyFile(n), std::move(empathy));

    using factionprops::PickList;
    const OriginalFactionProps& props = faction.props;
    for (const auto& [list, entries] : {std::pair{PickList::Ships, &props.ships},
                                        {PickList::Voices, &props.voices},
                                        {PickList::Bodyparts, &props.bodyParts},
                                        {PickList::Scan, &props.scans},
                                        {PickList::Formations, &props.formations}})
        files.emplace_back(project.ListFile(list, n), factionprops::ListFileText(*entries));
    return files;
}

// Adds the per-faction writes of one faction to a transaction; projectFolder is
// <app dir>\projects\<project>.
void WriteOriginalFaction(txtReadWrite::Transaction& transaction, const OriginalFaction& faction,
                          const std::string& projectFolder) {
    WriteFactionValues(transaction, faction, projectFolder);
    for (auto& [path, text] : FactionFiles(faction, projectFolder))
        transaction.WriteFileText(path, text);
}

} // namespace

OriginalFaction ReadOriginalFaction(std::string_view appDir, std::string_view nickname) {
    return ReadFrom(appDir, nickname, nickname, nickname);
}

void ImportOriginalFaction(std::string_view appDir, std::string_view nickname,
                           const std::string& projectFolder) {
    const OriginalFaction faction = ReadOriginalFaction(appDir, nickname);
    txtReadWrite::Transaction transaction;
    WriteOriginalFaction(transaction, faction, projectFolder);
    transaction.Commit();
}

ImportAllResult ImportAllOriginalFactions(std::string_view appDir, const std::string& projectFolder,
                                          const progress::Report& report) {
    std::vector<std::string> undecodable;
    const std::vector<std::string> entries =
        ListOriginalFactions(ReputationFolder(appDir), &undecodable);
    // The other folders' own spellings of each name, found without regard to case.
    const auto spellings = [](const std::string& folder) {
        std::vector<std::string> list = ListOriginalFactions(folder);
        std::vector<std::pair<std::string, std::string>> byFolded;
        byFolded.reserve(list.size());
        for (std::string& name : list)
            byFolded.emplace_back(names::Folded(name), std::move(name));
        std::sort(byFolded.begin(), byFolded.end());
        return byFolded;
    };
    const auto propNames = spellings(FactionPropFolder(appDir));
    const auto worldNames = spellings(InitialWorldFolder(appDir));
    const auto spelled = [](const auto& byFolded, const std::string& name) {
        const std::string folded = names::Folded(name);
        const auto it = std::lower_bound(byFolded.begin(), byFolded.end(),
                                         std::pair<std::string, std::string>{folded, {}});
        return (it != byFolded.end() && it->first == folded) ? it->second : name;
    };

    std::vector<std::string> folded;
    for (const std::string& name : entries)
        folded.push_back(names::Folded(name));
    std::sort(folded.begin(), folded.end());

    // One thread reads and checks the entries ahead while this one adds them to the
    // transaction; the commit writes the files (a large batch from two threads), all or
    // nothing. Names that differ only in capitals write the same files, the later entry's
    // winning, as the transaction keeps its order.
    using Entry = std::variant<OriginalFaction, LibraryError>;
    ImportAllResult result;
    txtReadWrite::Transaction transaction; // each file parsed once and written once
    {
        ReadAhead<Entry> read(entries.size(), [&](std::size_t i) -> Entry {
            const std::string& name = entries[i];
            try {
                return ReadFrom(appDir, name, spelled(propNames, name), spelled(worldNames, name));
            } catch (const LibraryError& error) {
                return error;
            }
        });
        progress::Step at{0, entries.size(), 0, 0};
        progress::Tell(report, at);
        for (std::size_t i = 0; i < entries.size(); ++i) {
            Entry entry = read.Take(i);
            if (const auto* faction = std::get_if<OriginalFaction>(&entry)) {
                WriteOriginalFaction(transaction, *faction, projectFolder);
                result.imported.push_back(faction->nickname);
            } else {
                result.refused.push_back(std::get<LibraryError>(std::move(entry)));
            }
            at.outerDone = i + 1;
            progress::Tell(report, at);
        }
    } // the reading thread has ended

    // A name that only the other folders hold is an entry without its reputation file.
    for (const auto* others : {&propNames, &worldNames})
        for (const auto& [key, name] : *others)
            if (!std::binary_search(folded.begin(), folded.end(), key)) {
                folded.insert(std::upper_bound(folded.begin(), folded.end(), key), key);
                result.refused.emplace_back(InFolder(ReputationFolder(appDir), name), 0,
                                            "the library file is missing");
            }

    for (const std::string& name : undecodable)
        result.refused.emplace_back(ReputationFolder(appDir) + "\\" + name, 0,
                                    "the library name is refused: " +
                                        std::string(modFunctions::NameNotFromDisk));

    transaction.Commit();
    return result;
}

} // namespace importer
