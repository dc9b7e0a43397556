// SPDX-License-Identifier: GPL-3.0-or-later
#include "factionprops/FactionPropCompiler.h"

#include "core/IniDocument.h"
#include "core/ProjectLayout.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "factionprops/PropertySheet.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace factionprops {
namespace {

// Only space characters count as blank; a tab is text.
bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

// The list files of the faction_prop folder, found by their folded names. Listing the folder
// once keeps the per-file lookups from scanning it again for every name spelled differently.
class ListFolder {
public:
    explicit ListFolder(const std::string& folder) : folder_(platform::ResolvePath(folder)) {
        for (std::string& name : platform::ListFolder(folder_, platform::EntryKind::Files)) {
            // Hidden files are not found, as a directory search does not find them.
            if (name.starts_with('.'))
                continue;
            files_.try_emplace(names::Folded(name), std::move(name));
        }
    }

    // Appends "<key><line>" CR LF for every non-blank line of the faction's list file.
    void AppendLines(std::string& text, PickList list, const std::string& nickname,
                     std::string_view key) const {
        const layout::FactionFileName name = layout::ListName(list);
        std::string file(name.prefix);
        file += nickname;
        file += name.suffix;
        const auto found = files_.find(names::Folded(file));
        if (found == files_.end())
            return;
        std::string bytes;
        try {
            bytes = txtReadWrite::ReadFileText(folder_ + "\\" + platform::DiskName(found->second));
        } catch (const std::exception&) {
            return; // an unreadable list adds nothing; the block goes on
        }
        for (const std::string_view line : txtReadWrite::SplitLines(bytes)) {
            if (IsBlank(line))
                continue;
            text += key;
            text += line;
            text += "\r\n";
        }
    }

private:
    std::string folder_;
    std::unordered_map<std::string, std::string> files_;
};

void AppendLine(std::string& text, std::string_view key, std::string_view value) {
    text += key;
    text += value;
    text += "\r\n";
}

// A line that is left out when its value holds nothing but spaces.
void AppendOptional(std::string& text, std::string_view key, std::string_view value) {
    if (!IsBlank(value))
        AppendLine(text, key, value);
}

} // namespace

std::string FactionPropText(const std::string& projectFolder,
                            const std::vector<std::string>& factions,
                            const progress::Report& report) {
    const ProjectLayout project(projectFolder);
    const auto sheets = txtReadWrite::ReadIniDocument(project.PropertyFile());
    const ListFolder lists(project.Path(layout::PropertyFolder));
    std::string text;
    text.reserve(factions.size() * 1024);
    progress::Step at{0, factions.size(), 0, 0};
    progress::Tell(report, at);
    for (const std::string& n : factions) {
        const auto read = [&](std::string_view key, std::string_view defaultValue) {
            return sheets->Read(n, key, defaultValue);
        };
        text += "[FactionProps]\r\n";
        AppendLine(text, "affiliation = ", n);
        AppendLine(text, "legality = ", read(key::Legality, "Lawful"));
        AppendLine(text, "nickname_plurality = ", read(key::Plurality, "Singular"));
        AppendLine(text, "msg_id_prefix = ", read(key::MsgIdPrefix, ""));
        AppendLine(text, "jump_preference = ", read(key::Jump, "jumpgate"));
        lists.AppendLines(text, PickList::Ships, n, "npc_ship = ");
        lists.AppendLines(text, PickList::Voices, n, "voice = ");
        AppendLine(text, "mc_costume = ", read(key::McCostume, ""));
        lists.AppendLines(text, PickList::Bodyparts, n, "space_costume = ");
        AppendOptional(text, "firstname_male = ", read(key::FirstnameMale, ""));
        AppendOptional(text, "firstname_female = ", read(key::FirstnameFemale, ""));
        AppendOptional(text, "lastname = ", read(key::Lastname, ""));
        AppendOptional(text, "rank_desig = ", read(key::RankDesig, ""));
        AppendOptional(text, "formation_desig = ", read(key::FormationDesig, ""));
        AppendOptional(text, "large_ship_desig = ", read(key::LargeShipDesig, ""));
        AppendOptional(text, "large_ship_names = ", read(key::LargeShipNames, ""));
        lists.AppendLines(text, PickList::Scan, n, "scan_for_cargo = ");
        AppendOptional(text, "scan_announce = ", read(key::ScanAnnounce, "false"));
        AppendOptional(text, "scan_chance = ", read(key::ScanChance, "0.0"));
        lists.AppendLines(text, PickList::Formations, n, "formation = ");
        text += "\r\n";
        ++at.outerDone;
        progress::Tell(report, at);
    }
    return text;
}

void CompileFactionProp(const std::string& projectFolder, const std::vector<std::string>& factions,
                        const progress::Report& report) {
    txtReadWrite::WriteFileText(ProjectLayout(projectFolder).Path(layout::CompiledFactionProp),
                                FactionPropText(projectFolder, factions, report));
}

} // namespace factionprops
