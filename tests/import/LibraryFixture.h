#pragma once
// A project whose application folder has a library, for the import tests.
#include "support/TestProject.h"

#include <map>

class LibraryFixture : public TestProject {
public:
    LibraryFixture() {
        for (const char* folder : {"emphaty", "faction_prop", "initialworld"})
            std::filesystem::create_directories(
                app / ("data/" + std::string(folder) + "/original_factions"));
    }
    // Writes one library file; folder is "emphaty", "faction_prop" or "initialworld".
    void Library(const std::string& folder, const std::string& name, std::string_view bytes) const {
        TempFolder::Write(app / ("data/" + folder + "/original_factions/" + name), bytes);
    }
    // All three files of an entry at once.
    void Entry(const std::string& name, std::string_view reputation, std::string_view props,
               std::string_view world) const {
        Library("emphaty", name, reputation);
        Library("faction_prop", name, props);
        Library("initialworld", name, world);
    }
    // Every file of the project: path below the project folder -> bytes.
    std::map<std::string, std::string> Snapshot() const {
        std::map<std::string, std::string> files;
        const std::string root = app / "projects/P";
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_regular_file())
                files[entry.path().string().substr(root.size())] =
                    TempFolder::Read(entry.path().string());
        return files;
    }
};
