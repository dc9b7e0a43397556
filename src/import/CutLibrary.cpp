// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/CutLibrary.h"

#include "core/IniDocument.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

#include <set>

namespace importer {
namespace {

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

// Creates a folder that is missing, noting it in made.
void EnsureFolder(const std::string& path, std::vector<std::string>& made) {
    if (platform::IsDirectory(path))
        return;
    platform::CreateFolder(path);
    made.push_back(path);
}

struct Kind {
    const std::optional<std::string>& source;
    std::string_view header;
    std::string_view key;
    std::string_view subsystem;
    std::vector<std::string> CutResult::*names;
};

} // namespace

std::vector<CutBlock> CutBlocks(std::string_view text, std::string_view header,
                                std::string_view key) {
    std::vector<CutBlock> blocks;
    for (const std::string_view line : txtReadWrite::SplitLines(text)) {
        if (line == header)
            blocks.emplace_back();
        if (!blocks.empty())
            blocks.back().lines.emplace_back(line);
    }
    const std::string section(header.substr(1, header.size() - 2));
    for (CutBlock& block : blocks) {
        while (!block.lines.empty() && block.lines.back().empty())
            block.lines.pop_back();
        std::string bytes;
        for (const std::string& line : block.lines)
            bytes += line + "\r\n";
        block.name = IniDocument(bytes).Read(section, key, "");
    }
    return blocks;
}

CutResult CutLibrary(const std::string& libraryRoot, const CutSources& sources) {
    const Kind kinds[] = {
        {sources.emphaty, "[RepChangeEffects]", "group", "emphaty", &CutResult::reputation},
        {sources.factionProp, "[FactionProps]", "affiliation", "faction_prop",
         &CutResult::factionProp},
        {sources.initialWorld, "[Group]", "nickname", "initialworld", &CutResult::initialWorld},
    };

    CutResult result;
    std::vector<std::pair<std::string, std::string>> files; // path, text
    for (const Kind& kind : kinds) {
        if (!kind.source)
            continue;
        const std::string& source = *kind.source;
        if (!platform::IsFile(source))
            throw CutError(platform::ForMessage(source) + ": the file does not exist");
        const std::string folder =
            libraryRoot + "\\" + std::string(kind.subsystem) + "\\original_factions";
        std::set<std::string> seen;
        for (const CutBlock& block :
             CutBlocks(txtReadWrite::ReadFileText(source), kind.header, kind.key)) {
            const std::string where = platform::ForMessage(source) + ", block " +
                                      std::to_string((result.*kind.names).size() + 1);
            if (const auto reason = names::Refusal(block.name))
                throw CutError(where + ": the " + std::string(kind.key) + " \"" + block.name +
                               "\" is refused: " + *reason);
            // A name with a dot would be a file that no library list shows.
            if (block.name.find('.') != std::string::npos)
                throw CutError(where + ": the " + std::string(kind.key) + " \"" + block.name +
                               "\" is refused: a library entry's name has no dot");
            if (!seen.insert(names::Folded(block.name)).second)
                throw CutError(where + ": \"" + block.name + "\" has a block already");
            files.emplace_back(folder + "\\" + platform::DiskName(block.name), Joined(block.lines));
            (result.*kind.names).push_back(block.name);
        }
    }

    // A cut that fails leaves no folder behind that it made.
    std::vector<std::string> made;
    try {
        for (const Kind& kind : kinds) {
            if (!kind.source)
                continue;
            const std::string subsystem = libraryRoot + "\\" + std::string(kind.subsystem);
            EnsureFolder(libraryRoot, made);
            EnsureFolder(subsystem, made);
            EnsureFolder(subsystem + "\\original_factions", made);
        }
        platform::StagedReplacement replacement;
        for (const auto& [path, text] : files)
            replacement.Stage(path, text);
        replacement.Commit();
    } catch (...) {
        for (auto folder = made.rbegin(); folder != made.rend(); ++folder)
            platform::RemoveEmptyFolder(*folder);
        throw;
    }
    return result;
}

} // namespace importer
