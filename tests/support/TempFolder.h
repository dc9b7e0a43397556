#pragma once
// A fresh folder under the system's temporary folder, removed with everything in it.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

class TempFolder {
public:
    // Under base: the system's temporary folder, or a memory file system for a test that makes
    // thousands of files.
    explicit TempFolder(
        const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        std::string pattern = (base / "orrindel-test-XXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(path_, ec);
    }
    const std::string& path() const { return path_; }
    // A path inside the folder, with "/" between pieces.
    std::string operator/(std::string_view piece) const { return path_ + "/" + std::string(piece); }

    static std::string Read(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    static void Write(const std::string& file, std::string_view bytes) {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::string path_;
};
