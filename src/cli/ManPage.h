#pragma once
// The manual page of orrindel-cli (roff), written from the command table at build time.
#include <ostream>
#include <string>
#include <string_view>

namespace cli {

// Text made safe for a roff text line: backslashes and minus signs escaped, a leading control
// character neutralised.
std::string RoffText(std::string_view text);

void WriteManPage(std::ostream& out);

} // namespace cli
