// SPDX-License-Identifier: GPL-3.0-or-later
#include "script/XmlScript.h"

#include <initializer_list>
#include <string_view>

namespace script {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

void AppendLines(std::string& out, std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) {
        out += line;
        out += kLineEnd;
    }
}

} // namespace

std::string BuildHeader(const ScriptHeader& header) {
    std::string out(kLineEnd);
    // clang-format off
    AppendLines(out, {
        "<header name=\"" + header.name + "\">",
        "",
        "<scriptversion>", header.scriptVersion, "</scriptversion>",
        "",
        "<modurl>", header.modUrl, "</modurl>",
        "",
        "<author>", header.author, "</author>",
        "",
        "<description>", header.description, "</description>",
        "</header>",
        "",
    });
    // clang-format on
    return out;
}

std::string BuildScript(const ScriptHeader* header) {
    std::string out = "<script>";
    if (header)
        out += BuildHeader(*header);
    out += kLineEnd;
    out += "</script>";
    return out;
}

} // namespace script
