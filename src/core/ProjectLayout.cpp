// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProjectLayout.h"

#include "core/PathLookup.h"
#include "core/names.h"

namespace layout {

FactionFileName ListName(PickList list) {
    constexpr std::string_view Suffix = ".lst";
    switch (list) {
    case PickList::Ships:
        return {PropertyFolder, "Shiplist_", Suffix};
    case PickList::Voices:
        return {PropertyFolder, "Voicelist_", Suffix};
    case PickList::Bodyparts:
        return {PropertyFolder, "Bodylist_", Suffix};
    case PickList::Scan:
        return {PropertyFolder, "Scanlist_", Suffix};
    case PickList::Formations:
        return {PropertyFolder, "Formationlist_", Suffix};
    }
    return {PropertyFolder, {}, Suffix};
}

std::string FileIn(std::string_view folder, std::string_view fileName) {
    std::string file(folder);
    file += '\\';
    file += fileName;
    return file;
}

std::string FactionFile(const FactionFileName& name, std::string_view nickname) {
    std::string file = FileIn(name.folder, name.prefix);
    file += nickname;
    file += name.suffix;
    return file;
}

std::array<FactionFileName, 7> OwnFileNames() {
    std::array<FactionFileName, 7> files = {EmpathyName, ScratchName};
    for (std::size_t i = 0; i < AllPickLists.size(); ++i)
        files[2 + i] = ListName(AllPickLists[i]);
    return files;
}

std::string NicknameIn(const FactionFileName& name, std::string_view fileName) {
    const std::size_t ends = name.prefix.size() + name.suffix.size();
    if (fileName.size() <= ends ||
        !names::EqualIgnoringCase(fileName.substr(0, name.prefix.size()), name.prefix) ||
        !names::EqualIgnoringCase(fileName.substr(fileName.size() - name.suffix.size()),
                                  name.suffix))
        return {};
    return std::string(fileName.substr(name.prefix.size(), fileName.size() - ends));
}

} // namespace layout

std::string ProjectLayout::ProjectsFolder(std::string_view appDir) {
    return std::string(appDir) + "\\projects";
}

ProjectLayout ProjectLayout::Of(std::string_view appDir, std::string_view project) {
    return ProjectLayout(ProjectsFolder(appDir) + "\\" + platform::DiskName(project));
}

std::string ProjectLayout::Path(std::string_view name) const {
    // The names of the layout are ASCII; only a nickname in them needs its disk spelling.
    return folder_ + "\\" + platform::DiskName(name);
}

std::string ProjectLayout::EmpathyFile(std::string_view nickname) const {
    return Path(layout::FactionFile(layout::EmpathyName, nickname));
}

std::string ProjectLayout::ScratchFile(std::string_view nickname) const {
    return Path(layout::FactionFile(layout::ScratchName, nickname));
}

std::string ProjectLayout::ListFile(PickList list, std::string_view nickname) const {
    return Path(layout::FactionFile(layout::ListName(list), nickname));
}

std::vector<std::string> ProjectLayout::FactionFiles(std::string_view nickname) const {
    std::vector<std::string> files;
    for (const layout::FactionFileName& name : layout::OwnFileNames())
        files.push_back(Path(layout::FactionFile(name, nickname)));
    return files;
}

std::vector<std::string>
ProjectLayout::IniFilesNamingFactions(const std::vector<std::string>& factions) const {
    std::vector<std::string> files = {Registry(), EventFile(), PropertyFile(), WorldFile()};
    for (const std::string& faction : factions)
        files.push_back(EmpathyFile(faction));
    return files;
}
