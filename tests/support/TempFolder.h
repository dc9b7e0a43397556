// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A fresh folder under the system's temporary folder, removed with everything in it. Paths
// are UTF-8 host paths; the standard library gets them through the platform layer, which
// hands them to Windows wide.
#include "core/NativePath.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

class TempFolder {
public:
    // Under base: the system's temporary folder, or a memory file system for a test that makes
    // thousands of files.
    explicit TempFolder(
        const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        std::random_device seed;
        std::mt19937_64 draw(seed());
        // A name nobody else has: create_directory says whether this one was new.
        for (;;) {
            const auto candidate = base / ("orrindel-test-" + std::to_string(draw() % 1000000000));
            if (std::filesystem::create_directory(candidate)) {
                path_ = platform::PathText(candidate);
                break;
            }
        }
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ec;
        const auto native = platform::NativePath(path_);
        std::filesystem::permissions(native, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(native, ec);
    }
    const std::string& path() const { return path_; }
    // A path inside the folder, with "/" between pieces.
    std::string operator/(std::string_view piece) const { return path_ + "/" + std::string(piece); }

    static std::string Read(const std::string& file) {
        std::ifstream in(platform::NativePath(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static void Write(const std::string& file, std::string_view bytes) {
        std::ofstream out(platform::NativePath(file), std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::string path_;
};
