// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/IniDocument.h"

#include "core/names.h"

#include <algorithm>
#include <array>

namespace ini {

namespace {
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    // Nearly every value holds no line break: one scan for the pattern's first byte settles it.
    if (text.find(from.front()) == std::string_view::npos)
        return std::string(text);
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    for (;;) {
        const std::size_t hit = text.find(from, pos);
        if (hit == std::string_view::npos)
            break;
        out.append(text, pos, hit - pos);
        out.append(to);
        pos = hit + from.size();
    }
    out.append(text, pos);
    return out;
}
} // namespace

std::string EscapeLineBreaks(std::string_view value) {
    return ReplaceAll(value, "\r\n", LineBreakEscape);
}
std::string UnescapeLineBreaks(std::string_view stored) {
    return ReplaceAll(stored, LineBreakEscape, "\r\n");
}

} // namespace ini

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool IsBlankLine(std::string_view text) {
    return Trim(text).empty();
}

// The section name of a section line; nullopt for any other line.
std::optional<std::string_view> SectionNameOf(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && IsBlank(text[i]))
        ++i;
    if (i == text.size() || text[i] != '[')
        return std::nullopt;
    std::string_view rest = text.substr(i + 1);
    const std::size_t close = rest.find(']');
    if (close != std::string_view::npos)
        rest = rest.substr(0, close);
    return Trim(rest);
}

// The key of a value line (blanks removed); nullopt for a line without "=".
std::optional<std::string_view> KeyOf(std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    return Trim(text.substr(0, equals));
}

std::uint64_t FoldedHash(std::string_view name) {
    const auto& fold = names::FoldTable();
    std::uint64_t hash = 1469598103934665603ull;
    for (const char c : name) {
        hash ^= fold[static_cast<unsigned char>(c)];
        hash *= 1099511628211ull;
    }
    return hash;
}

// A value as it is stored, its line breaks escaped; most hold none and are stored as given,
// else the escaped form is made in copy.
std::string_view Escaped(std::string_view value, std::string& copy) {
    if (value.find('\r') == std::string_view::npos)
        return value;
    copy = ini::EscapeLineBreaks(value);
    return copy;
}

// A name index is grown before it is three quarters full: fuller, a probe walks far; emptier,
// an import's hundreds of thousands of keys take much more memory.
constexpr bool Crowded(std::size_t names, std::size_t slots) {
    return names * 4 > slots * 3;
}

// Sections with at most this many keys are searched line by line instead of indexed.
constexpr std::uint32_t SmallSection = 8;

// Copies a piece of a line to to, returning its end. Most pieces are a few bytes (a key,
// "=", a value, a line end): copied here, they cost less than a call of the library's copy.
char* CopyPiece(std::string_view piece, char* to) {
    if (piece.size() > 16)
        return std::copy(piece.begin(), piece.end(), to);
    for (const char c : piece)
        *to++ = c;
    return to;
}

constexpr std::string_view EndingBytes(std::uint8_t ending) {
    return ending == 2   ? std::string_view("\r\n")
           : ending == 1 ? std::string_view("\n")
                         : std::string_view();
}

} // namespace

std::optional<std::string_view> ini::SectionNameOfLine(std::string_view line) {
    return SectionNameOf(line);
}

std::optional<std::string_view> ini::KeyOfLine(std::string_view line) {
    return KeyOf(line);
}

// ---- NameIndex ----

template <typename NameOf>
std::optional<std::uint32_t> IniDocument::NameIndex::Find(std::string_view name, std::uint64_t hash,
                                                          const NameOf& nameOf) const {
    if (slots_.empty())
        return std::nullopt;
    const std::size_t mask = slots_.size() - 1;
    const auto shortHash = static_cast<std::uint32_t>(hash);
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = slots_[i];
        if (slot.id == Empty)
            return std::nullopt;
        if (slot.hash == shortHash && names::EqualIgnoringCase(nameOf(slot.id), name))
            return slot.id;
    }
}

