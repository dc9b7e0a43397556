// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The boundary of the Windows implementation, for its own .cpp files only: inside, text and
// paths are UTF-8; the system is called with UTF-16 (the wide functions) only here.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#ifndef NOMINMAX // the compiler's own headers may have asked for it already
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// <windows.h> names its narrow-or-wide choices with macros that would rename our functions.
#undef DeleteFile
#undef ReplaceFile

namespace platform::windows {

std::wstring Wide(std::string_view utf8);
std::string Narrow(std::wstring_view wide);
// A host path for a wide system call: "\" between pieces, and an absolute path long enough to
// run into the old 260-character limit gets the extended-length prefix ("\\?\", or
// "\\?\UNC\" for "\\server\share"), which also turns off the call's own path rewriting.
std::wstring WidePath(std::string_view hostPath);
// The system's words for an error code of GetLastError.
std::string Reason(DWORD error);

// Closes a handle on scope exit.
struct Handle {
    HANDLE h = INVALID_HANDLE_VALUE;
    explicit Handle(HANDLE handle) : h(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (h != INVALID_HANDLE_VALUE && h != nullptr)
            ::CloseHandle(h);
    }
    bool ok() const { return h != INVALID_HANDLE_VALUE && h != nullptr; }
};

// Calls each for the entries of a folder (a host path), "." and ".." left out, with the name
// on disk in UTF-8; false when the folder cannot be read.
bool ListEntries(std::string_view hostFolder,
                 const std::function<void(const std::string& name, const WIN32_FIND_DATAW&)>& each);
// A link (a reparse point: symbolic link, junction) rather than the file or folder it names.
inline bool IsLink(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}
// Attributes of what a path names after following links; INVALID_FILE_ATTRIBUTES when that
// cannot be opened.
DWORD TargetAttributes(const std::wstring& widePath);

} // namespace platform::windows
