// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FactionEdits.h"

#include "core/IniDocument.h"
#include "core/ProjectLayout.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace factionEdits {
namespace {

// ---- what of a project names a faction, as found on disk ----

// A file of the project found on disk: its host path, and its name as Windows-1252 text.
struct FoundFile {
    std::string host;
    std::string name;
};

// The project's files that name factions, looked up on disk once per folder.
class FactionFileLayout {
public:
    FactionFileLayout(std::string_view appDir, std::string_view project)
        : layout_(ProjectLayout::Of(appDir, project)) {}

    std::string Registry() const { return platform::ResolvePath(layout_.Registry()); }
    // The event values, the property sheets and the initial world, one section per faction;
    // only the last one's keys name factions (the starting reputations).
    std::vector<std::string> Sheets() const {
        return {platform::ResolvePath(layout_.EventFile()),
                platform::ResolvePath(layout_.PropertyFile()),
                platform::ResolvePath(layout_.WorldFile())};
    }
    static constexpr std::size_t StartingReputations = 2;

    // Every empathy file of the project, by the folded nickname in its name.
    std::map<std::string, FoundFile> EmpathyFiles() {
        std::map<std::string, FoundFile> files;
        const Folder& folder = Listed(layout::EmpathyFolder);
        for (const std::string& name : folder.names) {
            const std::string nickname = layout::NicknameIn(layout::EmpathyName, name);
            if (!nickname.empty())
                files.emplace(
                    names::Folded(nickname),
                    FoundFile{platform::HostPath(folder.host + "\\" + platform::DiskName(name)),
                              name});
        }
        return files;
    }

