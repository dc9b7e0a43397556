#include "cli/ManPage.h"

#include "cli/Command.h"
#include "core/BuildInfo.h"

namespace cli {

std::string RoffText(std::string_view text) {
    std::string out;
    // A line starting with "." or "'" would be read as a request.
    if (!text.empty() && (text.front() == '.' || text.front() == '\''))
        out += "\\&";
    for (const char c : text) {
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-"; // a plain "-" may be typeset as a hyphen, which cannot be pasted
        else
            out += c;
    }
    return out;
}

void WriteManPage(std::ostream& out) {
    out << ".TH ORRINDEL\\-CLI 1 \"\" \"orrindel\\-cli " << buildInfo::Version
        << "\" \"User Commands\"\n"
           ".SH NAME\n"
           "orrindel\\-cli \\- create, fill and compile Orrindel faction projects without a "
           "window\n"
           ".SH SYNOPSIS\n"
           ".B orrindel\\-cli\n"
           "[\\fB\\-\\-app\\-dir\\fR \\fIDIR\\fR] \\fICOMMAND\\fR [\\fIARGS\\fR]\n"
           ".br\n"
           ".B orrindel\\-cli\n"
           "\\fICOMMAND\\fR \\fB\\-\\-help\\fR\n"
           ".br\n"
           ".B orrindel\\-cli\n"
           "\\fB\\-\\-help\\fR | \\fB\\-\\-version\\fR\n"
           ".SH DESCRIPTION\n"
           ".B orrindel\\-cli\n"
           "does the work of the Orrindel editor from the command line: it creates projects, "
           "imports factions from the shipped original faction library, edits INI values and "
           "compiles a project into the game's emphaty.ini, faction_prop.ini and initialworld.ini. "
           "It writes exactly the bytes the editor writes: text on the terminal is UTF\\-8, text "
           "in the files is Windows\\-1252.\n"
           ".SH OPTIONS\n"
           ".TP\n"
           "\\fB\\-\\-app\\-dir\\fR \\fIDIR\\fR\n"
           "Work on the application folder DIR instead of the default one (see FILES).\n"
           ".TP\n"
           "\\fB\\-\\-help\\fR\n"
           "List the commands; after a command, show that command's arguments.\n"
           ".TP\n"
           "\\fB\\-\\-version\\fR\n"
           "Print the version.\n"
           ".SH COMMANDS\n";
    for (const Command& command : Commands()) {
        out << ".TP\n\\fB" << RoffText(command.name) << "\\fR";
        if (!command.arguments.empty())
            out << " \\fI" << RoffText(command.arguments) << "\\fR";
        out << "\n" << RoffText(command.summary) << "\n";
    }
    out << ".SH EXIT STATUS\n"
           "0 on success, 1 on a usage error, 2 when the operation failed; a failed operation "
           "leaves no file half\\-written.\n"
           ".SH FILES\n"
           "The application folder holds \\fIprojects/\\fR, one folder per project, and "
           "\\fIdata/\\fR, the original faction library. It is the folder of the program; for an "
           "installed copy it is \\fI$XDG_DATA_HOME/orrindel\\fR, whose library is copied from the "
           "installed one on first use.\n"
           ".SH ENVIRONMENT\n"
           ".TP\n"
           ".B XDG_DATA_HOME\n"
           "Where an installed copy keeps its application folder; \\fI~/.local/share\\fR when "
           "unset.\n";
}

} // namespace cli
