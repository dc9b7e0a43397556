// SPDX-License-Identifier: GPL-3.0-or-later
#include "reputation/EmphatyCompiler.h"

#include "core/ProjectLayout.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "reputation/ReputationFiles.h"

#include <unordered_map>

namespace reputation {
namespace {

constexpr std::string_view CrLf = "\r\n";
constexpr std::array<std::string_view, 4> EventPrefixes = {
    "event = object_destruction, ", "event = random_mission_success, ",
    "event = random_mission_failure, ", "event = random_mission_abortion, "};

void AppendLine(std::string& out, std::string_view a, std::string_view b = {},
                std::string_view c = {}, std::string_view d = {}) {
    out.append(a).append(b).append(c).append(d).append(CrLf);
}

// Deletes the scratch file of each faction that an interrupted run left behind. One listing
// of the folder finds them all, whatever their capitals.
void DeleteLeftoverScratchFiles(const ProjectLayout& project,
                                const std::vector<std::string>& factions) {
    std::unordered_map<std::string, std::string> present;
    for (std::string& name :
         platform::ListFolder(project.Path(layout::EmpathyFolder), platform::EntryKind::Files)) {
        std::string folded = names::Folded(name);
        if (folded.ends_with(layout::ScratchName.suffix))
            present.try_emplace(std::move(folded), std::move(name));
    }
    if (present.empty())
        return;
    for (const std::string& g : factions)
        if (const auto it =
                present.find(names::Folded(g + std::string(layout::ScratchName.suffix)));
            it != present.end())
            platform::DeleteFile(project.Path(layout::FileIn(layout::EmpathyFolder, it->second)));
}

} // namespace

std::string EmphatyText(const std::string& projectFolder, const std::vector<std::string>& factions,
                        const std::vector<std::string>& rows, const progress::Report& report) {
    const auto events = txtReadWrite::LoadIni(EventFile(projectFolder));
    std::vector<std::uint64_t> rowHashes; // the rows are looked up in every faction's file
    rowHashes.reserve(rows.size());
    for (const std::string& row : rows)
        rowHashes.push_back(IniDocument::NameHash(row));

    std::string out;
    progress::Step at{0, factions.size(), 0, rows.size()};
    progress::Tell(report, at);
    for (std::size_t i = 0; i < factions.size(); ++i) {
        const std::string& g = factions[i];
        // Each block is preceded by two line ends and followed by one.
        out.append(CrLf).append(CrLf);
        AppendLine(out, "[RepChangeEffects]");
        AppendLine(out, "group = ", g);
        for (std::size_t e = 0; e < EventKeys.size(); ++e)
            AppendLine(out, EventPrefixes[e], events->Read(g, EventKeys[e], DefaultValue));
        const IniDocument rates = txtReadWrite::ParseIniFile(EmpathyFile(projectFolder, g));
        for (std::size_t j = 0; j < rows.size(); ++j) {
            const std::string& row = rows[j];
            if (row != g) {
                out.append("emphaty_rate = ").append(row).append(", ");
                IniDocument::AppendAsRead(
                    out, rates.Stored(row, rowHashes[j], RateKey).value_or(DefaultValue));
                out.append(CrLf);
            }
            if (report) {
                at.innerDone = j + 1;
                report(at);
            }
        }
        out.append(CrLf);
        // The blocks are alike in size: reserve for all of them once the first is known.
        if (i == 0)
            out.reserve(out.size() * factions.size() + out.size() / 8);
        at.outerDone = i + 1;
        at.innerDone = rows.size();
        progress::Tell(report, at);
    }
    return out;
}

void CompileEmphaty(const std::string& projectFolder, const std::vector<std::string>& factions,
                    const std::vector<std::string>& rows, const progress::Report& report) {
    const ProjectLayout project(projectFolder);
    const std::string output = project.Path(layout::CompiledEmphaty);
    DeleteLeftoverScratchFiles(project, factions);
    if (factions.empty()) {
        platform::DeleteFile(output);
        return;
    }
    platform::ReplaceFile(output, EmphatyText(projectFolder, factions, rows, report));
}

} // namespace reputation
