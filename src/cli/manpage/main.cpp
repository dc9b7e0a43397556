// Build tool: writes the manual page of orrindel-cli to the file named by its argument.
#include "cli/ManPage.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: orrindel-cli-manpage FILE\n";
        return 1;
    }
    std::ofstream file(argv[1], std::ios::binary);
    cli::WriteManPage(file);
    file.close();
    if (!file) {
        std::cerr << "orrindel-cli-manpage: cannot write " << argv[1] << "\n";
        return 2;
    }
    return 0;
}
