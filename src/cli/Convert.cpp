// quillon-cli convert IN OUT
#include <CLI/CLI.hpp>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "core/mod_Language.h"

namespace Quillon::Cli {

namespace {

struct Arguments {
    std::string In;
    std::string Out;
    ConvertOptions Options;
    ImportOptions Import;
    std::optional<std::string> Timing;
    std::string Reader = "classic";
    bool Report = false;
    std::vector<const CLI::Option*> TextOnly;  ///< options that say how a text tab is read
    std::vector<const CLI::Option*> MidiOnly;
};

const std::map<std::string, ImportReader> Readers = {
    {"classic", ImportReader::Classic}, {"lines", ImportReader::Lines}, {"aligned", ImportReader::Aligned}};

/// An option that the input has no use for would be passed over in silence.
void RefuseStrangeOptions(const Arguments& arguments) {
    const ImportReader other = ReaderFor(arguments.In).Other;
    const auto refuse = [&](const std::vector<const CLI::Option*>& options, const char* kind) {
        for (const CLI::Option* const option : options) {
            if (option->count() > 0) throw UsageError(arguments.In + ": " + option->get_name() + " is for " + kind);
        }
    };
    if (other != ImportReader::Lines) refuse(arguments.TextOnly, "text tabs");
    if (other != ImportReader::Aligned) refuse(arguments.MidiOnly, "MIDI files");
}

int Convert(const Arguments& arguments) {
    const DocumentWriter& writer = WriterFor(arguments.Out);  // a wrong ending is told before anything is opened
    if (arguments.Options.Engraved && writer.Ending != ".pdf") throw UsageError("--engraved goes with OUT of .pdf");
    RefuseStrangeOptions(arguments);
    ImportOptions import = arguments.Import;
    import.Reader = Readers.at(arguments.Reader);
    if (arguments.Timing) {
        import.Text.Timing = Exchange::ParseTiming(*arguments.Timing);
        if (!import.Text.Timing) throw CommandFailure(Core::LanguageText("str_ValidTSPlease"));
    }
    Exchange::ImportReport report;
    import.Report = &report;
    import.IntoTrack = arguments.Options.Track.value_or(0);
    OpenWholeDocument(arguments.In, import);
    if (arguments.Options.Track) ChooseTrack(*arguments.Options.Track);
    SaveDocument(arguments.Out, arguments.Options);
    if (arguments.Report && report.Tracks > 0)
        Print(Exchange::ReportText(report));  // a document of ours is not imported
    return Done;
}

}  // namespace

void AddConvert(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("convert", "Opens IN by its ending and writes OUT by its ending");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("IN", arguments->In, "Document to open: .qlm .json .mid .midi .txt .tab .html .htm")
        ->required()
        ->type_name("");
    command
        ->add_option("OUT", arguments->Out,
                     "File to write: .qlm .json .mid .txt .tab .html .htm .pdf .svg .png .jpg .bmp .wav")
        ->required()
        ->type_name("");
    command->add_option("--track", arguments->Options.Track, "Current track, from 0, for outputs that show one")
        ->type_name("N");
    arguments->TextOnly = {
        command->add_option("--dash", arguments->Import.Text.Dash, "What a column of a text tab is worth; 4 without it")
            ->type_name("0-6")
            ->check(CLI::Range(0, 6)),
        command->add_flag("--same-length", arguments->Import.Text.SameLength,
                          "Give all notes of a text tab that length"),
        command->add_option("--timing", arguments->Timing, "Time signature of a text tab, as 3:4")->type_name("N:D"),
        command->add_flag("--details", arguments->Import.Text.Details, "Look for title and names in a text tab")};
    arguments->MidiOnly = {
        command->add_flag("--quantize", arguments->Import.Midi.Quantize, "Cut times of a MIDI file to whole 64ths"),
        command->add_flag("--ties", arguments->Import.Midi.Ties, "Tie the strums of a MIDI file"),
        command->add_flag("--reverb", arguments->Import.Midi.Reverb, "Turn reverb on for the tracks of a MIDI file"),
        command
            ->add_option("--midi-track", arguments->Import.Midi.Tracks,
                         "Take only this MIDI track, from 1; may be given more than once")
            ->type_name("K")
            ->allow_extra_args(false)};
    command->add_option("--reader", arguments->Reader, "Who reads a text tab or MIDI file; classic without it")
        ->type_name("NAME")
        ->check(CLI::IsMember({"classic", "lines", "aligned"}));
    command
        ->add_option("--into", arguments->Import.Into, "Add to this document: a text as --track, a MIDI track behind")
        ->type_name("DOC");
    command->add_flag("--report", arguments->Report, "Print what an import kept and lost");
    CLI::Option* const engraved =
        command->add_flag("--engraved", arguments->Options.Engraved, "Write a .pdf of the drawn pages, not of text");
    command->add_flag("--all-tracks", arguments->Options.AllTracks, "All tracks one behind the other")
        ->needs(engraved)
        ->excludes("--track");
    command
        ->add_option("--page", arguments->Options.Page,
                     "Page of a picture or of a drawn .pdf, from 1; without it every page")
        ->type_name("N");
    command->add_option("--dpi", arguments->Options.Dpi, "Dots to the inch of .png .jpg .bmp; 96 without it")
        ->type_name("N")
        ->check(CLI::Range(10, 2400));
    command->add_option("--max-line", arguments->Options.MaxLine, "Characters of a line of .txt .html .pdf")
        ->type_name("N")
        ->check(CLI::Range(1, 32767));
    command->add_flag("--warning,!--no-warning", arguments->Options.Warning, "Say at its head whose work the text is");
    command->callback([arguments, &work] { work = [arguments] { return Convert(*arguments); }; });
}

}  // namespace Quillon::Cli
