// quillon-cli chords add, chords export, chords print
#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "library/ChordBoxes.h"
#include "library/mod_Chords.h"
#include "platform/Services.h"
#include "platform/pdf/PdfPages.h"
#include "tools/ChordManager.h"
#include "tools/ChordSheet.h"

namespace Quillon::Cli {

using Core::Open;

namespace {

struct Arguments {
    std::string File;
    std::vector<std::string> Chords;
    std::string Out;
    bool Notes = false;
    bool Lefthanded = false;
    int Display = 5;
    std::string Name;
};

/// "C m7@0,3,2": a chord of the library on a track, bar and strum, from 0.
struct Placed {
    std::string Name;
    int Track = 0, Bar = 0, Strum = 0;
};

Placed PlacedOf(const std::string& text) {
    const std::size_t at = text.rfind('@');
    const auto refuse = [&text] { throw UsageError(text + ": NAME@T,B,S expected"); };
    if (at == std::string::npos) refuse();
    Placed placed{text.substr(0, at)};
    const char* from = text.data() + at + 1;
    const char* const end = text.data() + text.size();
    for (int* const number : {&placed.Track, &placed.Bar, &placed.Strum}) {
        const auto [stop, problem] = std::from_chars(from, end, *number);
        const bool last = number == &placed.Strum;
        if (problem != std::errc{} || (last ? stop != end : stop == end || *stop != ',')) {
            refuse();
        }
        from = last ? stop : stop + 1;
    }
    return placed;
}

bool IsInSong(const Placed& placed) {
    const auto isIn = [](int index, const auto& list) { return index >= 0 && index < list.Count(); };
    const auto& tracks = Open.TabFile.Tracks;
    return isIn(placed.Track, tracks) && isIn(placed.Bar, tracks[placed.Track].Bars) &&
           isIn(placed.Strum, tracks[placed.Track].Bars[placed.Bar].Strums());
}

const Library::ChordRec& ChordOf(const std::string& name) {
    const Library::ChordRec* const chord = Library::Chords.Find(name);
    if (chord) return *chord;
    const bool there = std::ranges::count(Library::Chords.Names(), name) > 0;
    throw CommandFailure(Library::Chords.FileOf(name).string() + (there ? ": not a chord file" : ": no such chord"));
}

void LookAtLibrary() {
    Library::EnsureChords();
    Library::Chords.Refresh();
}

int AddTo(const Arguments& arguments) {
    std::vector<Placed> places;
    std::ranges::transform(arguments.Chords, std::back_inserter(places), PlacedOf);
    WriterFor(arguments.Out);
    OpenWholeDocument(arguments.File);
    LookAtLibrary();
    for (const Placed& placed : places) {
        const Library::ChordRec& chord = ChordOf(placed.Name);
        if (!IsInSong(placed)) {
            const auto number = [](int value) { return std::to_string(value); };
            throw CommandFailure(arguments.File + ": no strum at track " + number(placed.Track) + ", bar " +
                                 number(placed.Bar) + ", strum " + number(placed.Strum) + " for " + placed.Name);
        }
        Core::Strum& strum = Core::EditStrum(placed.Track, placed.Bar, placed.Strum);
        const Core::Track& track = Open.TabFile.Tracks[placed.Track];
        if (!arguments.Notes) {
            Tools::WriteChordDiagram(placed.Name, chord, strum);
        } else if (track.IsDrum || !Tools::WriteChordNotes(chord, track, strum)) {
            throw CommandFailure(placed.Name + ": track " + std::to_string(placed.Track) + " can't play it");
        }
    }
    SaveDocument(arguments.Out);
    return Done;
}

std::vector<std::string> NamesFor(const Arguments& arguments) {
    LookAtLibrary();
    const Library::ChordFilter filter{.By = Library::ChordFilter::Kind::Name, .Text = arguments.Name};
    return Library::FilteredChords(Library::Chords, filter, Open);
}

int Export(const Arguments& arguments) {
    Services.Files->Replace(arguments.Out,
                            Core::ToWindows1252(Library::ChordsAsText(Library::Chords, NamesFor(arguments))));
    return Done;
}

int PrintSheet(const Arguments& arguments) {
    if (!Core::LowerAscii(arguments.Out).ends_with(".pdf")) throw UsageError(arguments.Out + ": .pdf expected");
    Tools::ChordSheetModel sheet;
    sheet.Names = NamesFor(arguments);
    sheet.Title = Core::LanguageText("str_ChordManagerTitle");
    sheet.DisplayMode = arguments.Display;
    sheet.Lefthanded = arguments.Lefthanded;
    if (sheet.Names.empty()) throw CommandFailure(arguments.Name + ": no chord has this in its name");
    Services.NewPdf = [] { return std::unique_ptr<PageFile>(std::make_unique<PdfPages>()); };
    sheet.SavePdf(arguments.Out);
    return Done;
}

}  // namespace

void AddChordWork(CLI::App& chords, Work& work) {
    const auto given = std::make_shared<Arguments>();
    const auto command = [&](const char* name, const char* about, int (*run)(const Arguments&)) {
        CLI::App* const made = chords.add_subcommand(name, about);
        made->callback([given, run, &work] { work = [given, run] { return run(*given); }; });
        return made;
    };
    CLI::App* const add = command("add", "Puts chords of the library into a song, as diagrams", AddTo);
    add->add_option("FILE", given->File, "Document to open, by its ending")->required()->type_name("");
    add->add_option("CHORDS", given->Chords, "NAME@T,B,S each: a chord and its track, bar and strum, from 0")
        ->required()
        ->type_name("");
    add->add_flag("--notes", given->Notes, "As notes in place of diagrams");
    add->add_option("--out", given->Out, "File to save the document to, by its ending")->required()->type_name("OUT");
    const auto listed = [&](CLI::App* made, const char* out) {
        made->add_option("OUT", given->Out, out)->required()->type_name("");
        made->add_option("--name", given->Name, "Just those with this text in their names")->type_name("T");
    };
    listed(command("export", "Writes names, frets and notes of chords", Export), "The text file");
    CLI::App* const print = command("print", "Writes a sheet of chord boxes", PrintSheet);
    listed(print, "The PDF file");
    print->add_option("--display", given->Display, "What the boxes show")
        ->type_name("0-6")
        ->check(CLI::Range(0, Library::DisplayModes - 1));
    print->add_flag("--lefthanded", given->Lefthanded, "Strings the other way round");
}

}  // namespace Quillon::Cli
