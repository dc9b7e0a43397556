#pragma once
// Builds the game's compiled\emphaty.ini from the event file and the empathy files: one
// "[RepChangeEffects]" block per faction, in the given faction order, with one
// "emphaty_rate" line per row other than the faction itself, in row order.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace reputation {

// Where a compile stands: after each row of a faction and after each whole faction.
struct CompileProgress {
    std::size_t faction = 0;  // index of the faction being written, from 0
    std::size_t factions = 0; // number of factions
    std::size_t row = 0;      // rows of this faction done, from 1 (0 before the first)
    std::size_t rows = 0;     // number of rows
    bool factionDone = false; // true on the call that follows the faction's last row
};
using ProgressCallback = std::function<void(const CompileProgress&)>;

// The whole text of the output file, each file read once.
std::string EmphatyText(const std::string& projectFolder, const std::vector<std::string>& factions,
                        const std::vector<std::string>& rows,
                        const ProgressCallback& progress = {});

// Writes compiled\emphaty.ini in one crash-safe replacement; with no factions the old output is
// deleted and nothing is written. Throws platform::FileError, leaving the previous output.
void CompileEmphaty(const std::string& projectFolder, const std::vector<std::string>& factions,
                    const std::vector<std::string>& rows, const ProgressCallback& progress = {});

} // namespace reputation
