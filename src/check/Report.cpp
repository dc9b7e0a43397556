// SPDX-License-Identifier: GPL-3.0-or-later
// The two printed forms of a check's findings.
#include "check/ProjectCheck.h"

#include <algorithm>
#include <cstdio>

namespace check {
namespace {

// A field of the tab-separated form: a tab or line break inside would break the line apart.
void AppendField(std::string& out, std::string_view field) {
    for (const char c : field)
        out += (c == '\t' || c == '\r' || c == '\n') ? ' ' : c;
}

void AppendJsonString(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", byte);
            out += escaped;
        } else {
            out += c;
        }
    }
    out += '"';
}

} // namespace

std::string_view SeverityName(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return "error";
    case Severity::Warning:
        return "warning";
    case Severity::Note:
        return "note";
    }
    return {};
}

bool HasError(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

std::string TextReport(const std::vector<Finding>& findings) {
    std::string out;
    for (const Finding& finding : findings) {
        out += SeverityName(finding.severity);
        for (const std::string* field :
             {&finding.faction, &finding.file, &finding.where, &finding.message}) {
            out += '\t';
            AppendField(out, *field);
        }
        out += '\n';
    }
    return out;
}

std::string JsonReport(const std::vector<Finding>& findings) {
    if (findings.empty())
        return "[]\n";
    std::string out = "[\n";
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const Finding& finding = findings[i];
        out += "  {\"severity\": ";
        AppendJsonString(out, SeverityName(finding.severity));
        const std::pair<const char*, const std::string*> fields[] = {
            {"faction", &finding.faction}, {"file", &finding.file},       {"where", &finding.where},
            {"stored", &finding.stored},   {"message", &finding.message},
        };
        for (const auto& [name, value] : fields) {
            out += ", \"";
            out += name;
            out += "\": ";
            AppendJsonString(out, *value);
        }
        out += i + 1 < findings.size() ? "},\n" : "}\n";
    }
    out += "]\n";
    return out;
}

} // namespace check
