#pragma once
// One INI file held in memory: its lines byte for byte, plus an index of sections and
// keys, so that edits touch only the lines they must. Parsing allocates little: lines are
// views into the file's bytes until they are rewritten, and the indexes are flat tables.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IniDocument {
public:
    IniDocument() = default;
    explicit IniDocument(std::string_view bytes);

    // The stored value, blanks around it removed, before any cut or decoding;
    // nullopt when the section or key is missing.
    std::optional<std::string_view> Stored(std::string_view section, std::string_view key) const;
    // What a read returns: the stored value or the default, cut to 254 bytes, escapes decoded.
    std::string Read(std::string_view section, std::string_view key,
                     std::string_view defaultValue) const;
    // What a read returns when the key is stored; nullopt when it is not (one lookup).
    std::optional<std::string> ReadStored(std::string_view section, std::string_view key) const;
    // Stores a value (CR LF escaped here). False when the stored value was equal already.
    bool Write(std::string_view section, std::string_view key, std::string_view value);

    // A value line that a read can reach: the first line of its key in the first section of
    // its name (later repeats are shadowed). Views into the document; line counts from 1.
    struct Value {
        std::string_view section;
        std::string_view key;
        std::string_view stored; // blanks around it removed, as Stored gives it
        std::size_t line;
    };
    // Calls visit for every reachable value line, in file order.
    void ForEachValue(const std::function<void(const Value&)>& visit) const;

    // The whole file as it would be written.
    std::string Bytes() const;
    bool Empty() const { return lines_.empty(); }

private:
    enum class Ending : std::uint8_t { None, Lf, CrLf };
    struct Line {
        std::uint32_t store;  // 0: the parsed bytes; n: owned_[n - 1]
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
        // Keeps the first occurrence: false when the name is there already.
        template <typename NameOf>
        bool Insert(std::string_view name, std::uint64_t hash, std::uint32_t id,
                    const NameOf& nameOf);
        std::size_t Size() const { return count_; }
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
        void Grow();
        std::vector<Slot> slots_;
        std::size_t count_ = 0;
    };
    struct Section {
        std::uint32_t header = 0;   // line of the section line
        std::uint32_t lastLine = 0; // last line before the next section line
        std::uint32_t keyCount = 0; // key lines, counted while the section is small
        bool indexed = false;       // keys is built (a small section is searched line by line)
        NameIndex keys;             // key -> line offset from the header
    };

    std::string_view Text(const Line& line) const;
    std::string_view Text(std::size_t line) const { return Text(lines_[line]); }
    std::string_view SectionName(std::size_t section) const;
    std::string_view KeyOfLine(std::size_t line) const;
    void AddLine(std::uint32_t store, std::size_t offset, std::size_t length, Ending ending);
    const Section* FindSection(std::string_view section) const;
    std::optional<std::size_t> FindKeyLine(const Section& section, std::string_view key) const;
    // Counts a key line added to the section, indexing the section once it is no longer small.
    void AddKey(Section& section, std::string_view key, std::uint32_t line);
    std::uint32_t Own(std::string text);

    std::string bytes_;
    std::vector<std::string> owned_;
    std::vector<Line> lines_;
    std::vector<Section> sections_;
    NameIndex sectionIndex_; // section name -> number of its first occurrence
};

namespace ini {
inline constexpr std::size_t MaxReadBytes = 254;
inline constexpr std::string_view LineBreakEscape = "/20&\\";
std::string EscapeLineBreaks(std::string_view value);
std::string UnescapeLineBreaks(std::string_view stored);
// Case folding used for section and key names (ASCII and Windows-1252 letter pairs).
std::string Fold(std::string_view name);
} // namespace ini
