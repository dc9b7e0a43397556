// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a command-line program needs from the system before it starts: its arguments as UTF-8
// and standard streams that pass bytes on unchanged.
#include <string>
#include <vector>

namespace platform {

// The arguments after the program's name, as UTF-8. Windows hands main its arguments in the
// ANSI code page, so there they are read from the wide command line instead.
std::vector<std::string> ProgramArguments(int argc, char** argv);
// Standard output and error write bytes as they are: no CR added before LF on Windows, and a
// console there shows them as UTF-8. Nothing to do elsewhere.
void PrepareStandardStreams();

} // namespace platform
