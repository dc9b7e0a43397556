// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ApplicationFolder.h"

#include "core/NativePath.h"
#include "core/platform/windows/Win32.h"

#include <filesystem>

namespace applicationFolder {
namespace {

namespace fs = std::filesystem;

// Whether the program may write beside itself. The folder's attributes say nothing about its
// access rules, so a file is made there (and goes again when closed).
bool Writable(const std::string& folder) {
    const std::string probe =
        folder + "\\.orrindel-probe-" + std::to_string(::GetCurrentProcessId());
    const platform::windows::Handle file{
        ::CreateFileW(platform::windows::WidePath(probe).c_str(), GENERIC_WRITE, 0, nullptr,
                      CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)};
    return file.ok();
}

std::string Environment(const wchar_t* name) {
    const DWORD size = ::GetEnvironmentVariableW(name, nullptr, 0);
    if (size == 0)
        return {};
    std::wstring value(size, L'\0');
    const DWORD length = ::GetEnvironmentVariableW(name, value.data(), size);
    value.resize(length < size ? length : 0);
    return platform::windows::Narrow(value);
}

// %LOCALAPPDATA%\Orrindel: the user's own folder that stays on this machine.
std::string UserDataFolder() {
    std::string local = Environment(L"LOCALAPPDATA");
    if (local.empty()) {
        local = Environment(L"USERPROFILE");
        if (local.empty())
            local = platform::PathText(fs::temp_directory_path());
        local += "\\AppData\\Local";
    }
    return local + "\\Orrindel";
}

// Copies the shipped library into a folder that does not have one yet.
bool SeedLibrary(const std::string& shipped, const std::string& target) {
    std::error_code ec;
    const fs::path from = platform::NativePath(shipped);
    const fs::path to = platform::NativePath(target);
    if (fs::exists(to, ec) || !fs::is_directory(from, ec))
        return true;
    fs::create_directories(to.parent_path(), ec);
    fs::copy(from, to, fs::copy_options::recursive, ec);
    return !ec;
}

} // namespace

// A copy unpacked anywhere the user may write keeps everything beside itself; an installed
// one (under Program Files) keeps the user's data in their own folder.
Choice Choose(const std::string& exeFolder) {
    if (Writable(exeFolder))
        return {exeFolder, {}};
    const std::string user = UserDataFolder();
    const std::string shipped = exeFolder + "\\data";
    Choice choice{user, {}};
    if (!SeedLibrary(shipped, user + "\\data"))
        choice.problem = "The original faction library could not be copied from " + shipped +
                         " to " + user + "\\data.";
    return choice;
}

} // namespace applicationFolder
