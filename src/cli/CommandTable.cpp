// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"

namespace cli {

// Each command describes itself in its own file; this table only lists them. Naming each one
// here also keeps the linker from leaving a command's file out of the program.
extern const Command ProjectsCommand, CreateCommand, DeleteCommand, ProtocolCommand,
    FactionsCommand, AddFactionCommand, RemoveFactionCommand, RenameFactionCommand,
    DuplicateFactionCommand, IniGetCommand, IniSetCommand, CompileCommand, LibraryCommand,
    ImportCommand, ImportAllCommand, CutLibraryCommand, ScriptCommand, MatrixCommand, CheckCommand;

const std::vector<std::reference_wrapper<const Command>>& Commands() {
    static const std::vector<std::reference_wrapper<const Command>> commands{
        ProjectsCommand,         CreateCommand,     DeleteCommand,        ProtocolCommand,
        FactionsCommand,         AddFactionCommand, RemoveFactionCommand, RenameFactionCommand,
        DuplicateFactionCommand, IniGetCommand,     IniSetCommand,        CompileCommand,
        LibraryCommand,          ImportCommand,     ImportAllCommand,     CutLibraryCommand,
        ScriptCommand,           MatrixCommand,     CheckCommand};
    return commands;
}

} // namespace cli
