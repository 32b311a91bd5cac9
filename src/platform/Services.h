// The platform's services in use, filled by main before anything else runs, and by tests.
#pragma once

#include <filesystem>
#include <memory>

namespace Quillon {

struct Cipher;
struct FileSystem;
struct MessageBox;
struct MidiOutputs;
struct SettingsStore;
struct Synthesizer;
struct PageFile;
struct TimerHost;
struct UrlFetch;

struct ServicesInUse {
    std::filesystem::path BaseFolder;  ///< holds QL4.ini and Data
    FileSystem* Files = nullptr;
    SettingsStore* Settings = nullptr;
    MessageBox* Messages = nullptr;
    const Cipher* StreamCipher = nullptr;
    MidiOutputs* Midi = nullptr;
    TimerHost* Timers = nullptr;
    Synthesizer* Synth = nullptr;  ///< nothing where no built-in one is wanted
    std::unique_ptr<PageFile> (*NewPdf)() = nullptr;
    UrlFetch* Fetch = nullptr;  ///< nothing where nothing may be fetched
};

extern ServicesInUse Services;

}  // namespace Quillon
