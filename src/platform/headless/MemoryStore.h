// A settings store that forgets: for tests, and for runs that must leave nothing behind.
#pragma once

#include "platform/SettingsSections.h"
#include "platform/SettingsStore.h"

namespace Quillon {

struct MemoryStore : SettingsStore {
    SettingsSections Held;

    std::optional<std::string> Find(std::string_view section, std::string_view key) const override {
        return Held.Find(section, key);
    }
    void Save(std::string_view section, std::string_view key, std::string_view value) override {
        Held.Save(section, key, value);
    }
    void Delete(std::string_view section, std::string_view key) override { Held.Delete(section, key); }
    std::vector<std::string> Keys(std::string_view section) const override { return Held.Keys(section); }
    void Flush() override {}
};

}  // namespace Quillon
