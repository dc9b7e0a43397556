// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The mod manager's install script: a <script> element, optionally holding a <header>
// that describes the mod. The values are inserted exactly as given: nothing is trimmed,
// checked or escaped, and the bytes pass through in whatever encoding they arrive.
#include <string>

namespace script {

// The header's values; a new one holds the texts the script page starts with.
struct ScriptHeader {
    std::string name = "MyFaction Mod";
    std::string scriptVersion = "1.0";
    std::string modUrl = "https://www.example.com/";
    std::string author = "MyName";
    std::string description = "Mod description";
};

// The header block: a CR LF that ends the "<script>" line, then nineteen lines, each
// ending in CR LF (the last one empty).
std::string BuildHeader(const ScriptHeader& header);

// The whole script. Without header: "<script>" CR LF "</script>". With header: "<script>",
// the header block, one more empty line, "</script>". Nothing follows "</script>".
std::string BuildScript(const ScriptHeader* header);

} // namespace script
