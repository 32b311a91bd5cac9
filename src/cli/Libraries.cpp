// quillon-cli library init, chords list, chords name, scales list, scales find, tunings list
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "cli/Commands.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "library/ChordNaming.h"
#include "library/mod_Chords.h"
#include "library/mod_Scales.h"
#include "library/mod_Tunings.h"
#include "platform/MessageBox.h"

namespace Quillon::Cli {

namespace {

/// The filter options of a list, of which one is used at a time.
struct Filters {
    CLI::Option* Name = nullptr;
    CLI::Option* Keywords = nullptr;
    CLI::Option* Strings = nullptr;
    CLI::Option* Tab = nullptr;
    std::string Text;
    int StringCount = 6;
    std::string Frets;
};

void PrintLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    Print(text);
}

std::vector<std::string> Parts(std::string_view text, std::string_view marks) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find_first_of(marks);
        parts.emplace_back(Core::TrimBlanks(text.substr(0, end)));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

/// Tells of the files that are none of a library's, which a list holds by their names at most.
template <class Rec>
void TellUnreadable(Library::FolderLibrary<Rec>& library) {
    const int count = library.Unreadable();
    if (count == 0) return;
    std::string names;
    for (const std::string& name : library.KnownUnreadable()) names += (names.empty() ? "" : ", ") + name;
    const std::string folder = library.Folder().string();
    const std::string text = count == 1
                                 ? Core::LanguageText("str_LibraryUnreadableOne", {folder, names})
                                 : Core::LanguageText("str_LibraryUnreadable", {std::to_string(count), folder, names});
    Services.Messages->Show(text, Core::LanguageText("str_TitleNote"), Buttons::Ok, BoxIcon::Exclamation);
}

int InitLibraries(bool restore) {
    if (restore) {
        Library::CreateAllChords();
        Library::CreateAllScales();
        Library::CreateAllTunings();
    } else {
        Library::EnsureChords();
        Library::EnsureScales();
        Library::EnsureTunings();
    }
    return Done;
}

int ListChords(const Filters& filters) {
    using Kind = Library::ChordFilter::Kind;
    Library::ChordFilter filter;
    if (filters.Name->count() > 0) filter = {.By = Kind::Name, .Text = filters.Text};
    if (filters.Strings->count() > 0) filter = {.By = Kind::Strings, .Strings = filters.StringCount};
    if (filters.Tab->count() > 0) {
        filter.By = Kind::Tab;
        const auto frets = Parts(filters.Frets, ",");
        if (frets.size() > Core::StringCount) throw UsageError("--tab takes at most seven frets");
        std::ranges::copy(frets, filter.Tab.begin());
    }
    Library::EnsureChords();
    Library::Chords.Refresh();
    PrintLines(Library::FilteredChords(Library::Chords, filter, Core::Open));
    TellUnreadable(Library::Chords);
    return Done;
}

int NameChord(const std::string& text) {
    constexpr std::size_t LeastStrings = 4;
    constexpr int MostFret = 30;
    const auto lowestFirst = Parts(text, ",");
    if (lowestFirst.size() < LeastStrings || lowestFirst.size() > Core::StringCount) {
        throw UsageError(text + ": a shape has 4 to 7 frets, lowest string first, such as x,3,2,0,1,0");
    }
    Core::Row<std::string, Core::StringCount> frets;
    std::ranges::reverse_copy(lowestFirst, frets.begin());
    for (const std::string& fret : lowestFirst) {
        const bool isNumber = !fret.empty() && fret.size() < 3 &&
                              std::ranges::all_of(fret, [](unsigned char letter) { return std::isdigit(letter) != 0; });
        const bool muted = fret == "x" || fret == "X" || fret.empty();
        if (!muted && (!isNumber || std::stoi(fret) > MostFret)) {
            throw UsageError(fret + ": a fret is a number from 0 to 30, or x");
        }
    }
    const auto chord = Library::MakeChord(static_cast<int>(lowestFirst.size()), false, frets);
    PrintLines(Library::ChordNames(Library::PitchesOf(chord)));
    return Done;
}

int ListScales(const Filters& filters) {
    using Kind = Library::ScaleFilter::Kind;
    Library::ScaleFilter filter;
    if (filters.Name->count() > 0) filter = {.By = Kind::Name, .Text = filters.Text};
    if (filters.Keywords->count() > 0) filter = {.By = Kind::Keywords, .Text = filters.Text};
    if (filters.Strings->count() > 0) filter = {.By = Kind::Strings, .Strings = filters.StringCount};
    Library::EnsureScales();
    Library::Scales.Refresh();
    PrintLines(Library::FilteredScales(Library::Scales, filter));
    TellUnreadable(Library::Scales);
    return Done;
}

/// A line a scale that holds the notes: its tonic and name, and behind a tab what it lacks, then what it has besides.
int FindScales(const std::vector<std::string>& words) {
    Library::PitchClasses notes;
    std::optional<int> first;
    for (const std::string& word : words) {
        for (const std::string& name : Parts(word, ", ")) {
            if (name.empty()) continue;
            const int pitch = Library::PitchClassOf(name);
            if (pitch < 0) throw UsageError(name + ": no note; notes are such as C, F# or Bb");
            notes.set(static_cast<std::size_t>(pitch));
            if (!first) first = pitch;
        }
    }
    Library::EnsureScales();
    Library::Scales.Refresh();
    std::vector<std::string> lines;
    for (const Library::FoundScale& scale : Library::FindScales(Library::Scales, notes, first)) {
        lines.push_back(Library::PitchClassName(scale.Key) + " " + scale.Name + "\t" + std::to_string(scale.Missing) +
                        " missing, " + std::to_string(scale.Extra) + " other");
    }
    PrintLines(lines);
    return Done;
}

int ListTunings(const Filters& filters) {
    Library::EnsureTunings();
    Library::Tunings.Refresh();
    std::vector<std::string> names;
    const std::string text = Library::Searchable(filters.Text);
    for (const std::string& name : Library::Tunings.Names()) {
        const bool named = Library::Searchable(name).find(text) != std::string::npos;
        const auto* const tuning = filters.Strings->count() > 0 ? Library::Tunings.Find(name) : nullptr;
        const bool strung = filters.Strings->count() == 0 || (tuning && tuning->NumStrings == filters.StringCount);
        if (named && strung) names.push_back(name);
    }
    PrintLines(names);
    TellUnreadable(Library::Tunings);
    return Done;
}

/// Gives the list command its options; those of a library that lacks one stay empty and are never asked for.
CLI::App* AddList(CLI::App& of, const char* about, Filters& filters) {
    CLI::App* const list = of.add_subcommand("list", about);
    filters.Name = list->add_option("--name", filters.Text, "Those with this text in their names")->type_name("T");
    filters.Strings = list->add_option("--strings", filters.StringCount, "Those for so many strings")
                          ->type_name("N")
                          ->check(CLI::Range(1, Core::StringCount));
    filters.Name->excludes(filters.Strings);
    return list;
}

}  // namespace

