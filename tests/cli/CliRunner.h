// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Runs orrindel-cli in-process on an application folder and keeps what it printed.
#include "cli/Command.h"

#include <sstream>
#include <string>
#include <vector>

struct CliRunner {
    int Run(std::vector<std::string> args) {
        out.str("");
        err.str("");
        args.insert(args.begin(), {"--app-dir", appDir});
        return cli::Run(args, out, err);
    }
    std::string appDir;
    std::ostringstream out, err;
};
