#include "check/ProjectCheck.h"

#include "core/IniDocument.h"
#include "core/modFunctions.h"
#include "core/names.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "factionprops/Catalogues.h"
#include "factionprops/ListFiles.h"
#include "factionprops/PropertySheet.h"
#include "initialworld/InitialWorld.h"
#include "reputation/ReputationFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace check {
namespace {

// Files as the finding names them, below the project folder.
constexpr std::string_view RegistryFile = "misc\\factions.ini";
constexpr std::string_view EventFile = "emphaty\\new\\grp.ini";
constexpr std::string_view EmpathyFolder = "emphaty\\new";
constexpr std::string_view PropertyFile = "faction_prop\\grp.ini";
constexpr std::string_view ListFolder = "faction_prop";
constexpr std::string_view WorldFile = "initialworld\\grp.ini";

constexpr std::string_view EmpathyPrefix = "reps_";
constexpr std::string_view EmpathySuffix = ".facts";
constexpr std::string_view ListSuffix = ".lst";
constexpr std::string_view MissingGroup = "[ERROR]";

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string Where(std::string_view section, std::string_view key = {}) {
    std::string where = "[" + std::string(section) + "]";
    if (!key.empty())
        where += " " + std::string(key);
    return where;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A decimal number as the game reads one: sign, digits with at most one point, exponent.
std::optional<double> NumberOf(std::string_view text) {
    std::size_t i = 0;
    const auto digits = [&] {
        const std::size_t from = i;
        while (i < text.size() && IsDigit(text[i]))
            ++i;
        return i - from;
    };
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        ++i;
    std::size_t mantissa = digits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0)
        return std::nullopt;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            ++i;
        if (digits() == 0)
            return std::nullopt;
    }
    if (i != text.size())
        return std::nullopt;
    if (text.front() == '+')
        text.remove_prefix(1); // from_chars takes no plus sign
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

bool IsWholeNumber(std::string_view text) {
    if (text.empty())
        return false;
    for (const char c : text)
        if (!IsDigit(c))
            return false;
    return true;
}

// Mirror entries count as equal when they are the same number, however written.
bool SameValue(std::string_view a, std::string_view b) {
    const auto x = NumberOf(a);
    const auto y = NumberOf(b);
    return x && y ? *x == *y : a == b;
}

std::string NotANumber(std::string_view what, std::string_view stored) {
    if (stored.empty())
        return std::string(what) + " is empty where the game reads a number.";
    std::string withPoint(stored);
    for (char& c : withPoint)
        if (c == ',')
            c = '.';
    if (withPoint != stored && NumberOf(withPoint))
        return std::string(what) + " " + Quoted(stored) +
               " is not a number: the game reads a decimal point, not a comma.";
    return std::string(what) + " " + Quoted(stored) + " is not a number the game can read.";
}

// A catalogue as a set of its items, built once per check.
std::unordered_set<std::string_view> SetOf(factionprops::Catalogue catalogue) {
    return {catalogue.begin(), catalogue.end()};
}

// The pieces of a list entry between ", " separators.
std::vector<std::string_view> Parts(std::string_view entry) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t comma = entry.find(", ");
        parts.push_back(entry.substr(0, comma));
        if (comma == std::string_view::npos)
            return parts;
        entry.remove_prefix(comma + 2);
    }
}

struct ListKind {
    factionprops::PickList list;
    std::string_view name; // in messages
    std::string_view form; // what a well-formed entry is, for entries of several parts
    std::vector<std::unordered_set<std::string_view>> catalogues; // one per part
};

