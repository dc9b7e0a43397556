#include "reputation/EmpathyRates.h"

#include "core/IniDocument.h"
#include "core/platform.h"

#include <optional>

namespace reputation {
namespace {

// The reading rules of the INI engine: blanks are spaces and tabs; a section line starts,
// after blanks, with "[" and names what follows up to "]"; a key line is any other line with
// "="; the first section of a name and the first key of a name in it count.
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

std::optional<std::string_view> SectionName(std::string_view line) {
    std::size_t i = 0;
    while (i < line.size() && IsBlank(line[i]))
        ++i;
    if (i == line.size() || line[i] != '[')
        return std::nullopt;
    std::string_view rest = line.substr(i + 1);
    const std::size_t close = rest.find(']');
    if (close != std::string_view::npos)
        rest = rest.substr(0, close);
    return Trim(rest);
}

bool IsRateKey(std::string_view key) {
    return key.size() == 3 && (key[0] | 0x20) == 'r' && (key[1] | 0x20) == 'e' &&
           (key[2] | 0x20) == 'p';
}

} // namespace

EmpathyRates::EmpathyRates(std::string bytes) : bytes_(std::move(bytes)) {
    const std::string_view all = bytes_;
    Stored* current = nullptr; // null: outside a section that counts
    std::size_t pos = 0;
    while (pos < all.size()) {
        std::size_t end = all.find('\n', pos);
        const std::size_t next = end == std::string_view::npos ? all.size() : end + 1;
        if (end == std::string_view::npos)
            end = all.size();
        else if (end > pos && all[end - 1] == '\r')
            --end;
        const std::string_view line = all.substr(pos, end - pos);
        pos = next;
        if (const auto name = SectionName(line)) {
            const auto [it, inserted] = rates_.try_emplace(ini::Fold(*name));
            current = inserted ? &it->second : nullptr;
            continue;
        }
        if (!current || current->found)
            continue;
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && IsRateKey(Trim(line.substr(0, equals)))) {
            const std::string_view value = Trim(line.substr(equals + 1));
            *current = {static_cast<std::size_t>(value.data() - all.data()), value.size(), true};
        }
    }
}

EmpathyRates EmpathyRates::Load(const std::string& empathyFile) {
    auto bytes = platform::ReadBytes(empathyFile);
    return bytes ? EmpathyRates(std::move(*bytes)) : EmpathyRates();
}

std::string EmpathyRates::Read(std::string_view toward, std::string_view defaultValue) const {
    std::string_view value = defaultValue;
    if (const auto it = rates_.find(ini::Fold(toward)); it != rates_.end() && it->second.found)
        value = std::string_view(bytes_).substr(it->second.offset, it->second.length);
    if (value.size() > ini::MaxReadBytes)
        value = value.substr(0, ini::MaxReadBytes);
    return ini::UnescapeLineBreaks(value);
}

} // namespace reputation
