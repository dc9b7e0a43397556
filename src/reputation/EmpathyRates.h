#pragma once
// The "rep" values of one empathy file, found in a single pass over its bytes. An empathy
// file holds one small section per faction, so a compile reads a thousand of them; this
// keeps only what a rate lookup needs instead of a full editable document. Lookups give
// exactly what ReadIni(toward, "rep", "0.0", file) gives.
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace reputation {

class EmpathyRates {
public:
    EmpathyRates() = default;
    explicit EmpathyRates(std::string bytes);

    // The file's rates; none when it is missing. Throws platform::FileError when unreadable.
    static EmpathyRates Load(const std::string& empathyFile);

    // The rate toward a faction (section found without regard to case), or the default.
    std::string Read(std::string_view toward, std::string_view defaultValue) const;

private:
    struct Stored {
        std::size_t offset = 0;
        std::size_t length = 0;
        bool found = false;
    };
    std::string bytes_;
    // Folded section name -> where the "rep" value of its first occurrence lies in bytes_.
    std::unordered_map<std::string, Stored> rates_;
};

} // namespace reputation