    // The files that belong to the faction alone, as found on disk (any letter case), with the
    // length of the part of the name before the nickname.
    struct OwnFile {
        FoundFile file;
        std::string folder; // host path
        std::size_t prefixLength;
    };
    std::vector<OwnFile> OwnFiles(std::string_view nickname) {
        std::vector<OwnFile> files;
        for (const layout::FactionFileName& own : layout::OwnFileNames()) {
            const Folder& folder = Listed(own.folder);
            const std::string wanted =
                names::Folded(std::string(own.prefix).append(nickname).append(own.suffix));
            for (const std::string& name : folder.names)
                if (names::Folded(name) == wanted) {
                    files.push_back(
                        {{platform::HostPath(folder.host + "\\" + platform::DiskName(name)), name},
                         folder.host,
                         own.prefix.size()});
                    break;
                }
        }
        return files;
    }

private:
    struct Folder {
        std::string host;
        std::vector<std::string> names;
    };
    const Folder& Listed(std::string_view piece) {
        auto [it, added] = folders_.try_emplace(std::string(piece));
        if (added) {
            const std::string path = layout_.Path(piece);
            it->second.host = platform::ResolvePath(path);
            it->second.names = platform::ListFolder(path, platform::EntryKind::Files);
        }
        return it->second;
    }
    ProjectLayout layout_;
    std::map<std::string, Folder> folders_;
};

// ---- names in INI text ----

// Calls take(offset, length) for the name of every section header and, with keys, of every
// key line, as the INI engine reads them.
template <typename Take> void ForEachName(std::string_view bytes, bool keys, const Take& take) {
    txtReadWrite::ForEachLine(bytes, [&](std::string_view line) {
        auto name = ini::SectionNameOfLine(line);
        if (!name && keys)
            name = ini::KeyOfLine(line);
        if (name)
            take(static_cast<std::size_t>(name->data() - bytes.data()), name->size());
    });
}

bool Names(std::string_view bytes, std::string_view name, bool keys) {
    bool found = false;
    ForEachName(bytes, keys, [&](std::size_t at, std::size_t length) {
        found = found || names::EqualIgnoringCase(bytes.substr(at, length), name);
    });
    return found;
}

// The stored values of the first section of the name (the one reads reach), each key's first
// line, in file order; found by walking the lines without building a document.
std::vector<std::pair<std::string, std::string>> SectionValues(std::string_view bytes,
                                                               std::string_view section) {
    std::vector<std::pair<std::string, std::string>> values;
    enum { Before, Inside, Past } state = Before;
    txtReadWrite::ForEachLine(bytes, [&](std::string_view line) {
        if (state == Past)
            return;
        if (const auto name = ini::SectionNameOfLine(line)) {
            if (state == Inside)
                state = Past;
            else if (names::EqualIgnoringCase(*name, section))
                state = Inside;
            return;
        }
        const auto key = ini::KeyOfLine(line);
        if (state != Inside || !key)
            return;
        for (const auto& [seen, value] : values)
            if (names::EqualIgnoringCase(seen, *key))
                return;
        std::string_view stored = line.substr(line.find('=') + 1);
        while (!stored.empty() && (stored.front() == ' ' || stored.front() == '\t'))
            stored.remove_prefix(1);
        while (!stored.empty() && (stored.back() == ' ' || stored.back() == '\t'))
            stored.remove_suffix(1);
        values.emplace_back(*key, stored);
    });
    return values;
}

using Values = std::vector<std::pair<std::string, std::string>>;

bool IsBlankLine(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

// The stored value of the key in the first section of each name that holds it, by the
// folded section name.
std::map<std::string, std::string> KeyInEachSection(std::string_view bytes, std::string_view key) {
    std::map<std::string, std::string> found;
    std::map<std::string, bool> seen; // folded section name -> this is its first section
    bool reachable = false;
    std::string section;
    txtReadWrite::ForEachLine(bytes, [&](std::string_view line) {
        if (const auto name = ini::SectionNameOfLine(line)) {
            section = names::Folded(*name);
            reachable = seen.emplace(section, true).second;
            return;
        }
        const auto lineKey = ini::KeyOfLine(line);
        if (!reachable || !lineKey || !names::EqualIgnoringCase(*lineKey, key))
            return;
        std::string_view stored = line.substr(line.find('=') + 1);
        while (!stored.empty() && (stored.front() == ' ' || stored.front() == '\t'))
            stored.remove_prefix(1);
        while (!stored.empty() && (stored.back() == ' ' || stored.back() == '\t'))
            stored.remove_suffix(1);
        found.emplace(section, stored);
    });
    return found;
}

// The text with key=value added to the first section of each name in bySection (folded),
// right after its last non-blank line, as a write of the key adds it there.
std::string WithKeyAdded(std::string_view bytes, std::string_view key,
                         const std::map<std::string, std::string>& bySection) {
    struct Insert {
        std::size_t at;
        bool needsEnding;
        const std::string* value;
    };
    std::vector<Insert> inserts;
    std::map<std::string, bool> seen;
    const std::string* open = nullptr; // the value for the section being walked
    std::size_t lastEnd = 0;
    bool lastEnded = true;
    const auto close = [&] {
        if (open)
            inserts.push_back({lastEnd, !lastEnded, open});
        open = nullptr;
    };
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        const std::size_t lf = bytes.find('\n', pos);
        const std::size_t next = lf == std::string_view::npos ? bytes.size() : lf + 1;
        std::size_t end = lf == std::string_view::npos ? bytes.size() : lf;
        if (lf != std::string_view::npos && end > pos && bytes[end - 1] == '\r')
            --end;
        const std::string_view line = bytes.substr(pos, end - pos);
        if (const auto name = ini::SectionNameOfLine(line)) {
            close();
            std::string folded = names::Folded(*name);
            const auto value = bySection.find(folded);
            if (seen.emplace(std::move(folded), true).second && value != bySection.end())
                open = &value->second;
        }
        if (open && !IsBlankLine(line)) {
            lastEnd = next;
            lastEnded = lf != std::string_view::npos;
        }
        pos = next;
    }
    close();
    std::string out;
    out.reserve(bytes.size() + inserts.size() * (key.size() + 16));
    std::size_t done = 0;
    for (const Insert& insert : inserts) {
        out.append(bytes.substr(done, insert.at - done));
        if (insert.needsEnding)
            out += "\r\n";
        out.append(key).append("=").append(*insert.value).append("\r\n");
        done = insert.at;
    }
    out.append(bytes.substr(done));
    return out;
}

// The text with a section of these values added at its end, as a write of them would add it.
std::string WithSection(std::string_view bytes, std::string_view section,
                        const std::vector<std::pair<std::string, std::string>>& values) {
    std::string out(bytes);
    if (!out.empty() && out.back() != '\n')
        out += "\r\n";
    out.append("[").append(section).append("]\r\n");
    for (const auto& [key, value] : values)
        out.append(key).append("=").append(value).append("\r\n");
    return out;
}

// ---- the registry and the names rule ----

struct Registry {
    std::string host;
    std::string bytes;
    std::vector<modFunctions::RegistryEntry> entries;
};

Registry LoadRegistry(FactionFileLayout& layout) {
    Registry registry{layout.Registry(), {}, {}};
    auto bytes = platform::ReadBytes(registry.host);
    if (!bytes)
        throw Refused("the project has no faction registry (" +
                      platform::ForMessage(registry.host) + ")");
    registry.bytes = std::move(*bytes);
    registry.entries = modFunctions::ParseRegistry(registry.bytes, IniDocument(registry.bytes));
    return registry;
}

std::string Quoted(std::string_view name) {
    return std::string("\"").append(name).append("\"");
}

// The registered spelling of a nickname given in any letter case.
std::string Registered(const Registry& registry, std::string_view name) {
    std::vector<std::string> found;
    for (const auto& entry : registry.entries)
        if (names::EqualIgnoringCase(entry.nickname, name))
            found.push_back(entry.nickname);
    if (found.empty())
        throw Refused("the faction " + Quoted(name) + " is not registered");
    if (found.size() > 1)
        throw Refused(Quoted(found[0]) + " and " + Quoted(found[1]) +
                      " are registered both: their data cannot be told apart");
    return found.front();
}

// Refuses a new nickname that the names rule refuses or that another faction has (a faction
// may take another spelling of its own name).
void RequireFreeName(const Registry& registry, std::string_view name, std::string_view self = {}) {
    if (const auto reason = names::Refusal(name))
        throw Refused("the nickname " + Quoted(name) + " is refused: " + *reason);
    for (const auto& entry : registry.entries)
        if (names::EqualIgnoringCase(entry.nickname, name) && entry.nickname != self)
            throw Refused("the nickname " + Quoted(name) + " is registered already" +
                          (entry.nickname == name ? "" : " as " + Quoted(entry.nickname)));
}

// A name that no faction has may still name sections of a deleted faction; taking it over
// would mix that faction's old values with the new ones.
[[noreturn]] void RefuseLeftover(std::string_view name, const std::string& host) {
    throw Refused(platform::ForMessage(host) + " still holds data for " + Quoted(name) +
                  " (left by a faction deleted earlier): the nickname cannot be taken over");
}

void RequireNoOwnFiles(FactionFileLayout& layout, std::string_view name) {
    const auto files = layout.OwnFiles(name);
    if (!files.empty())
        throw Refused(platform::ForMessage(files.front().file.host) + " exists already");
}

// ---- the commit ----

// The files of one edit, staged together.
class Batch {
public:
    void Write(std::string host, std::string bytes) {
        writes_.emplace_back(std::move(host), std::move(bytes));
    }
    void Remove(std::string host) { removals_.push_back(std::move(host)); }
    void Commit() {
        std::vector<platform::StagedReplacement::Staging> files;
        files.reserve(writes_.size());
        for (const auto& [host, bytes] : writes_)
            files.push_back({host, bytes});
        replacement_.StageAll(files);
        for (const std::string& host : removals_)
            replacement_.StageRemoval(host);
        replacement_.Commit();
    }

private:
    platform::StagedReplacement replacement_;
    std::vector<std::pair<std::string, std::string>> writes_;
    std::vector<std::string> removals_;
};

std::string Renamed(const FactionFileLayout::OwnFile& own, std::string_view oldName,
                    std::string_view newName) {
    const std::string& name = own.file.name;
    return platform::HostPath(own.folder + "\\" +
                              platform::DiskName(name.substr(0, own.prefixLength) +
                                                 std::string(newName) +
                                                 name.substr(own.prefixLength + oldName.size())));
}

// The text with the name at each of the places spelled newName.
std::string Replaced(std::string_view bytes, const std::vector<std::size_t>& places,
                     std::size_t length, std::string_view newName) {
    std::string out;
    out.reserve(bytes.size() + places.size() * newName.size());
    std::size_t done = 0;
    for (const std::size_t at : places) {
        out.append(bytes.substr(done, at - done)).append(newName);
        done = at + length;
    }
    out.append(bytes.substr(done));
    return out;
}

} // namespace

