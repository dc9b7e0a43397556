// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A project whose application folder has a library, for the import tests.
#include "support/TestProject.h"

// Lines joined with the line ends of the game's files.
inline std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

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
};
