#include "cli/Command.h"

#include <clocale>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    std::setlocale(LC_TIME, ""); // protocol dates follow the user's locale
    return cli::Run(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