std::string RenameFaction(std::string_view appDir, std::string_view project,
                          std::string_view oldName, std::string_view newName) {
    FactionFileLayout layout(appDir, project);
    const Registry registry = LoadRegistry(layout);
    const std::string old = Registered(registry, oldName);
    RequireFreeName(registry, newName, old);
    if (old == newName)
        return old;
    // Another spelling of its own name: whatever names the new spelling names the faction.
    const bool caseOnly = names::EqualIgnoringCase(old, newName);
    if (!caseOnly)
        RequireNoOwnFiles(layout, newName);

    Batch batch;
    // The file's text with every name of the faction spelled anew; nullopt when none is there.
    // A name that no faction has may still be named by the leftovers of a deleted one.
    const auto edit = [&](const std::string& host, std::string_view bytes,
                          bool keys) -> std::optional<std::string> {
        std::vector<std::size_t> places;
        bool namesNew = false;
        ForEachName(bytes, keys, [&](std::size_t at, std::size_t length) {
            const std::string_view name = bytes.substr(at, length);
            if (names::EqualIgnoringCase(name, old))
                places.push_back(at);
            else if (names::EqualIgnoringCase(name, newName))
                namesNew = true;
        });
        if (namesNew)
            RefuseLeftover(newName, host);
        if (places.empty())
            return std::nullopt;
        return Replaced(bytes, places, old.size(), newName);
    };
    if (auto renamed = edit(registry.host, registry.bytes, false))
        batch.Write(registry.host, std::move(*renamed));
    const auto sheets = layout.Sheets();
    for (std::size_t i = 0; i < sheets.size(); ++i)
        if (const auto bytes = platform::ReadBytes(sheets[i]))
            if (auto renamed = edit(sheets[i], *bytes, i == FactionFileLayout::StartingReputations))
                batch.Write(sheets[i], std::move(*renamed));

    const auto own = layout.OwnFiles(old);
    const auto ownEmpathy = std::find_if(own.begin(), own.end(), [](const auto& file) {
        return names::Folded(file.file.name).starts_with("reps_");
    });
    for (const auto& [nickname, file] : layout.EmpathyFiles()) {
        const auto bytes = platform::ReadBytes(file.host);
        if (!bytes)
            continue;
        auto renamed = edit(file.host, *bytes, false);
        if (ownEmpathy != own.end() && file.host == ownEmpathy->file.host)
            batch.Write(Renamed(*ownEmpathy, old, newName), renamed ? std::move(*renamed) : *bytes);
        else if (renamed)
            batch.Write(file.host, std::move(*renamed));
    }
    for (auto file = own.begin(); file != own.end(); ++file) {
        const std::string renamed = Renamed(*file, old, newName);
        if (renamed == file->file.host)
            continue; // spelled so on disk already
        // In a folder that ignores case the new spelling is the old file itself: it is
        // written over, never removed.
        std::error_code error;
        const bool sameFile = caseOnly && std::filesystem::exists(renamed, error);
        if (file != ownEmpathy) {
            const auto bytes = platform::ReadBytes(file->file.host);
            if (!bytes)
                continue;
            batch.Write(renamed, *bytes);
        }
        if (!sameFile)
            batch.Remove(file->file.host);
    }
    batch.Commit();
    return old;
}