// The stored halves of mirror pairs: per faction the factions it holds a value toward, with
// the text, kept in one pool. Memory follows the values stored, not the square of the
// registry (a million rates need not be a million strings).
class PairTable {
public:
    explicit PairTable(std::size_t factions) : halves_(factions) {}
    void Set(std::size_t from, std::size_t to, std::string_view text) {
        halves_[from].push_back({static_cast<std::uint32_t>(to),
                                 static_cast<std::uint32_t>(pool_.size()),
                                 static_cast<std::uint32_t>(text.size())});
        pool_ += text;
    }
    // Once every value is in: sorted for Get.
    void Finish() {
        for (auto& halves : halves_)
            std::sort(halves.begin(), halves.end(),
                      [](const Half& a, const Half& b) { return a.to < b.to; });
    }
    std::optional<std::string_view> Get(std::size_t from, std::size_t to) const {
        const auto& halves = halves_[from];
        const auto found =
            std::lower_bound(halves.begin(), halves.end(), to,
                             [](const Half& half, std::size_t t) { return half.to < t; });
        if (found == halves.end() || found->to != to)
            return std::nullopt;
        return Text(*found);
    }
    // Calls f(to, text) for every value stored for a faction.
    template <typename F> void ForEach(std::size_t from, const F& f) const {
        for (const Half& half : halves_[from])
            f(half.to, Text(half));
    }

private:
    struct Half {
        std::uint32_t to;
        std::uint32_t begin; // in pool_
        std::uint32_t length;
    };
    std::string_view Text(const Half& half) const {
        return std::string_view(pool_).substr(half.begin, half.length);
    }
    std::vector<std::vector<Half>> halves_;
    std::string pool_;
};

class Checker {
public:
    Checker(std::string_view appDir, std::string_view project)
        : folder_(modFunctions::ProjectPath(appDir, project)) {}

    std::vector<Finding> Run() {
        if (!platform::IsDirectory(folder_))
            throw platform::FileError(folder_, "the project folder does not exist");
        CheckRegistry();
        CheckEvents();
        CheckEmpathy();
        CheckProperties();
        CheckLists();
        CheckInitialWorld();
        return std::move(findings_);
    }

private:
    Finding& Add(Severity severity, Store store, std::string_view faction, std::string_view file,
                 std::string where, std::string_view stored, std::string message) {
        return findings_.emplace_back(Finding{severity, store, std::string(faction),
                                              std::string(file), std::move(where),
                                              std::string(stored), std::move(message)});
    }

    std::string Path(std::string_view file) const { return folder_ + "\\" + std::string(file); }

    // The file's bytes, or nullopt when it is missing; an unreadable file is a finding.
    std::optional<std::string> Read(Store store, std::string_view faction, std::string_view file) {
        try {
            return platform::ReadBytes(Path(file));
        } catch (const std::exception& error) {
            Add(Severity::Error, store, faction, file, {}, {},
                "The file cannot be read: " + std::string(error.what()) + ".");
        }
        return std::nullopt;
    }

    // The parsed file, or null when it is missing or unreadable.
    std::unique_ptr<IniDocument> Load(Store store, std::string_view file) {
        if (auto bytes = Read(store, {}, file))
            return std::make_unique<IniDocument>(*bytes);
        return nullptr;
    }

    // The files of a project folder, sorted so that findings come in a fixed order.
    std::vector<std::string> SortedFiles(std::string_view folder) const {
        auto files = platform::ListFolder(Path(folder), platform::EntryKind::Files);
        std::sort(files.begin(), files.end());
        return files;
    }

    // The number of a registered faction (its place in factions_), found without regard to
    // case; nullopt for any other name.
    std::optional<std::size_t> IndexOf(std::string_view nickname) const {
        const auto& fold = names::FoldTable();
        fold_.resize(nickname.size());
        for (std::size_t i = 0; i < nickname.size(); ++i)
            fold_[i] = static_cast<char>(fold[static_cast<unsigned char>(nickname[i])]);
        const auto found = index_.find(fold_);
        if (found == index_.end())
            return std::nullopt;
        return found->second;
    }

