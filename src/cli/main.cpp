// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/ProgramStart.h"

#include <clocale>
#include <iostream>

int main(int argc, char** argv) {
    std::setlocale(LC_TIME, ""); // protocol dates follow the user's locale
    platform::PrepareStandardStreams();
    return cli::Run(platform::ProgramArguments(argc, argv), std::cout, std::cerr);
}