template <typename NameOf>
bool IniDocument::NameIndex::Insert(std::string_view name, std::uint64_t hash, std::uint32_t id,
                                    const NameOf& nameOf) {
    if (Crowded(count_ + 1, slots_.size()))
        Grow(std::max<std::size_t>(8, slots_.size() * 2));
    const std::size_t mask = slots_.size() - 1;
    const auto shortHash = static_cast<std::uint32_t>(hash);
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        Slot& slot = slots_[i];
        if (slot.id == Empty) {
            slot = {id, shortHash};
            ++count_;
            return true;
        }
        if (slot.hash == shortHash && names::EqualIgnoringCase(nameOf(slot.id), name))
            return false;
    }
}

void IniDocument::NameIndex::Reserve(std::size_t names) {
    std::size_t slots = std::max<std::size_t>(8, slots_.size());
    while (Crowded(names, slots))
        slots *= 2;
    if (slots != slots_.size())
        Grow(slots);
}

void IniDocument::NameIndex::Grow(std::size_t slots) {
    // The stored 32 bits of each hash place it again; names need not be looked at.
    std::vector<Slot> old = std::move(slots_);
    slots_.assign(slots, Slot{});
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.id == Empty)
            continue;
        std::size_t i = slot.hash & mask;
        while (slots_[i].id != Empty)
            i = (i + 1) & mask;
        slots_[i] = slot;
    }
}

// ---- IniDocument ----

IniDocument::IniDocument(std::string_view bytes) : bytes_(bytes) {
    const std::string_view all = bytes_;
    std::size_t pos = 0;
    while (pos < all.size()) {
        const std::size_t lf = all.find('\n', pos);
        if (lf == std::string_view::npos) {
            AddLine(0, pos, all.size() - pos, Ending::None);
            break;
        }
        const bool crlf = lf > pos && all[lf - 1] == '\r';
        const std::size_t textEnd = crlf ? lf - 1 : lf;
        AddLine(0, pos, textEnd - pos, crlf ? Ending::CrLf : Ending::Lf);
        pos = lf + 1;
    }
}

std::string_view IniDocument::Text(const Line& line) const {
    const std::string& store = line.store == 0 ? bytes_ : written_[line.store - 1];
    return std::string_view(store).substr(line.offset, line.length);
}

std::size_t IniDocument::BytesHeld() const {
    std::size_t bytes = bytes_.capacity() + written_.size() * sizeof(std::string) +
                        lines_.capacity() * sizeof(Line) + sections_.capacity() * sizeof(Section) +
                        sectionIndex_.BytesHeld();
    for (const std::string& chunk : written_)
        bytes += chunk.capacity();
    for (const Section& section : sections_)
        bytes += section.keys.BytesHeld();
    return bytes;
}

std::string_view IniDocument::SectionName(std::size_t section) const {
    // Header lines are never rewritten, so the name's place in its line stays valid.
    const Section& found = sections_[section];
    return Text(found.header).substr(found.nameOffset, found.nameLength);
}

std::string_view IniDocument::KeyOfLine(std::size_t line) const {
    return *KeyOf(Text(line));
}

IniDocument::Placed IniDocument::Own(std::initializer_list<std::string_view> pieces) {
    // A chunk is filled up to the size reserved for it and never reallocated (a copied
    // document's chunks may hold no room to spare: the next line then starts a new chunk).
    // Each chunk is twice the size of the one before, up to a limit: a settings file with a
    // few written values stays small, and a large import asks for memory a few times only.
    constexpr std::size_t FirstChunk = 1024, LargestChunk = 1024 * 1024;
    std::deque<std::string> retired; // may hold the pieces: kept until they are copied
    std::size_t length = 0;
    for (const std::string_view piece : pieces)
        length += piece.size();
    if (written_.empty() || written_.back().capacity() - written_.back().size() < length) {
        // Compacting reads every line, so it waits until the replaced bytes are at least as
        // many as the live ones and as the lines: memory stays within a small multiple of
        // the text, and the work done per byte written stays constant.
        const std::size_t replaced = writtenUsed_ - writtenLive_;
        if (replaced > 0 && replaced >= writtenLive_ && replaced >= lines_.size()) {
            retired = Compact(std::max(FirstChunk, writtenLive_ + 2 * length));
        } else {
            const std::size_t size = written_.empty()
                                         ? FirstChunk
                                         : std::min(LargestChunk, 2 * written_.back().capacity());
            written_.emplace_back().reserve(std::max(size, length));
        }
    }
    writtenUsed_ += length;
    writtenLive_ += length;
    std::string& chunk = written_.back();
    const auto offset = static_cast<std::uint32_t>(chunk.size());
    // Grown once, then filled: three appends of a few bytes each cost more than the copying.
    chunk.resize(offset + length);
    char* to = chunk.data() + offset;
    for (const std::string_view piece : pieces)
        to = CopyPiece(piece, to);
    return {static_cast<std::uint32_t>(written_.size()), offset,
            static_cast<std::uint32_t>(length)};
}

