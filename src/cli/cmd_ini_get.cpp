// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunIniGet(const Arguments& args, Context& context) {
    const std::string& file = args[0]; // a path, used as the system spells it
    const auto section = FileText(context, args[1]);
    const auto key = FileText(context, args[2]);
    const auto fallback = FileText(context, args.size() == 4 ? args[3] : std::string());
    if (!section || !key || !fallback)
        return Failed;
    Print(context, txtReadWrite::ReadIni(*section, *key, *fallback, file));
    return Ok;
}

extern constinit const Command IniGetCommand{"ini-get", "FILE SECTION KEY [DEFAULT]",
                                             "print the value that an INI read returns", RunIniGet,
                                             Between(3, 4)};

} // namespace cli
