// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Trash.h"

#include "core/PathLookup.h"
#include "core/platform/windows/Win32.h"

#include <shellapi.h>

namespace platform {

bool MoveToTrash(std::string_view path) noexcept {
    try {
        // The shell's own delete with undo allowed: the recycle bin, where the drive has one.
        // A plain path (no extended-length prefix) and two NULs at its end, as the call wants.
        std::wstring from = windows::Wide(ResolvePath(path));
        from.push_back(L'\0');
        SHFILEOPSTRUCTW operation{};
        operation.wFunc = FO_DELETE;
        operation.pFrom = from.c_str();
        operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
        return ::SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
    } catch (...) {
        return false;
    }
}

} // namespace platform