std::deque<std::string> IniDocument::Compact(std::size_t extra) {
    std::string chunk;
    chunk.reserve(writtenLive_ + extra);
    for (Line& line : lines_) {
        if (line.store == 0)
            continue;
        const std::string_view text = Text(line);
        line = {1, static_cast<std::uint32_t>(chunk.size()), line.length, line.ending};
        chunk += text;
    }
    std::deque<std::string> retired;
    retired.swap(written_);
    written_.push_back(std::move(chunk));
    writtenUsed_ = written_.back().size();
    writtenLive_ = writtenUsed_;
    return retired;
}

void IniDocument::AddOwnedLine(std::initializer_list<std::string_view> pieces, Ending ending) {
    const Placed placed = Own(pieces);
    AddLine(placed.store, placed.offset, placed.length, ending);
}

void IniDocument::AddLine(std::uint32_t store, std::size_t offset, std::size_t length,
                          Ending ending) {
    const auto index = static_cast<std::uint32_t>(lines_.size());
    lines_.push_back(
        {store, static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(length), ending});
    const std::string_view text = Text(lines_.back());
    if (const auto name = SectionNameOf(text)) {
        const auto number = static_cast<std::uint32_t>(sections_.size());
        sections_.push_back({index,
                             index,
                             0,
                             static_cast<std::uint32_t>(name->data() - text.data()),
                             static_cast<std::uint32_t>(name->size()),
                             false,
                             false,
                             {}});
        sectionIndex_.Insert(*name, FoldedHash(*name), number,
                             [this](std::uint32_t id) { return SectionName(id); });
        return;
    }
    if (sections_.empty())
        return;
    Section& section = sections_.back();
    section.lastLine = index;
    if (const auto key = KeyOf(text))
        AddKey(section, *key, index);
}

void IniDocument::AddKey(Section& section, std::string_view key, std::uint32_t line,
                         std::optional<std::uint64_t> keyHash) {
    const std::uint32_t header = section.header;
    const auto keyOf = [this, header](std::uint32_t id) { return KeyOfLine(header + id); };
    if (section.indexed) {
        if (!section.keys.Insert(key, keyHash ? *keyHash : FoldedHash(key), line - header, keyOf))
            section.repeatsKey = true;
        return;
    }
    // Most sections hold a key or two (one rate per section in an empathy file): a hash table
    // each would cost more to build than the few lines cost to search.
    if (++section.keyCount <= SmallSection)
        return;
    section.indexed = true;
    for (std::uint32_t at = header + 1; at <= section.lastLine; ++at)
        if (const auto name = KeyOf(Text(at)))
            if (!section.keys.Insert(*name, FoldedHash(*name), at - header, keyOf))
                section.repeatsKey = true;
}

const IniDocument::Section* IniDocument::FindSection(std::string_view section) const {
    const auto found = sectionIndex_.Find(section, FoldedHash(section),
                                          [this](std::uint32_t id) { return SectionName(id); });
    return found ? &sections_[*found] : nullptr;
}

std::optional<std::size_t> IniDocument::FindKeyLine(const Section& section, std::string_view key,
                                                    std::optional<std::uint64_t> keyHash) const {
    const std::uint32_t header = section.header;
    if (!section.indexed) {
        // The first of equal keys counts, as in the index.
        for (std::uint32_t at = header + 1; at <= section.lastLine; ++at)
            if (const auto name = KeyOf(Text(at)); name && names::EqualIgnoringCase(*name, key))
                return at;
        return std::nullopt;
    }
    const auto found =
        section.keys.Find(key, keyHash ? *keyHash : FoldedHash(key),
                          [this, header](std::uint32_t id) { return KeyOfLine(header + id); });
    if (!found)
        return std::nullopt;
    return header + *found;
}

