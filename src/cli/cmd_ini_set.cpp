// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunIniSet(const Arguments& args, Context& context) {
    const std::string& file = args[0]; // a path, used as the system spells it
    const auto section = FileText(context, args[1]);
    const auto key = FileText(context, args[2]);
    const auto value = FileText(context, args[3]);
    if (!section || !key || !value)
        return Failed;
    txtReadWrite::WriteIni(*section, *key, *value, file);
    return Ok;
}

extern constinit const Command IniSetCommand{"ini-set", "FILE SECTION KEY VALUE",
                                             "write one INI value", RunIniSet, Exactly(4)};

} // namespace cli
