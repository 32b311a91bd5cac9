// quillon-cli trace FILE [--from B] [--to B]
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "playback/mod_OfflinePlay.h"

namespace Quillon::Cli {

namespace {

struct TraceOptions {
    std::string File;
    int From = 0;
    std::optional<int> To;
    bool Metronome = false;
    bool CountIn = false;
    bool Alternate = false;
    std::vector<std::string> Trainer;
    std::int64_t MaxMs = Playback::OfflineOptions{}.MaxMs;
};

constexpr std::int16_t AlternateBank = 127;

Playback::OfflineOptions PlayingOf(const TraceOptions& options) {
    const int lastBar = Core::Open.TabFile.BarInfos.UpperBound();
    const int to = options.To.value_or(lastBar);
    Playback::OfflineOptions playing;
    playing.MaxMs = options.MaxMs;
    if (!options.Trainer.empty()) {
        const auto& typed = options.Trainer;
        playing.Trainer = {typed[0], typed[1], typed[2], typed[3], typed[4], typed[5]};
        return playing;
    }
    const std::string bars = options.File + ": the song has the bars 0 to " + std::to_string(lastBar);
    if (options.From > lastBar || to > lastBar) throw CommandFailure(bars);
    playing.StartBar = static_cast<std::int16_t>(options.From);
    playing.EndBar = static_cast<std::int16_t>(to);
    return playing;
}

int Trace(const TraceOptions& options) {
    OpenWholeDocument(options.File);
    Core::LoadINISettings();
    Core::Settings.Metronome = options.Metronome;
    Core::Settings.CountIn = options.CountIn;
    Core::Settings.OutputBank = options.Alternate ? AlternateBank : Core::SettingsRecord{}.OutputBank;

    constexpr std::size_t Enough = 1 << 16;
    std::string lines;
    const auto flush = [&](std::size_t atLeast) {
        if (lines.size() < atLeast) return;
        Print(lines);
        lines.clear();
    };
    Playback::PlayOffline(PlayingOf(options), [&](const Playback::TimedMessage& message) {
        lines += std::to_string(message.Time);
        for (const std::int16_t number : {message.Status, message.Data1, message.Data2}) {
            lines += ' ';
            lines += std::to_string(number);
        }
        lines += '\n';
        flush(Enough);
    });
    flush(1);
    return Done;
}

}  // namespace

void AddTrace(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("trace", "Plays a document and prints every MIDI message with its moment");
    const auto options = std::make_shared<TraceOptions>();
    const CLI::Range bars(0, 32766);
    command->add_option("FILE", options->File, "Document to play, by its ending")->required()->type_name("");
    command->add_option("--from", options->From, "First bar, from 0")->check(bars)->type_name("B");
    command->add_option("--to", options->To, "Last bar, from 0; the song's last when left out")
        ->check(bars)
        ->type_name("B");
    command->add_flag("--metronome", options->Metronome, "With clicks");
    command->add_flag("--count-in", options->CountIn, "With a bar of clicks ahead");
    command->add_flag("--alternate", options->Alternate, "In alternate playback mode: bank 127");
    command
        ->add_option("--trainer", options->Trainer,
                     "Speed trainer: first and last bar from 1, loops, first and final tempo, step; ignores --from and "
                     "--to")
        ->delimiter(',')
        ->expected(6)
        ->type_name("FROM,TO,LOOPS,INITIAL,FINAL,STEP");
    command->add_option("--max-ms", options->MaxMs, "Stop after so many milliseconds; 24 hours when left out")
        ->check(CLI::NonNegativeNumber)
        ->type_name("N");
    command->callback([options, &work] { work = [options] { return Trace(*options); }; });
}

}  // namespace Quillon::Cli
