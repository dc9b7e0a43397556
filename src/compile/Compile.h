// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A compile as the user runs it: the game file is built with its progress report and, once it
// is written, its line goes to the project's protocol. The window's three pages and the
// command line run their compiles through here.
#include "core/Progress.h"

#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace compile {

enum class GameFile { Emphaty, FactionProp, InitialWorld };

// What one compile reads: the project folder, the factions in the order of their blocks, and
// the rows of each block (the reputation and initial-world files have one per faction).
struct Job {
    GameFile file;
    std::string projectFolder;
    std::vector<std::string> factions;
    std::vector<std::string> rows;
};

// Appends one line to the project's protocol.
using Protocol = std::function<void(std::string_view line)>;

// The game file was written, its protocol line was not. It carries the cause as its nested
// exception and the cause's text as its own.
class ProtocolNotWritten : public std::runtime_error, public std::nested_exception {
public:
    // Within a catch block: the exception being handled is the cause.
    ProtocolNotWritten();
};

// The line the protocol receives after a successful compile.
std::string_view ProtocolLine(GameFile file);

// Compiles one game file, telling report how far it got, then writes its protocol line.
// Throws what the compile threw (the protocol is left alone then), or ProtocolNotWritten.
void Run(const Job& job, const Protocol& protocol, const progress::Report& report = {});

// Compiles the game files side by side, one thread each. Each one compiled gets its protocol
// line, in the order given; after a protocol line fails, no further line is written (none out
// of order). Returns every failure, the compiles' in the order given, then the protocol's.
std::vector<std::exception_ptr> RunTogether(const std::vector<Job>& jobs, const Protocol& protocol);

} // namespace compile
