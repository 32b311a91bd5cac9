#include "platform/SettingsSections.h"

#include <algorithm>

namespace Quillon {

std::optional<std::string> SettingsSections::Find(std::string_view section, std::string_view key) const {
    const auto in = sections.find(section);
    if (in == sections.end()) return std::nullopt;
    const auto at = in->second.find(key);
    if (at == in->second.end()) return std::nullopt;
    return at->second.Text;
}

void SettingsSections::Save(std::string_view section, std::string_view key, std::string_view value) {
    const auto [at, isNew] = sections[std::string(section)].try_emplace(std::string(key));
    if (isNew) at->second.Order = saved++;
    at->second.Text = value;
}

void SettingsSections::Delete(std::string_view section, std::string_view key) {
    const auto in = sections.find(section);
    if (in == sections.end()) return;
    const auto at = in->second.find(key);
    if (at != in->second.end()) in->second.erase(at);
    if (in->second.empty()) sections.erase(in);
}

std::vector<std::string> SettingsSections::Sections() const {
    std::vector<std::string> names;
    for (const auto& [name, section] : sections) names.push_back(name);
    return names;
}

std::vector<std::string> SettingsSections::Keys(std::string_view section) const {
    const auto in = sections.find(section);
    if (in == sections.end()) return {};
    std::vector<std::string> keys;
    for (const auto& [key, value] : in->second) keys.push_back(key);
    std::ranges::sort(keys, {}, [&](const std::string& key) { return in->second.find(key)->second.Order; });
    return keys;
}

}  // namespace Quillon
