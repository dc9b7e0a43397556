// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platformBasics.h"

#include "core/NativePath.h"
#include "core/win1252.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace platform {

std::string HostPath(std::string_view path) {
    std::string out(path);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

Descriptor::~Descriptor() {
    if (fd >= 0)
        ::close(fd);
}

std::string ExecutableFolder() {
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (ec)
        return std::filesystem::current_path().string();
    return exe.parent_path().string();
}

std::tm LocalTime(std::time_t moment) {
    std::tm local{};
    ::localtime_r(&moment, &local);
    return local;
}

std::filesystem::path NativePath(std::string_view hostPath) {
    return std::filesystem::path(hostPath);
}

std::string PathText(const std::filesystem::path& path) {
    return path.string();
}

} // namespace platform
