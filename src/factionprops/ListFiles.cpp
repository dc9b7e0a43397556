// SPDX-License-Identifier: GPL-3.0-or-later
#include "factionprops/ListFiles.h"

#include "core/ProjectLayout.h"
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"

namespace factionprops {

std::string ListFilePath(std::string_view appDir, std::string_view project, PickList list,
                         std::string_view nickname) {
    return ProjectLayout::Of(appDir, project).ListFile(list, nickname);
}

std::string ListFileText(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries) {
        text += entry;
        text += "\r\n";
    }
    return text;
}

void WriteListFile(const std::string& path, const std::vector<std::string>& entries) {
    txtReadWrite::WriteFileText(path, ListFileText(entries));
}

std::vector<std::string> ReadListFile(const std::string& path) {
    try {
        return modFunctions::LoadListFile(path);
    } catch (const std::exception&) {
        // An unreadable list loads as an empty one; nothing is reported.
        return {};
    }
}

std::string BodypartEntry(std::string_view head, std::string_view body,
                          std::string_view accessory) {
    std::string entry(head);
    entry += ", ";
    entry += body;
    entry += ", ";
    entry += accessory;
    return entry;
}

std::string FormationEntry(std::string_view formationClass, std::string_view formation) {
    std::string entry(formationClass);
    entry += ", ";
    entry += formation;
    return entry;
}

} // namespace factionprops
