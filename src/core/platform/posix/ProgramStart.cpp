// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProgramStart.h"

namespace platform {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

void PrepareStandardStreams() {}

} // namespace platform
