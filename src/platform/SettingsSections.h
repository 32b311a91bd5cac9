// Sections of keys with text values: what every settings store holds in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

class SettingsSections {
public:
    std::optional<std::string> Find(std::string_view section, std::string_view key) const;
    void Save(std::string_view section, std::string_view key, std::string_view value);
    void Delete(std::string_view section, std::string_view key);
    /// Names of the sections that hold a key, sorted.
    std::vector<std::string> Sections() const;
    /// Keys of a section in the order in which they were first saved.
    std::vector<std::string> Keys(std::string_view section) const;

private:
    struct Value {
        std::string Text;
        std::uint64_t Order = 0;
    };
    using Section = std::map<std::string, Value, std::less<>>;
    std::map<std::string, Section, std::less<>> sections;
    std::uint64_t saved = 0;
};

}  // namespace Quillon
