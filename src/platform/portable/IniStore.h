// The settings store as a text file, "settings.ini" below the base folder, that a person can read and mend.
//
// UTF-8; "[section]" lines, then "key=value" lines. Backslashes, control characters and what would be taken for
// structure stand as \xHH, so every value comes back as it was. A damaged line is skipped alone.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SettingsSections.h"
#include "platform/SettingsStore.h"

namespace Quillon {

struct FileSystem;

/// Text of a store's file, and back.
std::string FormatIni(const SettingsSections& sections);
SettingsSections ParseIni(std::string_view text);

class IniStore : public SettingsStore {
public:
    /// Reads the file when it is there. One that can't be read counts as empty and is left alone by Flush.
    IniStore(FileSystem& files, std::filesystem::path path);

    std::optional<std::string> Find(std::string_view section, std::string_view key) const override;
    void Save(std::string_view section, std::string_view key, std::string_view value) override;
    void Delete(std::string_view section, std::string_view key) override;
    std::vector<std::string> Keys(std::string_view section) const override;
    /// Applies this program's changes to the file as it stands, so that two programs on one base folder keep each
    /// other's. Writes nothing when nothing changed.
    void Flush() override;

private:
    struct Change {
        std::string Section, Key;
        std::optional<std::string> Value;
    };
    FileSystem& files;
    std::filesystem::path path;
    SettingsSections held;
    std::vector<Change> changes;
};

}  // namespace Quillon
