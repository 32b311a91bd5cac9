#include "cli/WaveFiles.h"

#include "cli/Commands.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "exchange/WaveExport.h"
#include "platform/Services.h"
#include "shell/mod_Sound.h"

namespace Quillon::Cli {

bool WriteWave(const std::filesystem::path& path, const ConvertOptions&) {
    Core::LoadINISettings();
    Shell::LoadSoundSettings();
    Services.Synth->Apply(Shell::Sound.Synthesizer);
    const auto renderer = Services.Synth->NewRenderer();
    switch (Exchange::ExportWave(path, *renderer)) {
        case Exchange::WaveOutcome::Written:
            return true;
        case Exchange::WaveOutcome::Stopped:
            return false;
        case Exchange::WaveOutcome::NeverEnds:
            throw CommandFailure(Core::LanguageText("str_WaveNeverEnds", {path.string()}));
        case Exchange::WaveOutcome::TooLong:
            throw CommandFailure(
                Core::LanguageText("str_WaveTooLong", {path.string(), std::to_string(Exchange::LongestWaveHours)}));
    }
    return false;
}

}  // namespace Quillon::Cli