std::optional<std::size_t> IniDocument::FindKeyLineNear(const Section& section,
                                                        std::string_view key,
                                                        std::size_t expected) const {
    // Where no key repeats, a line holding the key is the line a lookup finds: one comparison
    // instead of hashing, when keys are read in the order of the file.
    if (section.indexed && !section.repeatsKey && expected > section.header &&
        expected <= section.lastLine)
        if (const auto name = KeyOf(Text(expected)); name && names::EqualIgnoringCase(*name, key))
            return expected;
    return FindKeyLine(section, key);
}

std::string_view IniDocument::StoredOn(std::size_t line) const {
    const std::string_view text = Text(line);
    return Trim(text.substr(text.find('=') + 1));
}

std::optional<std::string_view> IniDocument::Stored(std::string_view section,
                                                    std::string_view key) const {
    return StoredIn(FindSection(section), key);
}

std::optional<std::string_view> IniDocument::Stored(std::string_view section,
                                                    std::uint64_t sectionHash,
                                                    std::string_view key) const {
    const auto found = sectionIndex_.Find(section, sectionHash,
                                          [this](std::uint32_t id) { return SectionName(id); });
    return StoredIn(found ? &sections_[*found] : nullptr, key);
}

std::uint64_t IniDocument::NameHash(std::string_view name) {
    return FoldedHash(name);
}

std::optional<std::string_view> IniDocument::StoredIn(const Section* found,
                                                      std::string_view key) const {
    if (!found)
        return std::nullopt;
    const auto line = FindKeyLine(*found, key);
    if (!line)
        return std::nullopt;
    return StoredOn(*line);
}

namespace {
// Short values without the escape's first byte read back as they are stored.
bool ReadsAsStored(std::string_view stored) {
    return stored.size() <= ini::MaxReadBytes &&
           stored.find(ini::LineBreakEscape.front()) == std::string_view::npos;
}

// A value as a read returns it: cut to the read limit, then escapes decoded.
std::string Decoded(std::string_view value) {
    if (value.size() > ini::MaxReadBytes)
        value = value.substr(0, ini::MaxReadBytes);
    return ini::UnescapeLineBreaks(value);
}
} // namespace

namespace {
// Walks the lines of bytes, split as the document splits them, until visit returns true.
template <typename Visit> void ForEachLine(std::string_view bytes, const Visit& visit) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        std::size_t lf = bytes.find('\n', pos);
        if (lf == std::string_view::npos)
            lf = bytes.size();
        const std::size_t end =
            (lf > pos && lf < bytes.size() && bytes[lf - 1] == '\r') ? lf - 1 : lf;
        if (visit(bytes.substr(pos, end - pos)))
            return;
        pos = lf + 1;
    }
}
} // namespace

void IniDocument::AppendAsRead(std::string& out, std::string_view stored) {
    if (ReadsAsStored(stored))
        out += stored;
    else
        out += Decoded(stored);
}

std::string IniDocument::ReadOnce(std::string_view bytes, std::string_view section,
                                  std::string_view key, std::string_view defaultValue) {
    // As the indexes decide: the first section of the name, and in it the first line of the key.
    std::optional<std::string_view> stored;
    bool inSection = false, sectionSeen = false;
    ForEachLine(bytes, [&](std::string_view text) {
        if (const auto name = SectionNameOf(text)) {
            if (sectionSeen)
                return true; // the first section of the name has ended
            inSection = sectionSeen = names::EqualIgnoringCase(*name, section);
            return false;
        }
        if (const auto name = inSection ? KeyOf(text) : std::nullopt;
            name && names::EqualIgnoringCase(*name, key)) {
            stored = Trim(text.substr(text.find('=') + 1));
            return true;
        }
        return false;
    });
    return Decoded(stored.value_or(defaultValue));
}

std::string IniDocument::Read(std::string_view section, std::string_view key,
                              std::string_view defaultValue) const {
    return Decoded(Stored(section, key).value_or(defaultValue));
}

std::vector<std::string> IniDocument::ReadEach(std::string_view section,
                                               const std::vector<std::string>& keys,
                                               std::string_view defaultValue) const {
    std::vector<std::string> values;
    values.reserve(keys.size());
    ReadEach(section, keys, defaultValue,
             [&values](std::string_view value) { values.emplace_back(value); });
    return values;
}

