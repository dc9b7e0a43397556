#pragma once
// One INI file held in memory: its lines byte for byte, plus an index of sections
// and keys, so that edits touch only the lines they must.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
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
    // Stores a value (CR LF escaped here). False when the stored value was equal already.
    bool Write(std::string_view section, std::string_view key, std::string_view value);

    bool HasSection(std::string_view section) const;
    // Section names in file order, as spelled in the file.
    std::vector<std::string> SectionNames() const;
    // The whole file as it would be written.
    std::string Bytes() const;
    bool Empty() const { return lines_.empty(); }

private:
    struct Line {
        std::string text;   // without its line end
        std::string ending; // "\r\n", "\n" or "" (last line only)
    };
    struct Section {
        std::string name;
        std::size_t header = 0;                            // line index of the section line
        std::size_t lastLine = 0;                          // last line before the next section line
        std::unordered_map<std::string, std::size_t> keys; // folded key -> line (first only)
    };
    void AddLine(std::string_view text, std::string_view ending);
    Section* FindSection(std::string_view section);
    const Section* FindSection(std::string_view section) const;

    std::vector<Line> lines_;
    std::vector<Section> sections_;
    std::unordered_map<std::string, std::size_t> sectionIndex_; // folded name -> first section
};

namespace ini {
inline constexpr std::size_t MaxReadBytes = 254;
inline constexpr std::string_view LineBreakEscape = "/20&\\";
std::string EscapeLineBreaks(std::string_view value);
std::string UnescapeLineBreaks(std::string_view stored);
// Case folding used for section and key names (ASCII and Windows-1252 letter pairs).
std::string Fold(std::string_view name);
} // namespace ini
