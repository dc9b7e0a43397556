#include "cli/Command.h"

namespace cli {

int RunProjects(const Arguments&, Context&);
int RunCreate(const Arguments&, Context&);
int RunDelete(const Arguments&, Context&);
int RunProtocol(const Arguments&, Context&);
int RunFactions(const Arguments&, Context&);
int RunAddFaction(const Arguments&, Context&);
int RunRemoveFaction(const Arguments&, Context&);
int RunRenameFaction(const Arguments&, Context&);
int RunDuplicateFaction(const Arguments&, Context&);
int RunIniGet(const Arguments&, Context&);
int RunIniSet(const Arguments&, Context&);
int RunCompile(const Arguments&, Context&);
int RunLibrary(const Arguments&, Context&);
int RunImport(const Arguments&, Context&);
int RunImportAll(const Arguments&, Context&);
int RunCutLibrary(const Arguments&, Context&);
int RunScript(const Arguments&, Context&);
int RunMatrix(const Arguments&, Context&);
int RunCheck(const Arguments&, Context&);

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands = {
        {"projects", "", "project names, one per line, sorted without regard to case", RunProjects},
        {"create", "NAME", "create a project; \"Project created.\" goes to its own protocol",
         RunCreate},
        {"delete", "NAME", "delete the project folder", RunDelete},
        {"protocol", "NAME", "print the project's protocol file as it is", RunProtocol},
        {"factions", "PROJECT", "registry in file order: nickname TAB group", RunFactions},
        {"add-faction", "PROJECT NICK [GROUP]", "add a faction or change its group", RunAddFaction},
        {"remove-faction", "PROJECT NICK", "delete a registered faction and its files",
         RunRemoveFaction},
        {"rename-faction", "PROJECT OLD NEW",
         "rename a faction in every file of the project that names it", RunRenameFaction},
        {"duplicate-faction", "PROJECT SOURCE NEW [GROUP] [--no-relations]",
         "copy a faction under a new nickname; the others' rates toward it follow unless "
         "--no-relations",
         RunDuplicateFaction},
        {"ini-get", "FILE SECTION KEY [DEFAULT]", "print the value that an INI read returns",
         RunIniGet},
        {"ini-set", "FILE SECTION KEY VALUE", "write one INI value", RunIniSet},
        {"compile", "PROJECT [emphaty|faction_prop|initialworld]...",
         "compile the project's game files (all when none is named)", RunCompile},
        {"library", "", "the original faction library's entries, one per line", RunLibrary},
        {"import", "PROJECT NICK...",
         "import library factions; \"Original imported...\" per faction", RunImport},
        {"import-all", "PROJECT", "import the whole library; refused entries on stderr",
         RunImportAll},
        {"cut-library", "--into LIBDIR [--emphaty F] [--faction-prop F] [--initialworld F]",
         "cut library entries from compiled game files", RunCutLibrary},
        {"script",
         "[--header] [--name N] [--script-version V] [--url U] [--author A] [--description D]",
         "print the mod manager's install script (header fields count with --header)", RunScript},
        {"matrix", "PROJECT emphaty|initialworld [--csv]",
         "every faction's reputation toward every faction, tab-separated or CSV", RunMatrix},
        {"check", "PROJECT [--format text|json]",
         "report what looks wrong; exit 3 when an error is found", RunCheck},
    };
    return commands;
}

} // namespace cli
