// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProgramStart.h"

#include "core/platform/windows/Win32.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace platform {

std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> out;
    if (!wide)
        return out;
    for (int i = 1; i < count; ++i)
        out.push_back(windows::Narrow(wide[i]));
    ::LocalFree(wide);
    return out;
}

void PrepareStandardStreams() {
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

} // namespace platform
