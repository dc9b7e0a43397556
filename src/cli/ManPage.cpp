// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ManPage.h"

#include "cli/Command.h"
#include "core/BuildInfo.h"
#include "core/WindowOptions.h"

namespace cli {
namespace {

// Both programs work on the same application folder.
constexpr std::string_view ApplicationFolderText =
    "The application folder holds \\fIprojects/\\fR, one folder per project, and "
    "\\fIdata/\\fR, the original faction library. It is the folder of the program; for an "
    "installed copy it is \\fI$XDG_DATA_HOME/orrindel\\fR, whose library is copied from the "
    "installed one on first use.\n";

constexpr std::string_view EnvironmentSection = ".SH ENVIRONMENT\n"
                                                ".TP\n"
                                                ".B XDG_DATA_HOME\n"
                                                "Where an installed copy keeps its application "
                                                "folder; \\fI~/.local/share\\fR when unset.\n";

} // namespace

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

namespace {

// One tagged paragraph: the name in bold, its argument in italics, then its summary.
void WriteEntry(std::ostream& out, std::string_view name, std::string_view argument,
                std::string_view summary) {
    out << ".TP\n\\fB" << RoffText(name) << "\\fR";
    if (!argument.empty())
        out << " \\fI" << RoffText(argument) << "\\fR";
    out << "\n" << RoffText(summary) << "\n";
}

} // namespace

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
    for (const Command& command : Commands())
        WriteEntry(out, command.name, command.arguments, command.summary);
    out << ".SH EXIT STATUS\n"
           "0 on success, 1 on a usage error, 2 when the operation failed; a failed operation "
           "leaves no file half\\-written; 3 when \\fBcheck\\fR found an error.\n"
           ".SH FILES\n"
        << ApplicationFolderText << EnvironmentSection;
}

void WriteWindowManPage(std::ostream& out) {
    out << ".TH ORRINDEL 1 \"\" \"orrindel " << buildInfo::Version
        << "\" \"User Commands\"\n"
           ".SH NAME\n"
           "orrindel \\- edit the factions of a space game and compile its INI files\n"
           ".SH SYNOPSIS\n"
           ".B orrindel\n"
           "[\\fB\\-\\-app\\-dir\\fR \\fIDIR\\fR]\n"
           ".br\n"
           ".B orrindel\n"
           "\\fB\\-\\-help\\fR | \\fB\\-\\-version\\fR\n"
           ".SH DESCRIPTION\n"
           ".B orrindel\n"
           "is the Orrindel editor's window. It opens on the project manager, where a modder "
           "creates, loads and deletes projects. In a loaded project it imports the game's "
           "original factions from the shipped library, adds factions of the modder's own, and "
           "edits each faction's reputation behaviour, properties and place in the initial world, "
           "one tab each, with a matrix of every faction's reputation toward every other. It "
           "checks a project for values the game would not take, compiles it into the game files "
           "emphaty.ini, faction_prop.ini and initialworld.ini, and builds the XML install script "
           "a mod manager reads. Every change is on disk at once, and a file is replaced whole or "
           "not at all. The window speaks German and English, switchable at run time;\n"
           ".BR orrindel\\-cli (1)\n"
           "does the same work from the command line.\n"
           ".SH OPTIONS\n";
    for (const windowOptions::Option& option : windowOptions::Options)
        WriteEntry(out, option.name, option.argument, option.summary);
    out << ".SH FILES\n"
        << ApplicationFolderText
        << ".PP\n"
           "In a project's folder the window writes \\fImisc/factions.ini\\fR, the faction "
           "registry; each faction's files under \\fIemphaty/\\fR, \\fIfaction_prop/\\fR and "
           "\\fIinitialworld/\\fR; the compiled game files under \\fIcompiled/\\fR; and "
           "\\fIProtocol/protocol.txt\\fR, a dated line for the project's creation, each import "
           "and each compile. File contents are Windows\\-1252, as the game reads them. The "
           "install script is saved where the modder chooses.\n"
        << EnvironmentSection
        << ".SH SEE ALSO\n"
           ".BR orrindel\\-cli (1)\n";
}

} // namespace cli
