// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the application directory is: beside the program for a copy built or unpacked in
// place, or the user's own data folder for an installed copy (seeded with the library).
#include <string>

namespace applicationFolder {

struct Choice {
    std::string folder;  // host path (UTF-8 on this platform)
    std::string problem; // empty, or what went wrong while seeding the user's folder
};

// exeFolder: the folder of the running program.
Choice Choose(const std::string& exeFolder);

} // namespace applicationFolder
