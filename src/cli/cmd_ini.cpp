#include "cli/Command.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"

namespace cli {

int RunIniGet(const Arguments& args, Context& context) {
    if (args.size() < 3 || args.size() > 4)
        return UsageError(*FindCommand("ini-get"), context);
    const std::string& file = args[0]; // a path, used as the system spells it
    const auto section = FileText(context, args[1]);
    const auto key = FileText(context, args[2]);
    const auto fallback = FileText(context, args.size() == 4 ? args[3] : std::string());
    if (!section || !key || !fallback)
        return Failed;
    Print(context, txtReadWrite::ReadIni(*section, *key, *fallback, file));
    return Ok;
}

int RunIniSet(const Arguments& args, Context& context) {
    if (args.size() != 4)
        return UsageError(*FindCommand("ini-set"), context);
    const std::string& file = args[0];
    const auto section = FileText(context, args[1]);
    const auto key = FileText(context, args[2]);
    const auto value = FileText(context, args[3]);
    if (!section || !key || !value)
        return Failed;
    txtReadWrite::WriteIni(*section, *key, *value, file);
    return Ok;
}

} // namespace cli
