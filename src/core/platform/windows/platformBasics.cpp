// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platformBasics.h"

#include "core/NativePath.h"
#include "core/platform/windows/Win32.h"
#include "core/win1252.h"

#include <algorithm>
#include <cstring>
#include <io.h>

namespace platform {

namespace windows {

std::wstring Wide(std::string_view utf8) {
    if (utf8.empty())
        return {};
    const int size =
        ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring out(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), out.data(), size);
    return out;
}

std::string Narrow(std::wstring_view wide) {
    if (wide.empty())
        return {};
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                           nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), out.data(), size,
                          nullptr, nullptr);
    return out;
}

std::wstring WidePath(std::string_view hostPath) {
    std::wstring path = Wide(hostPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    // Below this the old limit cannot bite, not even with a file name appended.
    constexpr std::size_t Short = 200;
    if (path.size() < Short || path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\"))
        return path;
    // The prefix passes the path on unchanged, so it must be whole first: absolute, without
    // "." and ".." pieces.
    const DWORD size = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = ::GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size)
        return path;
    full.resize(length);
    if (full.starts_with(L"\\\\"))
        return L"\\\\?\\UNC\\" + full.substr(2); // \\server\share\...
    return L"\\\\?\\" + full;
}

std::string Reason(DWORD error) {
    for (const DWORD language : {DWORD{MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)}, DWORD{0}}) {
        wchar_t* text = nullptr;
        const DWORD length = ::FormatMessageW(
            FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                FORMAT_MESSAGE_IGNORE_INSERTS,
            nullptr, error, language, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
        std::wstring words(text ? text : L"", text ? length : 0);
        if (text)
            ::LocalFree(text);
        while (!words.empty() && (words.back() == L'\n' || words.back() == L'\r' ||
                                  words.back() == L' ' || words.back() == L'.'))
            words.pop_back();
        if (!words.empty())
            return win1252::FromUtf8Lossy(Narrow(words));
    }
    return "system error " + std::to_string(error);
}

bool ListEntries(
    std::string_view hostFolder,
    const std::function<void(const std::string& name, const WIN32_FIND_DATAW&)>& each) {
    std::string pattern(hostFolder.empty() ? std::string_view(".") : hostFolder);
    if (pattern.back() != '\\' && pattern.back() != '/')
        pattern += '\\';
    pattern += '*';
    WIN32_FIND_DATAW entry{};
    const HANDLE found =
        ::FindFirstFileExW(WidePath(pattern).c_str(), FindExInfoBasic, &entry,
                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (found == INVALID_HANDLE_VALUE)
        return false;
    do {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..")
            each(Narrow(name), entry);
    } while (::FindNextFileW(found, &entry));
    ::FindClose(found);
    return true;
}

DWORD TargetAttributes(const std::wstring& widePath) {
    const Handle file{::CreateFileW(widePath.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)};
    BY_HANDLE_FILE_INFORMATION info{};
    if (!file.ok() || !::GetFileInformationByHandle(file.h, &info))
        return INVALID_FILE_ATTRIBUTES;
    return info.dwFileAttributes;
}

} // namespace windows

std::string HostPath(std::string_view path) {
    std::string out(path);
    std::replace(out.begin(), out.end(), '/', '\\');
    return out;
}

Descriptor::~Descriptor() {
    if (fd >= 0)
        ::_close(fd);
}

std::string ExecutableFolder() {
    std::wstring exe(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(nullptr, exe.data(), static_cast<DWORD>(exe.size()));
        if (length == 0)
            return PathText(std::filesystem::current_path());
        if (length < exe.size()) {
            exe.resize(length);
            break;
        }
        exe.resize(exe.size() * 2);
    }
    return PathText(std::filesystem::path(exe).parent_path());
}

std::tm LocalTime(std::time_t moment) {
    std::tm local{};
    ::localtime_s(&local, &moment);
    return local;
}

std::filesystem::path NativePath(std::string_view hostPath) {
    return std::filesystem::path(windows::WidePath(hostPath));
}

std::string PathText(const std::filesystem::path& path) {
    return windows::Narrow(path.native());
}

} // namespace platform
