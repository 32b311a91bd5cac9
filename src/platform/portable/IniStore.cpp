#include "platform/portable/IniStore.h"

#include <algorithm>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

/// `structural` are the characters that would end or change the line where the text stands.
std::string Escape(std::string_view text, std::string_view structural) {
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || c == '\\' || structural.find(c) != std::string_view::npos) {
            out += {'\\', 'x', HexDigits[byte >> 4], HexDigits[byte & 15]};
        } else {
            out += c;
        }
    }
    return out;
}

/// Nothing for a backslash that starts no code.
std::optional<std::string> Unescape(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (i + 3 >= text.size() || text[i + 1] != 'x') return std::nullopt;
        const std::size_t high = HexDigits.find(text[i + 2]);
        const std::size_t low = HexDigits.find(text[i + 3]);
        if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
        out += static_cast<char>(high * 16 + low);
        i += 3;
    }
    return out;
}

}  // namespace

std::string FormatIni(const SettingsSections& sections) {
    std::string out;
    for (const std::string& section : sections.Sections()) {
        out += "[" + Escape(section, "]") + "]\n";
        for (const std::string& key : sections.Keys(section)) {
            out += Escape(key, "=[;") + "=" + Escape(*sections.Find(section, key), "") + "\n";
        }
    }
    return out;
}

SettingsSections ParseIni(std::string_view text) {
    SettingsSections sections;
    std::optional<std::string> section;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.starts_with(';')) continue;
        if (line.starts_with('[')) {  // keys below a damaged heading belong nowhere
            section = line.ends_with(']') ? Unescape(line.substr(1, line.size() - 2)) : std::nullopt;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!section || equals == std::string_view::npos) continue;
        const auto key = Unescape(line.substr(0, equals));
        const auto value = Unescape(line.substr(equals + 1));
        if (key && value) sections.Save(*section, *key, *value);
    }
    return sections;
}

IniStore::IniStore(FileSystem& of, std::filesystem::path at) : files(of), path(std::move(at)) {
    try {
        if (files.Exists(path)) held = ParseIni(files.Read(path));
    } catch (const RunTimeError&) {
        held = {};
    }
}

std::optional<std::string> IniStore::Find(std::string_view section, std::string_view key) const {
    return held.Find(section, key);
}

void IniStore::Save(std::string_view section, std::string_view key, std::string_view value) {
    if (held.Find(section, key) == value) return;
    held.Save(section, key, value);
    changes.push_back({std::string(section), std::string(key), std::string(value)});
}

void IniStore::Delete(std::string_view section, std::string_view key) {
    if (!held.Find(section, key)) return;
    held.Delete(section, key);
    changes.push_back({std::string(section), std::string(key), std::nullopt});
}

std::vector<std::string> IniStore::Keys(std::string_view section) const { return held.Keys(section); }

void IniStore::Flush() {
    if (changes.empty()) return;
    const auto lock = files.Lock(std::filesystem::path(path).replace_extension(".lock"));
    SettingsSections stored = files.Exists(path) ? ParseIni(files.Read(path)) : SettingsSections{};
    for (const Change& change : changes) {
        if (change.Value) {
            stored.Save(change.Section, change.Key, *change.Value);
        } else {
            stored.Delete(change.Section, change.Key);
        }
    }
    files.Replace(path, FormatIni(stored));
    held = std::move(stored);
    changes.clear();
}

}  // namespace Quillon
