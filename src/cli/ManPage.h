// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The manual pages (roff), written at build time: orrindel-cli's from the command table, the
// window program's from its option table.
#include <ostream>
#include <string>
#include <string_view>

namespace cli {

// Text made safe for a roff text line: backslashes and minus signs escaped, a leading control
// character neutralised.
std::string RoffText(std::string_view text);

void WriteManPage(std::ostream& out);
void WriteWindowManPage(std::ostream& out);

} // namespace cli