    // The stores list factions mostly in registry order (the importers and the editor's
    // whole-column writes keep it), so a run of lookups tries the faction after the one found
    // last before it hashes: a million rates are then a million short comparisons.
    struct Lookup {
        std::string_view name;            // the name looked up last
        std::optional<std::size_t> index; // what it gave
        std::optional<std::size_t> found; // the last faction found
    };
    std::optional<std::size_t> Find(Lookup& last, std::string_view name) const {
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

    // What the read limit and the line-break escape do to any stored value.
    void CheckText(Store store, std::string_view faction, std::string_view file,
                   const IniDocument::Value& value) {
        if (value.stored.find(ini::LineBreakEscape) != std::string_view::npos)
            Add(Severity::Error, store, faction, file, Where(value.section, value.key),
                value.stored,
                "The value holds the line-break escape \"/20&\\\", so its compiled line will "
                "split in two.");
        if (value.stored.size() > ini::MaxReadBytes)
            Add(Severity::Warning, store, faction, file, Where(value.section, value.key),
                value.stored,
                "The value is " + std::to_string(value.stored.size()) +
                    " bytes long; reads stop after " + std::to_string(ini::MaxReadBytes) +
                    " bytes, so the rest never reaches the compiled file.");
    }

    void CheckNumber(Store store, std::string_view faction, std::string_view file,
                     const IniDocument::Value& value, std::string_view what) {
        if (!NumberOf(value.stored))
            Add(Severity::Error, store, faction, file, Where(value.section, value.key),
                value.stored, NotANumber(what, value.stored));
    }

    void CheckReputation(Store store, std::string_view faction, std::string_view file,
                         const IniDocument::Value& value, std::string_view what) {
        const auto number = NumberOf(value.stored);
        if (!number)
            Add(Severity::Error, store, faction, file, Where(value.section, value.key),
                value.stored, NotANumber(what, value.stored));
        else if (*number < -1.0 || *number > 1.0)
            Add(Severity::Error, store, faction, file, Where(value.section, value.key),
                value.stored,
                std::string(what) + " " + Quoted(value.stored) + " lies outside -1 to 1.");
    }

    // Sections of a shared store whose faction is not registered: left by a deletion.
    void NoteOrphanSection(Store store, std::string_view file, std::string_view section,
                           std::unordered_set<std::string>& noted) {
        if (noted.insert(names::Folded(section)).second)
            Add(Severity::Note, store, section, file, Where(section), {},
                "The section belongs to " + Quoted(section) +
                    ", which is not registered; it is not compiled.");
    }

    void CheckRegistry() {
        const auto bytes = Read(Store::Registry, {}, RegistryFile);
        if (!bytes)
            return;
        const IniDocument document(*bytes);
        for (const auto& entry : modFunctions::ParseRegistry(*bytes, document)) {
            const std::string& nick = entry.nickname;
            if (const auto reason = names::Refusal(nick)) {
                Add(Severity::Error, Store::Registry, nick, RegistryFile, Where(nick), {},
                    "The nickname cannot name files (" + *reason +
                        "); the editor leaves the faction out.");
                continue;
            }
            if (const auto first = IndexOf(nick)) {
                const std::string& spelling = factions_[*first];
                Add(Severity::Error, Store::Registry, nick, RegistryFile, Where(nick), {},
                    spelling == nick
                        ? "The faction is registered twice, so it compiles twice."
                        : "The nickname differs from " + Quoted(spelling) +
                              " only in letter case; both name the same sections and files.");
                continue;
            }
            index_.emplace(names::Folded(nick), factions_.size());
            factions_.push_back(nick);
            if (names::EqualIgnoringCase(entry.group, MissingGroup)) {
                const auto stored = document.Stored(nick, "grp");
                Add(Severity::Warning, Store::Registry, nick, RegistryFile, Where(nick, "grp"),
                    stored.value_or(""),
                    stored ? "The group is the placeholder " + Quoted(*stored) +
                                 " of an import whose library entry had none."
                           : std::string("The faction has no group; it is listed as \"[ERROR]\"."));
            }
        }
        document.ForEachValue([&](const IniDocument::Value& value) {
            CheckText(Store::Registry, value.section, RegistryFile, value);
        });
    }

    // One warning per registered faction that a store lacks.
    void NoteMissing(Store store, std::string_view file, const std::vector<bool>& held,
                     std::string_view message) {
        for (std::size_t i = 0; i < factions_.size(); ++i)
            if (!held[i])
                Add(Severity::Warning, store, factions_[i], file, Where(factions_[i]), {},
                    std::string(message));
    }

    void CheckEvents() {
        const auto document = Load(Store::Reputation, EventFile);
        std::vector<bool> held(factions_.size(), false);
        std::unordered_set<std::string> orphans;
        Lookup last;
        if (document) {
            document->ForEachValue([&](const IniDocument::Value& value) {
                const auto index = Find(last, value.section);
                if (!index) {
                    NoteOrphanSection(Store::Reputation, EventFile, value.section, orphans);
                    return;
                }
                held[*index] = true;
                CheckText(Store::Reputation, value.section, EventFile, value);
                for (const std::string_view key : reputation::EventKeys)
                    if (names::EqualIgnoringCase(value.key, key))
                        CheckNumber(Store::Reputation, value.section, EventFile, value,
                                    "The event value");
            });
        }
        NoteMissing(Store::Reputation, EventFile, held,
                    "The faction has no event values; all four compile as \"0.0\".");
    }

    // The nickname in a per-faction file name "<prefix><nickname><suffix>", matched without
    // regard to case; nullopt for other names.
    static std::optional<std::string> NicknameIn(std::string_view name, std::string_view prefix,
                                                 std::string_view suffix) {
        if (name.size() <= prefix.size() + suffix.size() ||
            !names::EqualIgnoringCase(name.substr(0, prefix.size()), prefix) ||
            !names::EqualIgnoringCase(name.substr(name.size() - suffix.size()), suffix))
            return std::nullopt;
        return std::string(name.substr(prefix.size(), name.size() - prefix.size() - suffix.size()));
    }

    void CheckEmpathy() {
        std::vector<bool> held(factions_.size(), false);
        PairTable rates(factions_.size());
        for (const std::string& name : SortedFiles(EmpathyFolder)) {
            const auto nick = NicknameIn(name, EmpathyPrefix, EmpathySuffix);
            if (!nick)
                continue;
            const std::string file = std::string(EmpathyFolder) + "\\" + name;
            const auto from = IndexOf(*nick);
            if (!from) {
                Add(Severity::Warning, Store::Reputation, *nick, file, {}, {},
                    "The empathy file belongs to " + Quoted(*nick) +
                        ", which is not registered; it is not compiled.");
                continue;
            }
            if (held[*from])
                continue; // a second spelling of the same file name; the first one counts
            const auto document = Load(Store::Reputation, file);
            if (!document)
                continue;
            held[*from] = true;
            Lookup last;
            document->ForEachValue([&](const IniDocument::Value& value) {
                CheckText(Store::Reputation, *nick, file, value);
                if (!names::EqualIgnoringCase(value.key, reputation::RateKey))
                    return;
                const auto to = Find(last, value.section);
                if (!to) {
                    Add(Severity::Warning, Store::Reputation, *nick, file,
                        Where(value.section, value.key), value.stored,
                        "The rate toward " + Quoted(value.section) +
                            ", which is not registered (left behind by a deleted faction), is "
                            "not compiled.");
                    return;
                }
                CheckReputation(Store::Reputation, *nick, file, value, "The empathy rate");
                rates.Set(*from, *to, value.stored);
            });
        }
        for (std::size_t i = 0; i < factions_.size(); ++i)
            if (!held[i])
                Add(Severity::Warning, Store::Reputation, factions_[i], EmpathyFileOf(factions_[i]),
                    {}, {}, "The faction has no empathy file; every rate compiles as \"0.0\".");
        CheckHalfPairs(held, rates,
                       [&](std::size_t lacking, std::size_t other, std::string_view value) {
                           const std::string& faction = factions_[lacking];
                           Add(Severity::Note, Store::Reputation, faction, EmpathyFileOf(faction),
                               Where(factions_[other], reputation::RateKey), {},
                               "The faction has no rate toward " + Quoted(factions_[other]) +
                                   ", so it compiles as \"0.0\", while the rate back is " +
                                   Quoted(value) + ".");
                       });
    }

    std::string EmpathyFileOf(std::string_view faction) const {
        return std::string(EmpathyFolder) + "\\" + std::string(EmpathyPrefix) +
               std::string(faction) + std::string(EmpathySuffix);
    }

    // Mirror pairs with one half missing: the compilers give the missing half "0.0", so the
    // two factions end up apart. Halves that are both stored may differ on purpose (the
    // shipped library's do) and are left alone, as are factions the store lacks altogether.
    template <typename Report>
    void CheckHalfPairs(const std::vector<bool>& held, PairTable& pairs,
                        const Report& report) const {
        pairs.Finish();
        for (std::size_t i = 0; i < factions_.size(); ++i) {
            pairs.ForEach(i, [&](std::size_t j, std::string_view value) {
                if (j != i && held[j] && !pairs.Get(j, i) &&
                    !SameValue(value, reputation::DefaultValue))
                    report(j, i, value);
            });
        }
    }

    void CheckOption(std::string_view faction, const IniDocument::Value& value,
                     std::initializer_list<std::string_view> allowed) {
        for (const std::string_view option : allowed)
            if (value.stored == option)
                return;
        std::string list;
        for (const std::string_view option : allowed)
            list += (list.empty() ? "" : ", ") + Quoted(option);
        Add(Severity::Warning, Store::FactionProps, faction, PropertyFile,
            Where(value.section, value.key), value.stored,
            "The value " + Quoted(value.stored) + " is none of " + list +
                "; it compiles as stored, and loading the page replaces it.");
    }

    void CheckProperties() {
        namespace key = factionprops::key;
        namespace option = factionprops::value;
        const auto document = Load(Store::FactionProps, PropertyFile);
        std::vector<bool> held(factions_.size(), false);
        std::unordered_set<std::string> orphans;
        Lookup last;
        const auto costumes = SetOf(factionprops::CostumeCatalogue());
        if (document) {
            document->ForEachValue([&](const IniDocument::Value& value) {
                const std::string_view faction = value.section;
                const auto index = Find(last, faction);
                if (!index) {
                    NoteOrphanSection(Store::FactionProps, PropertyFile, faction, orphans);
                    return;
                }
                held[*index] = true;
                CheckText(Store::FactionProps, faction, PropertyFile, value);
                const auto is = [&value](std::string_view name) {
                    return names::EqualIgnoringCase(value.key, name);
                };
                if (is(key::ScanChance))
                    CheckNumber(Store::FactionProps, faction, PropertyFile, value,
                                "The scan chance");
                else if (is(key::Legality))
                    CheckOption(faction, value, {option::Lawful, option::Unlawful});
                else if (is(key::Plurality))
                    CheckOption(faction, value, {option::Singular, option::Plural});
                else if (is(key::Jump))
                    CheckOption(faction, value, {option::Jumpgate, option::Jumphole, option::Both});
                else if (is(key::ScanAnnounce))
                    CheckOption(faction, value, {"False", "True"});
                else if (is(key::McCostume) && !value.stored.empty() &&
                         !costumes.contains(value.stored))
                    Add(Severity::Warning, Store::FactionProps, faction, PropertyFile,
                        Where(faction, value.key), value.stored,
                        "No catalogue holds the costume " + Quoted(value.stored) +
                            " (fine if the mod adds it).");
            });
        }
        NoteMissing(Store::FactionProps, PropertyFile, held,
                    "The faction has no property sheet; it compiles with the page's defaults.");
    }

    void CheckListLines(const ListKind& kind, std::string_view faction, std::string_view file) {
        const auto bytes = Read(Store::FactionProps, faction, file);
        if (!bytes)
            return;
        const auto lines = txtReadWrite::SplitLines(*bytes);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string_view line = lines[i];
            const std::string where = "line " + std::to_string(i + 1);
            if (line.find_first_not_of(" \t") == std::string_view::npos) {
                // The empty line after the last entry is how every list file ends.
                if (!(line.empty() && i + 1 == lines.size()))
                    Add(Severity::Warning, Store::FactionProps, faction, file, where, line,
                        "The line is blank; the compiler skips it.")
                        .list = kind.list;
                continue;
            }
            const auto parts = Parts(line);
            if (parts.size() != kind.catalogues.size()) {
                Add(Severity::Warning, Store::FactionProps, faction, file, where, line,
                    "The " + std::string(kind.name) + " entry " + Quoted(line) + " is not " +
                        std::string(kind.form) + ".")
                    .list = kind.list;
                continue;
            }
            for (std::size_t p = 0; p < parts.size(); ++p)
                if (!kind.catalogues[p].contains(parts[p]))
                    Add(Severity::Warning, Store::FactionProps, faction, file, where, line,
                        "No catalogue holds " + Quoted(parts[p]) + " (fine if the mod adds it).")
                        .list = kind.list;
        }
    }

