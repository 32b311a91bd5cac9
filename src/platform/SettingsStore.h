// The per-application store of small settings: sections of keys with text values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

struct SettingsStore {
    virtual ~SettingsStore() = default;
    /// The text stored under a key, or nothing when the key is missing.
    virtual std::optional<std::string> Find(std::string_view section, std::string_view key) const = 0;
    virtual void Save(std::string_view section, std::string_view key, std::string_view value) = 0;
    virtual void Delete(std::string_view section, std::string_view key) = 0;
    /// Keys of a section in the order in which they were first saved.
    virtual std::vector<std::string> Keys(std::string_view section) const = 0;
    /// Makes what was saved lasting; raises when the store can't be written.
    virtual void Flush() = 0;

    std::string Get(std::string_view section, std::string_view key, std::string_view otherwise = "") const {
        return Find(section, key).value_or(std::string(otherwise));
    }
};

}  // namespace Quillon
