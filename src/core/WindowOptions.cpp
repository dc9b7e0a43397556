// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/WindowOptions.h"

#include <string>

namespace windowOptions {

void WriteHelp(std::ostream& out) {
    out << "usage: orrindel [--app-dir DIR]\n"
           "       orrindel --help | --version\n"
           "Opens the Orrindel editor on the application folder's projects.\n\n"
           "options:\n";
    for (const Option& option : Options) {
        std::string head(2, ' ');
        head.append(option.name);
        if (!option.argument.empty())
            head.append(1, ' ').append(option.argument);
        if (head.size() < 16)
            head.resize(16, ' ');
        out << head << "  " << option.summary << "\n";
    }
}

} // namespace windowOptions
