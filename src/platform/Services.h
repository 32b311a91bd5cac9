// The platform's services in use, filled by main before anything else runs, and by tests.
#pragma once

#include <filesystem>

namespace Quillon {

struct Cipher;
struct FileSystem;
struct MessageBox;
struct SettingsStore;

struct ServicesInUse {
    std::filesystem::path BaseFolder;  ///< holds QL4.ini and Data
    FileSystem* Files = nullptr;
    SettingsStore* Settings = nullptr;
    MessageBox* Messages = nullptr;
    const Cipher* StreamCipher = nullptr;
};

extern ServicesInUse Services;

}  // namespace Quillon
