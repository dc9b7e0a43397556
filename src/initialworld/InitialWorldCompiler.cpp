// SPDX-License-Identifier: GPL-3.0-or-later
#include "initialworld/InitialWorldCompiler.h"

#include "core/IniDocument.h"
#include "core/ProjectLayout.h"
#include "core/txtReadWrite.h"
#include "initialworld/InitialWorld.h"

namespace initialworld {

namespace {

constexpr std::string_view CrLf = "\r\n";

// The fragment is pasted into the game's own file by hand; the comment block tells the modder
// where, and four empty lines follow it. The German line is Windows-1252 bytes (0xFC: u-umlaut).
constexpr std::string_view Header = "//Warning: The Orrindel 2.0 can't know your (modded) system "
                                    "properties.\r\n"
                                    "//Add these above the reputationlist before you use this "
                                    "file\r\n"
                                    "\r\n"
                                    "//Achtung: Der Orrindel 2.0 kann deine (gemoddeten) "
                                    "Systemeigenschaften nicht wissen.\r\n"
                                    "//F\xFC"
                                    "ge diese \xFC"
                                    "ber die Reputation-Liste ein, bevor du diese Datei "
                                    "benutzt.\r\n"
                                    "\r\n\r\n\r\n\r\n";

} // namespace

std::string CompiledText(const IniDocument& data, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows, const progress::Report& report) {
    std::size_t rowBytes = 0;
    for (const std::string& row : rows)
        rowBytes += row.size() + 16;
    std::string text(Header);
    text.reserve(Header.size() + factions.size() * (rowBytes + 96));

    progress::Step at{0, factions.size(), 0, rows.size()};
    progress::Tell(report, at);
    for (std::size_t i = 0; i < factions.size(); ++i) {
        const std::string& faction = factions[i];
        text += "[Group]\r\nnickname = ";
        text += faction;
        text += "\r\nids_name = ";
        text += data.Read(faction, IdsName, "");
        text += "\r\nids_info = ";
        text += data.Read(faction, IdsInfo, "");
        text += "\r\nids_short_name = ";
        text += data.Read(faction, IdsShortName, "");
        text += CrLf;
        at.innerDone = 0;
        progress::Tell(report, at);
        std::size_t j = 0;
        data.ReadEach(faction, rows, "0.0", [&](std::string_view value) {
            if (report) {
                at.innerDone = j + 1;
                report(at);
            }
            text.append("rep = ").append(value).append(", ").append(rows[j]).append(CrLf);
            ++j;
        });
        text += CrLf;
        at.outerDone = i + 1;
        progress::Tell(report, at);
    }
    return text;
}

void CompileInitialWorld(std::string_view projectFolder, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows, const progress::Report& report) {
    const ProjectLayout project(projectFolder);
    const auto data = txtReadWrite::ReadIniDocument(project.WorldFile());
    txtReadWrite::WriteFileText(project.Path(layout::CompiledInitialWorld),
                                CompiledText(*data, factions, rows, report));
}

} // namespace initialworld
