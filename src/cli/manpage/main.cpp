// SPDX-License-Identifier: GPL-3.0-or-later
// Build tool: writes a manual page, orrindel-cli's or the window program's, to a file.
#include "cli/ManPage.h"

#include <fstream>
#include <iostream>
#include <string_view>

int main(int argc, char** argv) {
    const std::string_view page = argc == 3 ? argv[1] : "";
    if (page != "orrindel-cli" && page != "orrindel") {
        std::cerr << "usage: orrindel-cli-manpage orrindel-cli|orrindel FILE\n";
        return 1;
    }
    std::ofstream file(argv[2], std::ios::binary);
    if (page == "orrindel")
        cli::WriteWindowManPage(file);
    else
        cli::WriteManPage(file);
    file.close();
    if (!file) {
        std::cerr << "orrindel-cli-manpage: cannot write " << argv[2] << "\n";
        return 2;
    }
    return 0;
}
