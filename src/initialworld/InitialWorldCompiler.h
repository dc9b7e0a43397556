#pragma once
// Builds compiled\initialworld.ini: the comment block, then one "[Group]" section per
// faction with its IDS values and a reputation line toward every row faction.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class IniDocument;

namespace initialworld {

// <project folder>\compiled\initialworld.ini
std::string CompiledFile(std::string_view projectFolder);

// How far a compile has got, for the two progress bars; any of them may be empty.
struct CompileProgress {
    std::function<void(std::size_t factionCount)> started;
    std::function<void(std::size_t rowCount)> factionStarted; // rows of this faction: 0 done
    std::function<void(std::size_t rowsDone)> rowDone;
    std::function<void(std::size_t factionsDone)> factionDone;
};

// The whole file as it is written (without the line end that the file writer adds).
std::string CompiledText(const IniDocument& data, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows,
                         const CompileProgress& progress = {});

// Reads the project's initial-world file once and replaces the compiled file in one step;
// a failure leaves the previous output as it was. Throws platform::FileError.
void CompileInitialWorld(std::string_view projectFolder, const std::vector<std::string>& factions,
                         const std::vector<std::string>& rows,
                         const CompileProgress& progress = {});

} // namespace initialworld
