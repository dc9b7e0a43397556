// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/modFunctions.h"

#include "core/ProjectLayout.h"
#include "core/Trash.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

#include <ctime>

namespace modFunctions {
namespace {

std::string Trimmed(std::string_view text) {
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

bool IsRegistrySectionLine(std::string_view line) {
    return !line.empty() && line.front() == '[' && line.back() == ']';
}

std::string WithoutBrackets(std::string_view line) {
    std::string out;
    for (const char c : line)
        if (c != '[' && c != ']')
            out += c;
    return out;
}

} // namespace

std::string ProjectsFolder(std::string_view appDir) {
    return ProjectLayout::ProjectsFolder(appDir);
}

std::string ProjectPath(std::string_view appDir, std::string_view project, std::string_view piece) {
    return ProjectLayout::Of(appDir, project).Folder() + std::string(piece);
}

std::string LibraryFolder(std::string_view appDir, std::string_view subsystem) {
    return std::string(appDir) + "\\data\\" + std::string(subsystem) + "\\original_factions";
}

void EnsureProjectsFolder(std::string_view appDir) {
    if (!platform::IsDirectory(ProjectsFolder(appDir)))
        platform::CreateFolder(ProjectsFolder(appDir));
}

std::vector<std::string> ListProjects(std::string_view appDir, std::vector<std::string>* leftOut) {
    std::vector<std::string> undecodable;
    auto projects =
        platform::ListFolder(ProjectsFolder(appDir), platform::EntryKind::Folders, &undecodable);
    if (leftOut)
        for (const std::string& name : undecodable)
            leftOut->push_back("The folder \"" + platform::ForMessage(name) + "\" in " +
                               platform::ForMessage(platform::ResolvePath(ProjectsFolder(appDir))) +
                               " is left out: " + std::string(NameNotFromDisk));
    names::SortIgnoringCase(projects);
    return projects;
}

std::string FindProject(std::string_view appDir, std::string_view name) {
    std::string found;
    for (const std::string& project : ListProjects(appDir)) {
        if (project == name)
            return project;
        if (found.empty() && names::EqualIgnoringCase(project, name))
            found = project;
    }
    return found;
}

void CreateProjectFolders(std::string_view appDir, std::string_view name) {
    names::Require(name, "Project name");
    const ProjectLayout project = ProjectLayout::Of(appDir, name);
    platform::CreateFolder(project.Folder());
    for (const std::string_view sub : layout::Subfolders)
        platform::CreateFolder(project.Path(sub));
}

void DeleteProjectFolder(std::string_view appDir, std::string_view name) {
    if (names::Refusal(name))
        return; // never let a refused name reach outside the projects folder
    platform::DeleteFolderTree(ProjectPath(appDir, name));
}

bool TrashProjectFolder(std::string_view appDir, std::string_view name) {
    if (names::Refusal(name))
        return false;
    if (platform::MoveToTrash(ProjectPath(appDir, name)))
        return true;
    DeleteProjectFolder(appDir, name);
    return false;
}

std::string ProtocolEntry(std::string_view text) {
    const std::time_t now = std::time(nullptr);
    const std::tm local = platform::LocalTime(now);
    char date[128] = {};
    char time[128] = {};
    std::strftime(date, sizeof date, "%x", &local);
    std::strftime(time, sizeof time, "%X", &local);
    return std::string(date) + "    " + time + ": " + std::string(text) + "\r\n";
}

void WriteProtocol(std::string_view appDir, std::string_view project, std::string_view text) {
    const std::string path = ProjectLayout::Of(appDir, project).ProtocolFile();
    // Appending writes the protocol anew only when it is missing; a failed append leaves it
    // as it was, its history whole.
    txtReadWrite::AppendFileText(path, ProtocolEntry(text));
}

std::string RegistryPath(std::string_view appDir, std::string_view project) {
    return ProjectLayout::Of(appDir, project).Registry();
}

std::vector<RegistryEntry> LoadRegistry(const std::string& registryPath) {
    // One read serves both the section lines and the values.
    const auto bytes = platform::ReadBytes(registryPath);
    if (!bytes)
        throw platform::FileError(registryPath, "the faction registry does not exist");
    return ParseRegistry(*bytes, IniDocument(*bytes));
}

std::vector<RegistryEntry> ParseRegistry(std::string_view bytes, const IniDocument& document) {
    std::vector<RegistryEntry> entries;
    for (const std::string_view line : txtReadWrite::SplitLines(bytes)) {
        if (!IsRegistrySectionLine(line))
            continue;
        std::string nickname = WithoutBrackets(line);
        std::string group = document.Read(nickname, "grp", "[ERROR]");
        std::string rep = document.Read(nickname, "Rep", "0.0");
        entries.push_back({std::move(nickname), std::move(group), std::move(rep)});
    }
    return entries;
}

std::vector<std::string> RegistryNicknames(const std::string& registryPath) {
    std::vector<std::string> out;
    const std::string bytes = txtReadWrite::ReadFileText(registryPath);
    for (const std::string_view line : txtReadWrite::SplitLines(bytes))
        if (IsRegistrySectionLine(line))
            out.push_back(WithoutBrackets(line));
    return out;
}

namespace {

template <class Entry, class NicknameOf>
std::vector<RefusedNickname> LeaveOut(std::vector<Entry>& entries, const NicknameOf& nicknameOf) {
    std::vector<RefusedNickname> refused;
    std::erase_if(entries, [&](const Entry& entry) {
        auto reason = names::Refusal(nicknameOf(entry));
        if (reason)
            refused.push_back({nicknameOf(entry), std::move(*reason)});
        return reason.has_value();
    });
    return refused;
}

} // namespace

std::vector<RefusedNickname> LeaveOutRefused(std::vector<RegistryEntry>& entries) {
    return LeaveOut(entries, [](const RegistryEntry& entry) { return entry.nickname; });
}

std::vector<RefusedNickname> LeaveOutRefused(std::vector<std::string>& nicknames) {
    return LeaveOut(nicknames, [](const std::string& nickname) { return nickname; });
}

std::string SaveFaction(std::string_view appDir, std::string_view project,
                        std::string_view nickname, std::string_view description) {
    if (Trimmed(nickname).empty())
        return {};
    names::Require(nickname, "Nickname");
    const std::string group =
        Trimmed(description).empty() ? std::string(nickname) : std::string(description);
    txtReadWrite::WriteIni(nickname, "grp", group, RegistryPath(appDir, project));
    return group;
}

std::string RegistryWithoutFaction(std::string_view text, std::string_view nickname,
                                   std::string_view group) {
    // Appended rather than "[" + ...: GCC 12 at -O3 warns falsely (-Wrestrict) on that.
    const std::string sectionLine = std::string("[").append(nickname).append("]");
    const std::string groupLine = "grp=" + std::string(group);
    std::string out;
    out.reserve(text.size());
    enum class State { Looking, InSection, Done } state = State::Looking;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t lf = text.find('\n', pos);
        const std::size_t next = lf == std::string_view::npos ? text.size() : lf + 1;
        std::size_t end = lf == std::string_view::npos ? text.size() : lf;
        if (lf != std::string_view::npos && end > pos && text[end - 1] == '\r')
            --end;
        const std::string_view line = text.substr(pos, end - pos);
        const std::string_view ending = text.substr(end, next - end);
        bool empty = false;
        if (state == State::Looking && line == sectionLine) {
            empty = true;
            state = State::InSection;
        } else if (state == State::InSection) {
            if (line.find_first_not_of(" \t") != std::string_view::npos &&
                line[line.find_first_not_of(" \t")] == '[')
                state = State::Done;
            else if (line == groupLine) {
                empty = true;
                state = State::Done;
            }
        }
        if (!empty)
            out.append(line);
        out.append(ending);
        pos = next;
    }
    return out;
}

void DeleteFaction(std::string_view appDir, std::string_view project, std::string_view nickname,
                   std::string_view group) {
    names::Require(nickname, "Nickname");
    const std::string registry = RegistryPath(appDir, project);
    const std::string text =
        RegistryWithoutFaction(txtReadWrite::ReadFileText(registry), nickname, group);
    // The registry first: when it cannot be rewritten, the faction keeps its files too.
    txtReadWrite::WriteFileText(registry, text);
    for (const std::string& file : ProjectLayout::Of(appDir, project).FactionFiles(nickname))
        platform::DeleteFile(file);
}

std::vector<std::string> LoadListFile(const std::string& path) {
    std::vector<std::string> entries;
    for (std::string& line : txtReadWrite::ReadLines(path))
        if (!line.empty())
            entries.push_back(std::move(line));
    return entries;
}

bool FileExists(const std::string& path) {
    const std::string resolved = platform::ResolvePath(path);
    const auto slash = resolved.find_last_of("/\\"); // either system's separator
    const std::string_view name = slash == std::string::npos
                                      ? std::string_view(resolved)
                                      : std::string_view(resolved).substr(slash + 1);
    return !name.starts_with('.') && platform::IsFile(resolved);
}

} // namespace modFunctions
