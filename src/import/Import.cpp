#include "import/Import.h"

#include "core/modFunctions.h"
#include "core/ReadAhead.h"
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

} // namespace

void WriteOriginalFaction(txtReadWrite::Transaction& transaction, const OriginalFaction& faction,
                          const std::string& projectFolder) {
    const std::string& n = faction.nickname;
    const auto path = [&](std::string_view piece) { return projectFolder + std::string(piece); };

    transaction.WriteIni(n, "grp", faction.reputation.group, path("\\misc\\factions.ini"));

    const std::string eventFile = reputation::EventFile(projectFolder);
    for (const EventEntry& event : faction.reputation.events)
        for (std::size_t e = 0; e < EventNames.size(); ++e)
            if (event.name == EventNames[e])
                transaction.WriteIni(n, reputation::EventKeys[e], event.value, eventFile);

    std::string empathy;
    for (const EmpathyEntry& entry : faction.reputation.empathy)
        empathy += "[" + entry.nickname + "]\r\nrep=" + entry.value + "\r\n";
    transaction.WriteFileText(reputation::EmpathyFile(projectFolder, n), empathy);

    const std::string propFile = path("\\faction_prop\\grp.ini");
    for (std::size_t i = 0; i < ProjectPropKeys.size(); ++i)
        transaction.WriteIni(n, ProjectPropKeys[i], faction.props.values[i], propFile);

    using factionprops::PickList;
    const OriginalFactionProps& props = faction.props;
    for (const auto& [list, entries] : {std::pair{PickList::Ships, &props.ships},
                                        {PickList::Voices, &props.voices},
                                        {PickList::Bodyparts, &props.bodyParts},
                                        {PickList::Scan, &props.scans},
                                        {PickList::Formations, &props.formations}})
        transaction.WriteFileText(path("\\faction_prop\\" +
                                       std::string(factionprops::ListPrefix(list)) +
                                       platform::DiskName(n) + ".lst"),
                                  factionprops::ListFileText(*entries));

    const std::string worldFile = initialworld::DataFile(projectFolder);
    transaction.WriteIni(n, "ids_name", faction.world.idsName, worldFile);
    transaction.WriteIni(n, "ids_info", faction.world.idsInfo, worldFile);
    transaction.WriteIni(n, "ids_short_name", faction.world.idsShortName, worldFile);
    for (const StartingReputation& entry : faction.world.reputations)
        transaction.WriteIni(n, entry.nickname, entry.value, worldFile);
}

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

    // The entries are read and checked on a second thread while this one adds those read
    // already to the transaction; nothing reaches the disk before the commit at the end.
    using Entry = std::variant<OriginalFaction, LibraryError>;
    ReadAhead<Entry> read(entries.size(), [&](std::size_t i) -> Entry {
        const std::string& name = entries[i];
        try {
            return ReadFrom(appDir, name, spelled(propNames, name), spelled(worldNames, name));
        } catch (const LibraryError& error) {
            return error;
        }
    });

    ImportAllResult result;
    progress::Step at{0, entries.size(), 0, 0};
    progress::Tell(report, at);
    txtReadWrite::Transaction transaction; // each file parsed once and written once
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

    // A name that only the other folders hold is an entry without its reputation file.
    std::vector<std::string> folded;
    for (const std::string& name : entries)
        folded.push_back(names::Folded(name));
    std::sort(folded.begin(), folded.end());
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