void IniDocument::ReadEach(std::string_view section, const std::vector<std::string>& keys,
                           std::string_view defaultValue,
                           const std::function<void(std::string_view)>& take) const {
    const Section* found = FindSection(section);
    std::size_t expected = 0; // the line after the last one found
    for (const std::string& key : keys) {
        std::optional<std::size_t> line;
        if (found)
            line = FindKeyLineNear(*found, key, expected);
        if (line)
            expected = *line + 1;
        const std::string_view value = line ? StoredOn(*line) : defaultValue;
        if (ReadsAsStored(value))
            take(value);
        else
            take(Decoded(value));
    }
}

std::optional<std::string> IniDocument::ReadStored(std::string_view section,
                                                   std::string_view key) const {
    const auto stored = Stored(section, key);
    if (!stored)
        return std::nullopt;
    return Decoded(*stored);
}

const IniDocument::Section* IniDocument::SectionToWrite(std::string_view section) {
    // Batches write many keys into one section in a row. The section remembered is the first
    // of its name, and stays so: new sections only ever go to the end.
    if (lastWritten_ < sections_.size() &&
        names::EqualIgnoringCase(SectionName(lastWritten_), section))
        return &sections_[lastWritten_];
    // A section that the write adds is not remembered: its header may read as the name of
    // an earlier section (blanks, a "]" in the name).
    const Section* found = FindSection(section);
    lastWritten_ = found ? static_cast<std::uint32_t>(found - sections_.data()) : NoSection;
    return found;
}

bool IniDocument::ReplaceValue(std::size_t line, std::string_view escaped) {
    const std::string_view text = Text(line);
    const std::size_t equals = text.find('=');
    if (Trim(text.substr(equals + 1)) == escaped)
        return false;
    // The key keeps its spelling (and so its place in the index).
    const Placed placed = Own({Trim(text.substr(0, equals)), "=", escaped});
    if (lines_[line].store != 0)
        writtenLive_ -= lines_[line].length; // the old line's bytes are left behind
    lines_[line] = {placed.store, placed.offset, placed.length, lines_[line].ending};
    return true;
}

bool IniDocument::Write(std::string_view section, std::string_view key, std::string_view value) {
    std::string escapedCopy;
    const std::string_view escaped = Escaped(value, escapedCopy);
    const Section* constFound = SectionToWrite(section);
    if (!constFound) {
        if (!lines_.empty() && lines_.back().ending == Ending::None)
            lines_.back().ending = Ending::CrLf;
        AddOwnedLine({"[", section, "]"}, Ending::CrLf);
        AddOwnedLine({key, "=", escaped}, Ending::CrLf);
        return true;
    }
    Section& found = sections_[static_cast<std::size_t>(constFound - sections_.data())];
    // Hashed once: a key that is not there yet is looked up, then indexed.
    const std::uint64_t keyHash = FoldedHash(key);
    if (const auto at = FindKeyLine(found, key, keyHash))
        return ReplaceValue(*at, escaped);
    // A new key goes right after the section's last non-blank line.
    std::size_t after = found.lastLine;
    while (after > found.header && IsBlankLine(Text(after)))
        --after;
    if (lines_[after].ending == Ending::None)
        lines_[after].ending = Ending::CrLf;
    const auto index = static_cast<std::uint32_t>(after + 1);
    const Placed placed = Own({key, "=", escaped});
    lines_.insert(lines_.begin() + index,
                  Line{placed.store, placed.offset, placed.length, Ending::CrLf});
    // Keys are kept relative to their header, so only later headers move.
    ++found.lastLine;
    for (auto s = sections_.begin() + (&found - sections_.data()) + 1; s != sections_.end(); ++s) {
        ++s->header;
        ++s->lastLine;
    }
    // Indexed under the key as a reading of the line finds it, which blanks around the given
    // key or a "=" in it would change.
    const std::string_view lineKey = KeyOfLine(index);
    AddKey(found, lineKey, index,
           lineKey == key ? std::optional<std::uint64_t>(keyHash) : std::nullopt);
    return true;
}