    void CheckLists() {
        using factionprops::PickList;
        const std::vector<ListKind> kinds = {
            {PickList::Ships, "ship", "", {SetOf(factionprops::ShipCatalogue())}},
            {PickList::Voices, "voice", "", {SetOf(factionprops::VoiceCatalogue())}},
            {PickList::Bodyparts,
             "body-part",
             "head, body and accessory",
             {SetOf(factionprops::HeadCatalogue()), SetOf(factionprops::BodyCatalogue()),
              SetOf(factionprops::CommAccessoryCatalogue())}},
            {PickList::Scan, "scan", "", {SetOf(factionprops::ScanCatalogue())}},
            {PickList::Formations,
             "formation",
             "a formation class and a formation",
             {SetOf(factionprops::FormationClassCatalogue()),
              SetOf(factionprops::FormationCatalogue())}},
        };
        for (const std::string& name : SortedFiles(ListFolder)) {
            for (const ListKind& kind : kinds) {
                const auto nick = NicknameIn(name, factionprops::ListPrefix(kind.list), ListSuffix);
                if (!nick)
                    continue;
                const std::string file = std::string(ListFolder) + "\\" + name;
                if (IndexOf(*nick))
                    CheckListLines(kind, *nick, file);
                else
                    Add(Severity::Warning, Store::FactionProps, *nick, file, {}, {},
                        "The list belongs to " + Quoted(*nick) +
                            ", which is not registered; it is not compiled.")
                        .list = kind.list;
                break;
            }
        }
    }

