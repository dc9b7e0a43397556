// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One project in a fresh application folder, its files read and written by their place in the
// project ("/" between pieces). Fill gives it factions whose every store is complete and sound.
#include "core/modFunctions.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

class TestProject {
public:
    explicit TestProject(std::string name = "P") : name(std::move(name)) {
        modFunctions::EnsureProjectsFolder(app.path());
        modFunctions::CreateProjectFolders(app.path(), this->name);
    }
    // The project folder as the core spells it.
    std::string Folder() const { return modFunctions::ProjectPath(app.path(), name); }
    std::string File(const std::string& piece) const {
        return app / ("projects/" + name + "/" + piece);
    }
    std::string Read(const std::string& piece) const { return TempFolder::Read(File(piece)); }
    void Write(const std::string& piece, std::string_view bytes) const {
        TempFolder::Write(File(piece), bytes);
    }
    bool Exists(const std::string& piece) const { return std::filesystem::exists(File(piece)); }
    // Replaces the first occurrence of a text in a file; false when the file lacks it.
    bool Edit(const std::string& piece, std::string_view from, std::string_view to) const {
        std::string bytes = Read(piece);
        const std::size_t at = bytes.find(from);
        if (at == std::string::npos)
            return false;
        bytes.replace(at, from.size(), to);
        Write(piece, bytes);
        return true;
    }

    // Every file of the project: path -> bytes.
    std::map<std::string, std::string> Snapshot() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(File("")))
            if (entry.is_regular_file())
                files[entry.path().string()] = TempFolder::Read(entry.path().string());
        return files;
    }

    // Registers the factions with every store filled: both halves of each pair stored, with
    // different values, a ship, voice, body part, scan and formation list each.
    void Fill(const std::vector<std::string>& factions) const {
        std::string registry, events, props, world;
        for (const std::string& g : factions) {
            registry += "[" + g + "]\r\ngrp=Group " + g + "\r\n";
            events += "[" + g + "]\r\no_d=-0.1\r\nr_m_s=0.05\r\nr_m_f=-0.02\r\nr_m_a=0\r\n";
            props += "[" + g +
                     "]\r\nLegality=lawful\r\nplurality=singular\r\njump=jumpgate\r\n"
                     "mc_costume=mc_br\r\nscan_chance=0.25\r\nscan_announce=True\r\n";
            world += "[" + g + "]\r\nids_name=1001\r\nids_short_name=1002\r\nids_info=1003\r\n";
            std::string rates;
            for (const std::string& other : factions) {
                rates += "[" + other + "]\r\nrep=" + (g < other ? "0.5" : "-0.25") + "\r\n";
                world += other + "=" + (g < other ? "0.75" : "1") + "\r\n";
            }
            Write("emphaty/new/reps_" + g + ".facts", rates);
            Write("faction_prop/Shiplist_" + g + ".lst", "br_m_ge_fighter2_d1-4\r\n\r\n");
            Write("faction_prop/Voicelist_" + g + ".lst", "atc_leg_f01\r\nking\r\n\r\n");
            Write("faction_prop/Bodylist_" + g + ".lst",
                  "benchmark_male_head, benchmark_male_body, comm_br_brighton\r\n\r\n");
            Write("faction_prop/Scanlist_" + g + ".lst", "commodity_gold\r\n\r\n");
            Write("faction_prop/Formationlist_" + g + ".lst", "ANY, armored_basic\r\n\r\n");
        }
        Write("misc/factions.ini", registry);
        Write("emphaty/new/grp.ini", events);
        Write("faction_prop/grp.ini", props);
        Write("initialworld/grp.ini", world);
    }

    TempFolder app;
    std::string name;
};