void AddLibraries(CLI::App& app, Work& work) {
    CLI::App* const library = app.add_subcommand("library", "The chord, scale and tuning libraries");
    library->require_subcommand(1);
    CLI::App* const init = library->add_subcommand("init", "Makes the libraries that are missing");
    const auto restore = std::make_shared<bool>(false);
    init->add_flag("--restore", *restore,
                   "Makes them anew; chords of your own go, scales and tunings of your own stay");
    init->callback([restore, &work] { work = [restore] { return InitLibraries(*restore); }; });

    CLI::App* const chords = app.add_subcommand("chords", "Looks chords up, names them, adds them to songs");
    chords->require_subcommand(1);
    const auto chordFilters = std::make_shared<Filters>();
    CLI::App* const chordList = AddList(*chords, "Prints the names of the library's chords", *chordFilters);
    chordFilters->Tab = chordList
                            ->add_option("--tab", chordFilters->Frets,
                                         "Those with these frets, counted from the box's top, lowest string first; "
                                         "an empty place passes any")
                            ->type_name("F,F,F,F,F,F,F")
                            ->excludes(chordFilters->Name)
                            ->excludes(chordFilters->Strings);
    chordList->callback([chordFilters, &work] { work = [chordFilters] { return ListChords(*chordFilters); }; });
    CLI::App* const name = chords->add_subcommand("name", "Prints the names of a shape, the most usual first");
    const auto shape = std::make_shared<std::string>();
    name->add_option("FRETS", *shape, "Such as x,3,2,0,1,0: lowest string first, in standard tuning")
        ->required()
        ->type_name("");
    name->callback([shape, &work] { work = [shape] { return NameChord(*shape); }; });

    AddChordWork(*chords, work);

    CLI::App* const scales = app.add_subcommand("scales", "Looks scales up");
    scales->require_subcommand(1);
    const auto scaleFilters = std::make_shared<Filters>();
    CLI::App* const scaleList = AddList(*scales, "Prints the names of the library's scales", *scaleFilters);
    scaleFilters->Keywords =
        scaleList->add_option("--keywords", scaleFilters->Text, "Those with this among their keywords")
            ->type_name("T")
            ->excludes(scaleFilters->Name)
            ->excludes(scaleFilters->Strings);
    scaleList->callback([scaleFilters, &work] { work = [scaleFilters] { return ListScales(*scaleFilters); }; });
    CLI::App* const find =
        scales->add_subcommand("find", "Prints the scales that hold at least half of some notes, the best first");
    const auto notes = std::make_shared<std::vector<std::string>>();
    find->add_option("NOTES", *notes, "Such as C E G# or C,E,G#; the first is taken for the tonic")
        ->required()
        ->type_name("");
    find->callback([notes, &work] { work = [notes] { return FindScales(*notes); }; });

    CLI::App* const tunings = app.add_subcommand("tunings", "Looks tunings up");
    tunings->require_subcommand(1);
    const auto tuningFilters = std::make_shared<Filters>();
    CLI::App* const tuningList = AddList(*tunings, "Prints the names of the library's tunings", *tuningFilters);
    tuningList->callback([tuningFilters, &work] { work = [tuningFilters] { return ListTunings(*tuningFilters); }; });
}

}  // namespace Quillon::Cli
