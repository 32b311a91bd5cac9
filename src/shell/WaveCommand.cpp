// The song as a sound file, written while the window shows how far it is.
#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/WaveExport.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"
#include "shell/LongWork.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;

namespace {

Exchange::WaveOutcome Export(const fs::path& target) {
    const std::unique_ptr<WaveRenderer> renderer = Services.Synth->NewRenderer();
    const LongWork work(LanguageText("str_WaveWriting", {target.filename().string()}));
    return Exchange::ExportWave(target, *renderer, [&work](int percent) { return work.GoOn(percent); });
}

}  // namespace

void mnuFileExportWave_Click() {
    fs::path suggested = Open.FileName.empty() ? fs::path(LanguageText("str_Untitled")) : fs::path(Open.FileName);
    suggested.replace_extension(".wav");
    const auto target = Program.View->AskExportFile("str_WaveTitle", "str_FilterWave", suggested);
    if (!target) return;
    const auto tell = [&](const char* key) {
        const std::string text = LanguageText(key, {target->string(), std::to_string(Exchange::LongestWaveHours)});
        Services.Messages->Show(text, LanguageText("str_TitleNote"), Buttons::Ok, BoxIcon::Exclamation);
    };
    switch (Export(*target)) {
        case Exchange::WaveOutcome::Written:
            return Program.View->ShowStatus(LanguageText("str_WaveWritten", {target->filename().string()}));
        case Exchange::WaveOutcome::Stopped:
            return Program.View->ShowStatus(LanguageText("str_WaveStopped", {target->filename().string()}));
        case Exchange::WaveOutcome::NeverEnds:
            return tell("str_WaveNeverEnds");
        case Exchange::WaveOutcome::TooLong:
            return tell("str_WaveTooLong");
    }
}

}  // namespace Quillon::Shell
