#pragma once
// An application folder with a library and one empty project, for the import tests.
#include "core/modFunctions.h"
#include "core/txtReadWrite.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

class LibraryFixture {
public:
    LibraryFixture() {
        for (const char* folder : {"emphaty", "faction_prop", "initialworld"})
            std::filesystem::create_directories(
                temp_ / ("data/" + std::string(folder) + "/original_factions"));
        modFunctions::EnsureProjectsFolder(app());
        modFunctions::CreateProjectFolders(app(), "P");
    }

    const std::string& app() const { return temp_.path(); }
    std::string project() const { return modFunctions::ProjectPath(app(), "P"); }

    // Writes one library file; folder is "emphaty", "faction_prop" or "initialworld".
    void Library(std::string_view folder, std::string_view name, std::string_view bytes) const {
        TempFolder::Write(
            temp_ / ("data/" + std::string(folder) + "/original_factions/" + std::string(name)),
            bytes);
    }
    // All three files of an entry at once.
    void Entry(std::string_view name, std::string_view reputation, std::string_view props,
               std::string_view world) const {
        Library("emphaty", name, reputation);
        Library("faction_prop", name, props);
        Library("initialworld", name, world);
    }

    // A project file by its piece ("\\misc\\factions.ini"), found without regard to case.
    std::string File(std::string_view piece) const {
        return txtReadWrite::ReadFileText(modFunctions::ProjectPath(app(), "P", piece));
    }

    // Every file of the project: path below the project folder -> bytes.
    std::map<std::string, std::string> Snapshot() const {
        std::map<std::string, std::string> files;
        const std::string root = temp_ / "projects/P";
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_regular_file())
                files[entry.path().string().substr(root.size())] =
                    TempFolder::Read(entry.path().string());
        return files;
    }

private:
    TempFolder temp_;
};