void DuplicateFaction(std::string_view appDir, std::string_view project, std::string_view source,
                      std::string_view newName, std::optional<std::string_view> group,
                      Relations relations) {
    FactionFileLayout layout(appDir, project);
    const Registry registry = LoadRegistry(layout);
    const std::string from = Registered(registry, source);
    RequireFreeName(registry, newName);
    RequireNoOwnFiles(layout, newName);
    const bool copyRelations = relations == Relations::Copied;

    Batch batch;
    // The registry: the source's section copied to the end, with the group given.
    {
        if (Names(registry.bytes, newName, false))
            RefuseLeftover(newName, registry.host);
        auto values = SectionValues(registry.bytes, from);
        if (group && !group->empty()) {
            const auto grp = std::find_if(values.begin(), values.end(), [](const auto& value) {
                return names::EqualIgnoringCase(value.first, "grp");
            });
            if (grp == values.end())
                values.insert(values.begin(), {"grp", std::string(*group)});
            else
                grp->second = *group;
        }
        batch.Write(registry.host, WithSection(registry.bytes, newName, values));
    }

    // Who is to hold toward the copy what they hold toward the source: the source itself
    // (the two toward each other), and with relations every other registered faction.
    std::set<std::string> holders;
    for (const auto& entry : registry.entries)
        if (copyRelations || entry.nickname == from)
            holders.insert(names::Folded(entry.nickname));
    const std::string folded = names::Folded(from);

    const auto sheets = layout.Sheets();
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const auto bytes = platform::ReadBytes(sheets[i]);
        const bool startingReputations = i == FactionFileLayout::StartingReputations;
        if (!bytes)
            continue;
        if (Names(*bytes, newName, startingReputations))
            RefuseLeftover(newName, sheets[i]);
        Values values = SectionValues(*bytes, from);
        if (!startingReputations) {
            if (!values.empty())
                batch.Write(sheets[i], WithSection(*bytes, newName, values));
            continue;
        }
        auto toward = KeyInEachSection(*bytes, from);
        std::erase_if(toward, [&](const auto& held) { return !holders.contains(held.first); });
        if (const auto self = toward.find(folded); self != toward.end())
            values.emplace_back(newName, self->second);
        const std::string added = WithKeyAdded(*bytes, newName, toward);
        if (!values.empty())
            batch.Write(sheets[i], WithSection(added, newName, values));
        else if (!toward.empty())
            batch.Write(sheets[i], added);
    }

    for (const auto& [nickname, file] : layout.EmpathyFiles()) {
        const auto bytes = platform::ReadBytes(file.host);
        if (!bytes)
            continue;
        if (Names(*bytes, newName, false))
            RefuseLeftover(newName, file.host);
        if (!holders.contains(nickname))
            continue;
        const Values toward = SectionValues(*bytes, from);
        const std::string added = toward.empty() ? *bytes : WithSection(*bytes, newName, toward);
        if (nickname == folded) {
            // The copy's own rates: the source's, and toward the source what it holds itself.
            const std::size_t prefix = layout::EmpathyName.prefix.size();
            const std::string name = file.name.substr(0, prefix) + std::string(newName) +
                                     file.name.substr(prefix + from.size());
            const std::string folder = file.host.substr(0, file.host.size() - file.name.size());
            batch.Write(folder + platform::DiskName(name), added);
        }
        if (!toward.empty())
            batch.Write(file.host, added);
    }

    for (const auto& file : layout.OwnFiles(from)) {
        if (names::Folded(file.file.name).starts_with("reps_") ||
            names::Folded(file.file.name).ends_with(".tmp"))
            continue; // the empathy file is copied above; the scratch file is the compiler's
        if (const auto bytes = platform::ReadBytes(file.file.host))
            batch.Write(Renamed(file, from, newName), *bytes);
    }
    batch.Commit();
}

} // namespace factionEdits
