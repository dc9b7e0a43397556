// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One INI file held in memory: its lines byte for byte, plus an index of sections and
// keys, so that edits touch only the lines they must. Parsing allocates little: lines are
// views into the file's bytes until they are rewritten, and the indexes are flat tables.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view bytes);

    // The stored value, blanks around it removed, before any cut or decoding; nullopt when the
    // section or key is missing. Views into the document last until its next write.
    std::optional<std::string_view> Stored(std::string_view section, std::string_view key) const;
    // The same with the section name's NameHash worked out by the caller: a compile reads the
    // same sections in hundreds of documents.
    std::optional<std::string_view> Stored(std::string_view section, std::uint64_t sectionHash,
                                           std::string_view key) const;
    static std::uint64_t NameHash(std::string_view name);
    // What a read returns: the stored value or the default, cut to 254 bytes, escapes decoded.
    std::string Read(std::string_view section, std::string_view key,
                     std::string_view defaultValue) const;
    // What Read on a document of these bytes returns, found by walking the lines once
    // without building the document: for a few reads near the top of a large file.
    static std::string ReadOnce(std::string_view bytes, std::string_view section,
                                std::string_view key, std::string_view defaultValue);
    // What Read returns for each of keys in one section, in their order; the section is
    // looked up once (compilers read every faction's value in a section).
    std::vector<std::string> ReadEach(std::string_view section,
                                      const std::vector<std::string>& keys,
                                      std::string_view defaultValue) const;
    // The same handed to take one by one, without a string for each value that needs no
    // decoding (the view lasts for the call).
    void ReadEach(std::string_view section, const std::vector<std::string>& keys,
                  std::string_view defaultValue,
                  const std::function<void(std::string_view)>& take) const;
    // What a read returns when the key is stored; nullopt when it is not (one lookup).
    std::optional<std::string> ReadStored(std::string_view section, std::string_view key) const;
    // Stores a value (CR LF escaped here). False when the stored value was equal already.
    bool Write(std::string_view section, std::string_view key, std::string_view value);
    // Write for each key and value in turn, with the same outcome; a section that is not
    // there yet is added in one piece, its key index made once at its final size (an import
    // adds a section of hundreds of keys per faction).
    using KeyValue = std::pair<std::string_view, std::string_view>;
    bool WriteEach(std::string_view section, const std::vector<KeyValue>& values);

    // A value line that a read can reach: the first line of its key in the first section of
    // its name (later repeats are shadowed). Views into the document; line counts from 1.
    struct Value {
        std::string_view section;
        std::string_view key;
        std::string_view stored; // blanks around it removed, as Stored gives it
        std::size_t line;
    };
    // Appends what a read returns for a stored value: cut to the read limit, escapes decoded.
    static void AppendAsRead(std::string& out, std::string_view stored);
    // Calls visit for every reachable value line, in file order.
    void ForEachValue(const std::function<void(const Value&)>& visit) const;

    // The whole file as it would be written.
    std::string Bytes() const;
    // The same handed to put in pieces of some hundred kilobytes, each valid for its call:
    // a large file is written without being assembled whole.
    void WriteTo(const std::function<void(std::string_view)>& put) const;
    bool Empty() const { return lines_.empty(); }
    // The memory the document holds for its text, its written lines and its indexes.
    std::size_t BytesHeld() const;

