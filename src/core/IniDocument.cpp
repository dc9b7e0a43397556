#include "core/IniDocument.h"

#include "core/names.h"

#include <algorithm>

namespace ini {

namespace {
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
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
std::string Fold(std::string_view name) {
    return names::Folded(name);
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
std::optional<std::string_view> SectionName(std::string_view text) {
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

} // namespace

IniDocument::IniDocument(std::string_view bytes) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        const std::size_t lf = bytes.find('\n', pos);
        if (lf == std::string_view::npos) {
            AddLine(bytes.substr(pos), "");
            break;
        }
        const bool crlf = lf > pos && bytes[lf - 1] == '\r';
        const std::size_t textEnd = crlf ? lf - 1 : lf;
        AddLine(bytes.substr(pos, textEnd - pos), crlf ? "\r\n" : "\n");
        pos = lf + 1;
    }
}

void IniDocument::AddLine(std::string_view text, std::string_view ending) {
    const std::size_t index = lines_.size();
    lines_.push_back({std::string(text), std::string(ending)});
    if (const auto name = SectionName(text)) {
        sectionIndex_.try_emplace(ini::Fold(*name), sections_.size());
        sections_.push_back({std::string(*name), index, index, {}});
        return;
    }
    if (sections_.empty())
        return;
    Section& section = sections_.back();
    section.lastLine = index;
    const std::size_t equals = text.find('=');
    if (equals != std::string_view::npos)
        section.keys.try_emplace(ini::Fold(Trim(text.substr(0, equals))), index);
}

IniDocument::Section* IniDocument::FindSection(std::string_view section) {
    const auto it = sectionIndex_.find(ini::Fold(section));
    return it == sectionIndex_.end() ? nullptr : &sections_[it->second];
}

const IniDocument::Section* IniDocument::FindSection(std::string_view section) const {
    const auto it = sectionIndex_.find(ini::Fold(section));
    return it == sectionIndex_.end() ? nullptr : &sections_[it->second];
}

std::optional<std::string_view> IniDocument::Stored(std::string_view section,
                                                    std::string_view key) const {
    const Section* found = FindSection(section);
    if (!found)
        return std::nullopt;
    const auto it = found->keys.find(ini::Fold(key));
    if (it == found->keys.end())
        return std::nullopt;
    const std::string_view text = lines_[it->second].text;
    return Trim(text.substr(text.find('=') + 1));
}

std::string IniDocument::Read(std::string_view section, std::string_view key,
                              std::string_view defaultValue) const {
    std::string_view value = Stored(section, key).value_or(defaultValue);
    if (value.size() > ini::MaxReadBytes)
        value = value.substr(0, ini::MaxReadBytes);
    return ini::UnescapeLineBreaks(value);
}

bool IniDocument::Write(std::string_view section, std::string_view key, std::string_view value) {
    const std::string escaped = ini::EscapeLineBreaks(value);
    Section* found = FindSection(section);
    if (!found) {
        if (!lines_.empty() && lines_.back().ending.empty())
            lines_.back().ending = "\r\n";
        AddLine("[" + std::string(section) + "]", "\r\n");
        AddLine(std::string(key) + "=" + escaped, "\r\n");
        return true;
    }
    const auto it = found->keys.find(ini::Fold(key));
    if (it != found->keys.end()) {
        Line& line = lines_[it->second];
        const std::string_view text = line.text;
        const std::size_t equals = text.find('=');
        if (Trim(text.substr(equals + 1)) == escaped)
            return false;
        line.text = std::string(Trim(text.substr(0, equals))) + "=" + escaped;
        return true;
    }
    // A new key goes right after the section's last non-blank line.
    std::size_t after = found->lastLine;
    while (after > found->header && IsBlankLine(lines_[after].text))
        --after;
    if (lines_[after].ending.empty())
        lines_[after].ending = "\r\n";
    const std::size_t index = after + 1;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index),
                  Line{std::string(key) + "=" + escaped, "\r\n"});
    // The section's own keys all lie before the new line; only later sections move down.
    found->lastLine = std::max(found->lastLine + 1, index);
    for (auto s = sections_.begin() + (found - sections_.data()) + 1; s != sections_.end(); ++s) {
        ++s->header;
        ++s->lastLine;
        for (auto& entry : s->keys)
            ++entry.second;
    }
    found->keys.try_emplace(ini::Fold(key), index);
    return true;
}

bool IniDocument::HasSection(std::string_view section) const {
    return FindSection(section) != nullptr;
}

std::vector<std::string> IniDocument::SectionNames() const {
    std::vector<std::string> out;
    out.reserve(sections_.size());
    for (const Section& s : sections_)
        out.push_back(s.name);
    return out;
}

std::string IniDocument::Bytes() const {
    std::size_t size = 0;
    for (const Line& line : lines_)
        size += line.text.size() + line.ending.size();
    std::string out;
    out.reserve(size);
    for (const Line& line : lines_) {
        out += line.text;
        out += line.ending;
    }
    return out;
}
