// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/Inspection.h"

#include "core/GameNumber.h"
#include "core/names.h"
#include "core/platform.h"
#include "reputation/ReputationFiles.h"

#include <algorithm>

namespace check {
namespace {

std::string NotANumber(std::string_view what, std::string_view stored) {
    if (stored.empty())
        return std::string(what) + " is empty where the game reads a number.";
    std::string withPoint(stored);
    for (char& c : withPoint)
        if (c == ',')
            c = '.';
    if (withPoint != stored && gameNumber::Read(withPoint))
        return std::string(what) + " " + Quoted(stored) +
               " is not a number: the game reads a decimal point, not a comma.";
    return std::string(what) + " " + Quoted(stored) + " is not a number the game can read.";
}

} // namespace

// Appended rather than "x" + ...: GCC 12 at -O3 warns falsely (-Wrestrict) on that.
std::string Quoted(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

std::string Where(std::string_view section, std::string_view key) {
    std::string where = std::string("[").append(section).append("]");
    if (!key.empty())
        where.append(" ").append(key);
    return where;
}

std::unordered_set<std::string_view> SetOf(factionprops::Catalogue catalogue) {
    return {catalogue.begin(), catalogue.end()};
}

Finding& Inspection::Add(Severity severity, Store store, std::string_view faction,
                         std::string_view file, std::string where, std::string_view stored,
                         std::string message) {
    return findings_.emplace_back(Finding{severity, store, std::string(faction), std::string(file),
                                          std::move(where), std::string(stored),
                                          std::move(message)});
}

std::optional<std::string> Inspection::Read(Store store, std::string_view faction,
                                            std::string_view file) {
    try {
        return platform::ReadBytes(layout_.Path(file));
    } catch (const std::exception& error) {
        Add(Severity::Error, store, faction, file, {}, {},
            "The file cannot be read: " + std::string(error.what()) + ".");
    }
    return std::nullopt;
}

std::unique_ptr<IniDocument> Inspection::Load(Store store, std::string_view file) {
    if (auto bytes = Read(store, {}, file))
        return std::make_unique<IniDocument>(*bytes);
    return nullptr;
}

std::vector<std::string> Inspection::SortedFiles(std::string_view folder) const {
    auto files = platform::ListFolder(layout_.Path(folder), platform::EntryKind::Files);
    std::sort(files.begin(), files.end());
    return files;
}

void Inspection::Register(const std::string& nickname) {
    index_.emplace(names::Folded(nickname), factions_.size());
    factions_.push_back(nickname);
}

std::optional<std::size_t> Inspection::IndexOf(std::string_view nickname) const {
    const auto& fold = names::FoldTable();
    fold_.resize(nickname.size());
    for (std::size_t i = 0; i < nickname.size(); ++i)
        fold_[i] = static_cast<char>(fold[static_cast<unsigned char>(nickname[i])]);
    const auto found = index_.find(fold_);
    if (found == index_.end())
        return std::nullopt;
    return found->second;
}

std::optional<std::size_t> Inspection::Find(Lookup& last, std::string_view name) const {
    if (name.data() == last.name.data() && name.size() == last.name.size())
        return last.index; // the same section again
    last.name = name;
    const std::size_t next = last.found ? *last.found + 1 : 0;
    if (next < factions_.size() && names::EqualIgnoringCase(factions_[next], name))
        last.index = next;
    else
        last.index = IndexOf(name);
    if (last.index)
        last.found = last.index;
    return last.index;
}

void Inspection::CheckText(Store store, std::string_view faction, std::string_view file,
                           const IniDocument::Value& value) {
    if (value.stored.find(ini::LineBreakEscape) != std::string_view::npos)
        Add(Severity::Error, store, faction, file, Where(value.section, value.key), value.stored,
            "The value holds the line-break escape \"/20&\\\", so its compiled line will "
            "split in two.");
    if (value.stored.size() > ini::MaxReadBytes)
        Add(Severity::Warning, store, faction, file, Where(value.section, value.key), value.stored,
            "The value is " + std::to_string(value.stored.size()) +
                " bytes long; reads stop after " + std::to_string(ini::MaxReadBytes) +
                " bytes, so the rest never reaches the compiled file.");
}

void Inspection::CheckNumber(Store store, std::string_view faction, std::string_view file,
                             const IniDocument::Value& value, std::string_view what) {
    if (!gameNumber::Read(value.stored))
        Add(Severity::Error, store, faction, file, Where(value.section, value.key), value.stored,
            NotANumber(what, value.stored));
}

void Inspection::CheckReputation(Store store, std::string_view faction, std::string_view file,
                                 const IniDocument::Value& value, std::string_view what) {
    const auto number = gameNumber::Read(value.stored);
    if (!number)
        Add(Severity::Error, store, faction, file, Where(value.section, value.key), value.stored,
            NotANumber(what, value.stored));
    else if (*number < -1.0 || *number > 1.0)
        Add(Severity::Error, store, faction, file, Where(value.section, value.key), value.stored,
            std::string(what) + " " + Quoted(value.stored) + " lies outside -1 to 1.");
}

void Inspection::NoteOrphanSection(Store store, std::string_view file, std::string_view section,
                                   std::unordered_set<std::string>& noted) {
    if (noted.insert(names::Folded(section)).second)
        Add(Severity::Note, store, section, file, Where(section), {},
            "The section belongs to " + Quoted(section) +
                ", which is not registered; it is not compiled.");
}

void Inspection::ForEachFactionValue(
    Store store, std::string_view file, const IniDocument& document, std::vector<bool>& held,
    const std::function<void(std::size_t, const IniDocument::Value&)>& visit) {
    std::unordered_set<std::string> orphans;
    Lookup last;
    document.ForEachValue([&](const IniDocument::Value& value) {
        const auto index = Find(last, value.section);
        if (!index) {
            NoteOrphanSection(store, file, value.section, orphans);
            return;
        }
        held[*index] = true;
        CheckText(store, value.section, file, value);
        visit(*index, value);
    });
}

void Inspection::NoteMissing(Store store, std::string_view file, const std::vector<bool>& held,
                             std::string_view message) {
    for (std::size_t i = 0; i < factions_.size(); ++i)
        if (!held[i])
            Add(Severity::Warning, store, factions_[i], file, Where(factions_[i]), {},
                std::string(message));
}

bool Inspection::IsDefault(std::string_view value) {
    return gameNumber::SameValue(value, reputation::DefaultValue);
}

} // namespace check