private:
    enum class Ending : std::uint8_t { None, Lf, CrLf };
    struct Line {
        std::uint32_t store;  // 0: the parsed bytes; n: written_[n - 1]
        std::uint32_t offset; // within the store
        std::uint32_t length; // without the line end
        Ending ending;
    };
    // Open-addressing table of ids (line offsets or section numbers) by case-folded name.
    class NameIndex {
    public:
        template <typename NameOf>
        std::optional<std::uint32_t> Find(std::string_view name, std::uint64_t hash,
                                          const NameOf& nameOf) const;
        // Makes room for this many names in all, so that inserting them grows nothing.
        void Reserve(std::size_t names);
        // Keeps the first occurrence: false when the name is there already.
        template <typename NameOf>
        bool Insert(std::string_view name, std::uint64_t hash, std::uint32_t id,
                    const NameOf& nameOf);
        std::size_t Size() const { return count_; }
        std::size_t BytesHeld() const { return slots_.capacity() * sizeof(Slot); }
        // Calls f(id) for every name held, in no particular order.
        template <typename F> void ForEachId(const F& f) const {
            for (const Slot& slot : slots_)
                if (slot.id != Empty)
                    f(slot.id);
        }

    private:
        struct Slot {
            std::uint32_t id = Empty;
            std::uint32_t hash = 0;
        };
        static constexpr std::uint32_t Empty = 0xFFFFFFFFu;
        void Grow(std::size_t slots);
        std::vector<Slot> slots_;
        std::size_t count_ = 0;
    };
    struct Section {
        std::uint32_t header = 0;   // line of the section line
        std::uint32_t lastLine = 0; // last line before the next section line
        std::uint32_t keyCount = 0; // key lines, counted while the section is small
        std::uint32_t nameOffset = 0, nameLength = 0; // the name within its header line
        bool indexed = false;    // keys is built (a small section is searched line by line)
        bool repeatsKey = false; // an indexed key appears on more than one line
        NameIndex keys;          // key -> line offset from the header
    };

    std::string_view Text(const Line& line) const;
    std::string_view Text(std::size_t line) const { return Text(lines_[line]); }
    std::string_view SectionName(std::size_t section) const;
    std::string_view KeyOfLine(std::size_t line) const;
    void AddLine(std::uint32_t store, std::size_t offset, std::size_t length, Ending ending);
    const Section* FindSection(std::string_view section) const;
    // FindSection for a write, remembering the section for the next write.
    const Section* SectionToWrite(std::string_view section);
    // keyHash: FoldedHash(key) when the caller has it already.
    std::optional<std::size_t> FindKeyLine(const Section& section, std::string_view key,
                                           std::optional<std::uint64_t> keyHash = {}) const;
    // FindKeyLine, trying first the line a caller expects the key on.
    std::optional<std::size_t> FindKeyLineNear(const Section& section, std::string_view key,
                                               std::size_t expected) const;
    std::optional<std::string_view> StoredIn(const Section* section, std::string_view key) const;
    std::string_view StoredOn(std::size_t line) const;
    // Counts a key line added to the section, indexing the section once it is no longer small.
    void AddKey(Section& section, std::string_view key, std::uint32_t line,
                std::optional<std::uint64_t> keyHash = {});
    // Where a written line's bytes went: its store, its offset there and its length.
    struct Placed {
        std::uint32_t store;
        std::uint32_t offset;
        std::uint32_t length;
    };
    // Copies a written line, given in pieces, into the current chunk of written_; when that is
    // full and most of written_ is replaced lines, into a compacted written_ instead.
    Placed Own(std::initializer_list<std::string_view> pieces);
    // Moves the written lines still in the document into one chunk with room for extra bytes;
    // returns the chunks they were in.
    std::deque<std::string> Compact(std::size_t extra);
    // Puts an escaped value on a key's line; false when it holds that value already.
    bool ReplaceValue(std::size_t line, std::string_view escaped);
    void AddOwnedLine(std::initializer_list<std::string_view> pieces, Ending ending);

    std::string bytes_;
    // Written lines, packed into chunks that are never grown past their reserved size, so
    // that views into them stay valid while later lines are written (and an import of
    // hundreds of thousands of keys does not allocate a string for each).
    std::deque<std::string> written_; // a deque: adding a chunk moves none of the others
    // Bytes of written_ in use, and how many of them lines of the document still show: each
    // edit of a value leaves its old line behind, so a long typing session is compacted.
    std::size_t writtenUsed_ = 0;
    std::size_t writtenLive_ = 0;
    std::vector<Line> lines_;
    std::vector<Section> sections_;
    NameIndex sectionIndex_; // section name -> number of its first occurrence
    static constexpr std::uint32_t NoSection = 0xFFFFFFFFu;
    std::uint32_t lastWritten_ = NoSection; // the section the last write found
};

namespace ini {
inline constexpr std::size_t MaxReadBytes = 254;
inline constexpr std::string_view LineBreakEscape = "/20&\\";
std::string EscapeLineBreaks(std::string_view value);
std::string UnescapeLineBreaks(std::string_view stored);
// How the document reads one line (without its line end), as views into it: the name of a
// section line (blanks around it removed), nullopt for any other line; the key of a line
// with "=" (blanks removed), nullopt for a line without one.
std::optional<std::string_view> SectionNameOfLine(std::string_view line);
std::optional<std::string_view> KeyOfLine(std::string_view line);
} // namespace ini