bool IniDocument::WriteEach(std::string_view section, const std::vector<KeyValue>& values) {
    // A new section is added in one piece only when its header line reads back as its name
    // (a "]" or blanks at its ends would not), as the later writes of Write find it then.
    const bool readsBack =
        section.find_first_of("]\r\n") == std::string_view::npos && Trim(section) == section;
    if (values.empty() || !readsBack || SectionToWrite(section)) {
        bool changed = false;
        for (const auto& [key, value] : values)
            changed = Write(section, key, value) || changed;
        return changed;
    }
    if (!lines_.empty() && lines_.back().ending == Ending::None)
        lines_.back().ending = Ending::CrLf;
    const std::size_t needed = lines_.size() + 1 + values.size();
    // Grown fourfold: room reserved and not yet used costs no memory, while each growth
    // copies every line.
    if (lines_.capacity() < needed)
        lines_.reserve(std::max(needed, 4 * lines_.capacity()));
    AddOwnedLine({"[", section, "]"}, Ending::CrLf);
    const auto number = sections_.size() - 1;
    if (values.size() > SmallSection) {
        sections_[number].keyCount = static_cast<std::uint32_t>(values.size());
        sections_[number].indexed = true;
        sections_[number].keys.Reserve(values.size());
    }
    for (const auto& [key, value] : values) {
        std::string escapedCopy;
        const std::string_view escaped = Escaped(value, escapedCopy);
        const std::uint64_t keyHash = FoldedHash(key);
        // A key given twice: the later value replaces the earlier, as with Write.
        if (const auto at = FindKeyLine(sections_[number], key, keyHash)) {
            ReplaceValue(*at, escaped);
            continue;
        }
        // A key without blanks at its ends, "=" or a leading "[" is its line's key, as the
        // parsing of the line would find: the line is added without being parsed.
        const bool plainKey = !key.empty() && key.front() != '[' &&
                              key.find('=') == std::string_view::npos && Trim(key) == key;
        if (!plainKey) {
            AddOwnedLine({key, "=", escaped}, Ending::CrLf);
            continue;
        }
        const Placed placed = Own({key, "=", escaped});
        const auto index = static_cast<std::uint32_t>(lines_.size());
        lines_.push_back({placed.store, placed.offset, placed.length, Ending::CrLf});
        sections_[number].lastLine = index;
        AddKey(sections_[number], key, index, keyHash);
    }
    return true;
}

void IniDocument::ForEachValue(const std::function<void(const Value&)>& visit) const {
    // Only the first section of a name is reachable, and in it the first line of each key:
    // a key line counts when the lookup of its own key finds that very line.
    std::vector<bool> firstSection(sections_.size(), false);
    sectionIndex_.ForEachId([&](std::uint32_t number) { firstSection[number] = true; });
    for (std::size_t s = 0; s < sections_.size(); ++s) {
        if (!firstSection[s])
            continue;
        const Section& section = sections_[s];
        const std::string_view name = SectionName(s);
        for (std::size_t line = section.header + 1; line <= section.lastLine; ++line) {
            const std::string_view text = Text(line);
            const auto key = KeyOf(text);
            if (!key || FindKeyLine(section, *key) != line)
                continue;
            visit({name, *key, Trim(text.substr(text.find('=') + 1)), line + 1});
        }
    }
}

std::string IniDocument::Bytes() const {
    std::string out;
    WriteTo([&out](std::string_view piece) {
        if (out.empty())
            out = piece; // a small file is one piece
        else
            out += piece;
    });
    return out;
}

void IniDocument::WriteTo(const std::function<void(std::string_view)>& put) const {
    constexpr std::size_t PieceSize = 256 * 1024;
    std::size_t size = 0;
    for (const Line& line : lines_)
        size += line.length + 2;
    std::string buffer(std::min(size, PieceSize), '\0');
    char* to = buffer.data();
    for (const Line& line : lines_) {
        const std::string_view text = Text(line);
        const std::string_view end = EndingBytes(static_cast<std::uint8_t>(line.ending));
        if (static_cast<std::size_t>(buffer.data() + buffer.size() - to) < text.size() + 2) {
            put(std::string_view(buffer.data(), static_cast<std::size_t>(to - buffer.data())));
            to = buffer.data();
            if (text.size() + 2 > buffer.size()) { // a line longer than a piece
                put(text);
                put(end);
                continue;
            }
        }
        to = CopyPiece(end, CopyPiece(text, to));
    }
    if (to != buffer.data())
        put(std::string_view(buffer.data(), static_cast<std::size_t>(to - buffer.data())));
}
