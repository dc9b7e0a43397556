// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What every rule of the project check shares: the project's files, the registered factions
// (found without regard to case), the findings so far and the checks that apply to values in
// any store. The rules, one file each per file they judge, are declared at the end.
#include "check/PairTable.h"
#include "check/ProjectCheck.h"
#include "core/IniDocument.h"
#include "core/ProjectLayout.h"
#include "factionprops/Catalogues.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace check {

std::string Quoted(std::string_view text);
// "[section] key", or "[section]" without a key.
std::string Where(std::string_view section, std::string_view key = {});
// A catalogue as a set of its items, built once per check.
std::unordered_set<std::string_view> SetOf(factionprops::Catalogue catalogue);

class Inspection {
public:
    explicit Inspection(std::string_view projectFolder) : layout_(projectFolder) {}

    const ProjectLayout& Layout() const { return layout_; }
    std::vector<Finding> TakeFindings() { return std::move(findings_); }

    Finding& Add(Severity severity, Store store, std::string_view faction, std::string_view file,
                 std::string where, std::string_view stored, std::string message);

    // The file's bytes (file below the project folder), or nullopt when it is missing; an
    // unreadable file is a finding.
    std::optional<std::string> Read(Store store, std::string_view faction, std::string_view file);
    // The parsed file, or null when it is missing or unreadable.
    std::unique_ptr<IniDocument> Load(Store store, std::string_view file);
    // The files of a folder below the project folder, sorted so that findings come in a
    // fixed order.
    std::vector<std::string> SortedFiles(std::string_view folder) const;

    // ---- the registered factions ----
    // Registers the next usable faction of the registry.
    void Register(const std::string& nickname);
    const std::vector<std::string>& Factions() const { return factions_; }
    // The number of a registered faction (its place in Factions()), found without regard to
    // case; nullopt for any other name.
    std::optional<std::size_t> IndexOf(std::string_view nickname) const;

    // The stores list factions mostly in registry order (the importers and the editor's
    // whole-column writes keep it), so a run of lookups tries the faction after the one found
    // last before it hashes: a million rates are then a million short comparisons.
    struct Lookup {
        std::string_view name;            // the name looked up last
        std::optional<std::size_t> index; // what it gave
        std::optional<std::size_t> found; // the last faction found
    };
    std::optional<std::size_t> Find(Lookup& last, std::string_view name) const;

    // ---- checks of any store ----
    // What the read limit and the line-break escape do to any stored value.
    void CheckText(Store store, std::string_view faction, std::string_view file,
                   const IniDocument::Value& value);
    // A value the game reads as a number; what names it in the message ("The event value").
    void CheckNumber(Store store, std::string_view faction, std::string_view file,
                     const IniDocument::Value& value, std::string_view what);
    // A number from -1 to 1.
    void CheckReputation(Store store, std::string_view faction, std::string_view file,
                         const IniDocument::Value& value, std::string_view what);
    // Walks a shared store (a section per faction): calls visit(faction's index, value) for
    // every value of a registered faction's section, after the checks of any value, and sets
    // held[index]. A section of a faction that is not registered is noted once.
    void
    ForEachFactionValue(Store store, std::string_view file, const IniDocument& document,
                        std::vector<bool>& held,
                        const std::function<void(std::size_t, const IniDocument::Value&)>& visit);
    // One warning per registered faction that a store lacks.
    void NoteMissing(Store store, std::string_view file, const std::vector<bool>& held,
                     std::string_view message);

    // Mirror pairs with one half missing: the compilers give the missing half "0.0", so the
    // two factions end up apart. Halves that are both stored may differ on purpose (the
    // shipped library's do) and are left alone, as are factions the store lacks altogether.
    // report(lacking, other, value of other toward lacking).
    template <typename Report>
    void CheckHalfPairs(const std::vector<bool>& held, PairTable& pairs,
                        const Report& report) const {
        pairs.Finish();
        for (std::size_t i = 0; i < factions_.size(); ++i) {
            pairs.ForEach(i, [&](std::size_t j, std::string_view value) {
                if (j != i && held[j] && !pairs.Get(j, i) && !IsDefault(value))
                    report(j, i, value);
            });
        }
    }

private:
    static bool IsDefault(std::string_view value);
    // Sections of a shared store whose faction is not registered: left by a deletion.
    void NoteOrphanSection(Store store, std::string_view file, std::string_view section,
                           std::unordered_set<std::string>& noted);

    ProjectLayout layout_;
    std::vector<std::string> factions_;                  // registry order, usable and unique
    std::unordered_map<std::string, std::size_t> index_; // folded nickname -> place
    mutable std::string fold_;                           // IndexOf's buffer
    std::vector<Finding> findings_;
};

// The rules, by the file they judge, in the order a check runs them. The registry comes
// first: it registers the factions the others look up.
void CheckRegistry(Inspection& inspection);
void CheckEvents(Inspection& inspection);
void CheckEmpathy(Inspection& inspection);
void CheckProperties(Inspection& inspection);
void CheckLists(Inspection& inspection);
void CheckInitialWorld(Inspection& inspection);

} // namespace check