    void CheckInitialWorld() {
        const auto document = Load(Store::InitialWorld, WorldFile);
        std::vector<bool> held(factions_.size(), false);
        std::unordered_set<std::string> orphans;
        PairTable reputations(factions_.size());
        Lookup last, keys;
        const std::string_view idsKeys[] = {initialworld::IdsName, initialworld::IdsShortName,
                                            initialworld::IdsInfo};
        if (document) {
            document->ForEachValue([&](const IniDocument::Value& value) {
                const std::string_view faction = value.section;
                const auto index = Find(last, faction);
                if (!index) {
                    NoteOrphanSection(Store::InitialWorld, WorldFile, faction, orphans);
                    return;
                }
                held[*index] = true;
                CheckText(Store::InitialWorld, faction, WorldFile, value);
                bool ids = false;
                for (const std::string_view key : idsKeys)
                    ids = ids || names::EqualIgnoringCase(value.key, key);
                if (ids) {
                    if (value.stored == initialworld::MissingIds)
                        Add(Severity::Error, Store::InitialWorld, faction, WorldFile,
                            Where(faction, value.key), value.stored,
                            "The IDS number was never set: \"error\" is what the editor shows "
                            "for a missing one.");
                    else if (!IsWholeNumber(value.stored))
                        Add(Severity::Error, Store::InitialWorld, faction, WorldFile,
                            Where(faction, value.key), value.stored,
                            value.stored.empty() ? std::string("The IDS number is empty.")
                                                 : "The IDS number " + Quoted(value.stored) +
                                                       " is not a whole number.");
                } else if (const auto other = Find(keys, value.key)) {
                    CheckReputation(Store::InitialWorld, faction, WorldFile, value,
                                    "The starting reputation");
                    reputations.Set(*index, *other, value.stored);
                } else {
                    Add(Severity::Warning, Store::InitialWorld, faction, WorldFile,
                        Where(faction, value.key), value.stored,
                        "The starting reputation toward " + Quoted(value.key) +
                            ", which is not registered (left behind by a deleted faction), is "
                            "not compiled.");
                }
            });
            for (std::size_t i = 0; i < factions_.size(); ++i) {
                const std::string& faction = factions_[i];
                if (!held[i])
                    continue;
                for (const std::string_view key : idsKeys)
                    if (!document->Stored(faction, key))
                        Add(Severity::Error, Store::InitialWorld, faction, WorldFile,
                            Where(faction, key), {},
                            "The IDS number is missing; it compiles as an empty value.");
            }
            CheckHalfPairs(held, reputations,
                           [&](std::size_t lacking, std::size_t other, std::string_view value) {
                               Add(Severity::Note, Store::InitialWorld, factions_[lacking],
                                   WorldFile, Where(factions_[lacking], factions_[other]), {},
                                   "The faction has no starting reputation toward " +
                                       Quoted(factions_[other]) +
                                       ", so it compiles as \"0.0\", while the one back is " +
                                       Quoted(value) + ".");
                           });
        }
        NoteMissing(Store::InitialWorld, WorldFile, held,
                    "The faction has no initial-world entry; its IDS numbers compile empty and "
                    "every reputation as \"0.0\".");
    }

    std::string folder_;
    std::vector<std::string> factions_;                  // registry order, usable and unique
    std::unordered_map<std::string, std::size_t> index_; // folded nickname -> place
    mutable std::string fold_;                           // IndexOf's buffer
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> CheckProject(std::string_view appDir, std::string_view project) {
    return Checker(appDir, project).Run();
}

} // namespace check
