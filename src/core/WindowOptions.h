// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The options of the window program, orrindel. Its --help and its manual page are both written
// from this table, so they cannot list different options.
#include <array>
#include <ostream>
#include <string_view>

namespace windowOptions {

struct Option {
    std::string_view name;
    std::string_view argument; // empty when the option takes none
    std::string_view summary;
};

inline constexpr std::array<Option, 3> Options{{
    {"--app-dir", "DIR", "Work on the application folder DIR instead of the default one."},
    {"--help", "", "Print these options and exit."},
    {"--version", "", "Print the version and exit."},
}};

// What `orrindel --help` prints: needs no display.
void WriteHelp(std::ostream& out);

} // namespace windowOptions
