#include "cli/Session.h"

#include <cstdlib>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/portable/MachineLocale.h"
#include "shell/mod_Shell.h"

namespace Quillon::Cli {

namespace fs = std::filesystem;

namespace {

/// The folder of the running program; `program` is how it was called.
fs::path ProgramFolder(const char* program) {
    std::error_code none;
    const fs::path self = fs::read_symlink("/proc/self/exe", none);
    return (none ? fs::absolute(program, none) : self).parent_path();
}

const char* Environment(const char* name) { return std::getenv(name); }

}  // namespace

Session::Session(const std::string& baseOption, const char* program, Answer answer)
    : base(Shell::BaseFolder(baseOption, ProgramFolder(program), &Environment)),
      settings(files, base / "settings.ini"),
      messages(answer),
      synthesizer(base / "Data" / "SoundFonts") {
    Services = {base, &files, &settings, &messages, &streamCipher};
    Services.Midi = &outputs;
    Services.Synth = &synthesizer;
    Core::DecimalSign = MachineDecimalSign();
    Core::LoadLanguage(files, base);
}

Session::~Session() {
    try {
        Core::DelTempFiles();
    } catch (const RunTimeError&) {
        // They are nobody's work; what can't be deleted is overwritten next time.
    }
    Services = {};
}

}  // namespace Quillon::Cli
